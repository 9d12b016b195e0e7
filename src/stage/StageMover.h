#pragma once
// What dialogs move the stage by: the main window, or whatever offers the same.

#include "stage/CTnStage.h"

namespace ocuva {

/// Gives access to the stage and follows what was set going there.
class StageMover {
public:
    virtual ~StageMover() = default;
    /// The stage whose moves are loaded before SyncStageMove.
    virtual CTnStage& cxsStage() = 0;
    /// Starts the loaded moves (0: of all axes) and watches them.
    virtual void SyncStageMove(Integer axis) = 0;
};

} // namespace ocuva
