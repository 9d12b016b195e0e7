#pragma once
// The stage in the main window: moves and their watch, the move timer, the position panels.

#include "app/HandlerGuard.h"
#include "app/MainControls.h"
#include "app/MainWindowContext.h"
#include "display/PointMove.h"
#include "stage/CTnStage.h"
#include "stage/StageMover.h"
#include "stage/StageWatch.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace ocuva {

/// What the rest of the window does about moves.
struct StageEvents {
    /// As StageWatchView::moveStarted.
    std::function<void(Integer axis, const std::optional<StagePosition>& from)> moveStarted;
    /// As StageWatchView::positionShown.
    std::function<void(const StagePosition& at)> positionShown;
    /// As StageWatchView::watchedMoveEnded.
    std::function<void()> moveEnded;
};

/// What it needs; everything outlives it.
struct StageControlContext {
    HostReadings& readings; ///< the host, and the VGA mode of its settings
    MainControls& controls; ///< where positions and moves are shown
    HandlerGuard& guard;    ///< of the Z buttons
    JournalSink journal;    ///< receives each watched move
    StageEvents events;     ///< called after its own part is done
};

/// One for the life of the main window. It is what dialogs move the stage by.
class StageControl final : public StageMover, private StageWatchView {
public:
    /// Nothing is asked of the host yet.
    explicit StageControl(StageControlContext context);

    CTnStage& cxsStage() override { return m_stage; }
    void SyncStageMove(Integer axis) override;
    void farMoveStarted(const StagePosition& target) override { m_farTarget = target; }
    std::shared_ptr<void> holdInput() override { return m_context.guard.holdInput(); }

    /// The watch of moves.
    StageWatch& watch() { return m_watch; }

    /// One step of Z by the button of that index, up or down; none in VGA mode.
    void stepZ(std::size_t index, bool up);
    /// Takes up the backlash of all axes.
    void takeUpBacklash();
    /// Moves the stage so that the clicked point comes to the reference point; lengths in twips. The operator
    /// is warned after a click on a picture that is old.
    void moveToPoint(const ClickOnImage& click, bool pictureIsOld);
    /// Shows what a move has come to, until the next one begins.
    void showMoveNote(const QString& note, const QString& advice = {});

    /// Calls StageWatch::tick while a move is watched.
    QTimer* const tStageMove;

private:
    Long monitorColour() const override;
    void setMonitorColour(Long colour) override;
    void enableMoveTimer(bool on) override;
    void showPosition(Integer axis, const std::string& text) override;
    void moveStarted(Integer axis, const std::optional<StagePosition>& from) override;
    void positionShown(const StagePosition& at) override { m_context.events.positionShown(at); }
    void moveTakesLong() override;
    void watchedMoveEnded() override;

    StageControlContext m_context;
    CTnStage m_stage;
    StageWatch m_watch;
    QString m_moveNote;                       // about the last move
    std::optional<StagePosition> m_farTarget; // of the move that is watched
};

} // namespace ocuva
