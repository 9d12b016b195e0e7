#pragma once
// The autofocus request. The search runs inside the host; the program requests it and updates its display
// afterwards.

#include "stage/CTnStage.h"
#include "stage/StageWatch.h"
#include "video/CTnVideoBoard.h"

namespace ocuva {

/// Where Z was before a search, if the program knows it, and where it is after it.
struct FocusCourse {
    std::optional<Long> fromZ; ///< none if no position was shown yet or the stage was moving
    std::optional<Long> toZ;   ///< as read afterwards
};

/// Runs one autofocus to its end. The display is refreshed whatever the host found. A running grab is
/// halted and restarted once, so that the monitor shows frames from after the focus move. The journal gets
/// the host's answer and no more.
FocusCourse doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image);

} // namespace ocuva
