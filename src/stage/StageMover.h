#pragma once
// The interface through which dialogs move the stage; the main window implements it.

#include "base/StagePosition.h"
#include "stage/CTnStage.h"

#include <memory>

namespace ocuva {

/// Gives access to the stage and watches the moves that are started there.
class StageMover {
public:
    virtual ~StageMover() = default;
    /// The stage on which moves are loaded before SyncStageMove.
    virtual CTnStage& cxsStage() = 0;
    /// Starts the loaded moves (0: of all axes) and watches them.
    virtual void SyncStageMove(Integer axis) = 0;
    /// The move just started is so long that the host has probably refused it; the window reports this at
    /// its end.
    virtual void farMoveStarted(const StagePosition& /*target*/) {}
    /// Blocks pointer and keys for the life of the returned object, around host calls that can take long.
    /// Null if there is no window.
    virtual std::shared_ptr<void> holdInput() { return nullptr; }
};

} // namespace ocuva
