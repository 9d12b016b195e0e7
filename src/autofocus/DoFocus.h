#pragma once
// The autofocus request. The search itself runs inside the host; the program asks for it and brings its own
// display up to date afterwards.

#include "stage/CTnStage.h"
#include "stage/StageWatch.h"
#include "video/CTnVideoBoard.h"

namespace ocuva {

/// Where Z was before a search, as far as the program knows, and where it is after it.
struct FocusCourse {
    std::optional<Long> fromZ; ///< none when no position was shown yet, or the stage was under way
    std::optional<Long> toZ;   ///< as read afterwards
};

/// One autofocus, to its end. The display is refreshed whatever the host found; a running grab is halted and
/// started again once, so that the monitor shows frames from after the focus move. The journal gets what the
/// host answered, and no more than that.
FocusCourse doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image);

} // namespace ocuva
