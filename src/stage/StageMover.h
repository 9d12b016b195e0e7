#pragma once
// What dialogs move the stage by: the main window, or whatever offers the same.

#include "stage/CTnStage.h"

#include <memory>

namespace ocuva {

/// Gives access to the stage and follows what was set going there.
class StageMover {
public:
    virtual ~StageMover() = default;
    /// The stage whose moves are loaded before SyncStageMove.
    virtual CTnStage& cxsStage() = 0;
    /// Starts the loaded moves (0: of all axes) and watches them.
    virtual void SyncStageMove(Integer axis) = 0;
    /// The move just started goes so far that the host has probably refused it; what is said about it at its
    /// end is the window's business.
    virtual void farMoveStarted(Long /*x*/, Long /*y*/, Long /*z*/) {}
    /// Keeps pointer and keys away for as long as what it returns lives: around host calls that may take
    /// long. Null where there is no window to keep them from.
    virtual std::shared_ptr<void> holdInput() { return nullptr; }
};

} // namespace ocuva
