#pragma once
// The watching of stage moves: from SyncStageMove, through the ticks of the move timer that make the monitor
// frame blink, to the end of the move and the display of the position.
//
//            SyncStageMove                     tick, no axis moves (MoveEnd)
//     idle ----------------> watching a move ------------------------------> idle
//                              |         ^
//                              +---------+  SyncStageMove (starts another axis), tick while an axis moves

#include "base/Types.h"
#include "journal/JournalEntry.h"
#include "stage/CTnStage.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace ocuva {

/// What the watch changes on the window. Colours are the window system's: red in the lowest byte, then green,
/// then blue.
class StageWatchView {
public:
    virtual ~StageWatchView() = default;
    /// The fill of the frame round the image.
    ///@{
    virtual Long monitorColour() const = 0;
    virtual void setMonitorColour(Long colour) = 0;
    ///@}
    /// While on, the timer calls StageWatch::tick every tickMs.
    virtual void enableMoveTimer(bool on) = 0;
    /// Text of the status bar's panel "X", "Y" or "Z".
    virtual void showPosition(Integer axis, const std::string& text) = 0;
    /// The loaded moves of an axis (0: all) were started; the position is the one shown last, if any was.
    virtual void moveStarted(Integer /*axis*/, const std::optional<JournalPosition>& /*from*/) {}
    /// The three panels show this position; still on its way while a move is watched.
    virtual void positionShown(const JournalPosition& /*at*/) {}
    /// The watched move has run for longMoveTicks.
    virtual void moveTakesLong() {}
    /// The watched move has ended, and the position is shown.
    virtual void watchedMoveEnded() {}
};

/// The states above, one object for the life of the window. User-interface thread.
class StageWatch {
public:
    /// Orange (red 255, green 192, blue 0), shown on every other tick while a move runs.
    static constexpr Long movingColour = 49407;
    /// Period of the move timer, and so the longest delay after which the end of a move is seen.
    static constexpr int tickMs = 64;
    /// Ticks, about a second, after which a move is a long one: the operator begins to wonder.
    static constexpr int longMoveTicks = 16;

    /// Each watched move that ends is noted in the journal.
    StageWatch(CTnStage& stage, StageWatchView& view, JournalSink journal = {})
        : m_stage(stage)
        , m_view(view)
        , m_journal(std::move(journal)) {}
    /// A move that is still watched is noted as not ended.
    ~StageWatch();
    StageWatch(const StageWatch&) = delete;
    StageWatch& operator=(const StageWatch&) = delete;

    /// Starts the loaded moves of an axis (0: all) and watches them to their end.
    void SyncStageMove(Integer axis);

    /// One tick of the move timer. The stage raises MoveEnd, and so moveEnded runs, from inside when nothing
    /// moves.
    void tick();

    /// The end of a move, also when none was watched: stops the timer, gives the frame its colour back, shows
    /// where the stage is.
    void moveEnded();

    /// Reads X, Y and Z, in this order, and shows them as whole numbers.
    void UpdateStagePos();

    /// Whether a move that SyncStageMove started has not been seen to end.
    bool isWatching() const { return m_bStageMoving; }

    /// The position as read and shown last, for the journal alone: the host is always asked anew.
    const std::optional<JournalPosition>& shownPosition() const { return m_shown; }
    /// Where moves are noted, for what notes the same kind of thing.
    const JournalSink& journal() const { return m_journal; }

private:
    CTnStage& m_stage;
    StageWatchView& m_view;
    JournalSink m_journal;
    std::optional<JournalPosition> m_shown;
    std::optional<JournalPosition> m_from; // shown when the watched move began
    bool m_bStageMoving = false;
    Long m_savedColour = 0;
    int m_ticksMoving = 0;  // of the watched move, up to longMoveTicks
    bool m_oddTick = false; // the tick counter's lowest bit, all that is ever used of it
};

/// Steps of the Z buttons in stage units, by the buttons' index.
inline constexpr std::array<Long, 4> zSteps{1, 2, 5, 10};

/// One press of the Z button of that index, up or down: waits until Z stands, loads the step and watches it.
/// The wait asks the stage again and again on purpose, so that a step is never given while Z still moves.
/// onWait is called once if Z moves, before it is asked again.
void stepZ(CTnStage& stage, StageWatch& watch, std::size_t index, bool up,
           const std::function<void()>& onWait = {});

} // namespace ocuva
