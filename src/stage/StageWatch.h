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

/// The parts of the window that the watch changes. Colours are those of the window system: red in the
/// lowest byte, then green, then blue.
class StageWatchView {
public:
    virtual ~StageWatchView() = default;
    /// The colour of the frame around the image.
    ///@{
    virtual Long monitorColour() const = 0;
    virtual void setMonitorColour(Long colour) = 0;
    ///@}
    /// While on, the timer calls StageWatch::tick every tickMs.
    virtual void enableMoveTimer(bool on) = 0;
    /// Text of the status bar's panel "X", "Y" or "Z".
    virtual void showPosition(Integer axis, const std::string& text) = 0;
    /// The loaded moves of an axis (0: all) were started; `from` is the position shown last, if any.
    virtual void moveStarted(Integer /*axis*/, const std::optional<StagePosition>& /*from*/) {}
    /// The three panels show this position. A watched move may still be running.
    virtual void positionShown(const StagePosition& /*at*/) {}
    /// The watched move has been running for longMoveTicks.
    virtual void moveTakesLong() {}
    /// The watched move has ended, and the position is shown.
    virtual void watchedMoveEnded() {}
};

/// Implements the states above; one object for the life of the window. User-interface thread.
class StageWatch {
public:
    /// Orange (red 255, green 192, blue 0), shown on every second tick during a move.
    static constexpr Long movingColour = 49407;
    /// Period of the move timer, and the longest delay until the end of a move is noticed.
    static constexpr int tickMs = 64;
    /// Number of ticks, about a second, after which a move counts as long.
    static constexpr int longMoveTicks = 16;

    /// Writes each watched move to the journal when it ends.
    StageWatch(CTnStage& stage, StageWatchView& view, JournalSink journal = {})
        : m_stage(stage)
        , m_view(view)
        , m_journal(std::move(journal)) {}
    /// Writes a move that is still watched to the journal as not ended.
    ~StageWatch();
    StageWatch(const StageWatch&) = delete;
    StageWatch& operator=(const StageWatch&) = delete;

    /// Starts the loaded moves of an axis (0: all) and watches them to their end.
    void SyncStageMove(Integer axis);

    /// One tick of the move timer. If nothing moves, the stage raises MoveEnd during the call, which runs
    /// moveEnded.
    void tick();

    /// The end of a move, watched or not: stops the timer, restores the frame's colour and shows the
    /// position.
    void moveEnded();

    /// Reads X, Y and Z, in this order, and shows them as whole numbers.
    void UpdateStagePos();

    /// Whether a move started by SyncStageMove has not been seen to end.
    bool isWatching() const { return m_bStageMoving; }

    /// The position that was read and shown last. For the journal only: everything else reads the host.
    const std::optional<StagePosition>& shownPosition() const { return m_shown; }
    /// The journal for moves, for other classes that record the same kind of action.
    const JournalSink& journal() const { return m_journal; }

private:
    CTnStage& m_stage;
    StageWatchView& m_view;
    JournalSink m_journal;
    std::optional<StagePosition> m_shown;
    std::optional<StagePosition> m_from; // shown when the watched move began
    bool m_bStageMoving = false;
    Long m_savedColour = 0;
    int m_ticksMoving = 0;  // of the watched move, up to longMoveTicks
    bool m_oddTick = false; // the lowest bit of the tick counter
};

/// Steps of the Z buttons in stage units, by button index.
inline constexpr std::array<Long, 4> zSteps{1, 2, 5, 10};

/// One press of a Z button: waits until Z is at rest, loads the step and watches the move. The wait polls
/// the stage on purpose, so that no step starts while Z moves. onWait is called once if Z moves, before it
/// is read again.
void stepZ(CTnStage& stage, StageWatch& watch, std::size_t index, bool up,
           const std::function<void()>& onWait = {});

} // namespace ocuva
