#pragma once
// The autofocus request. The search itself runs inside the host; the program asks for it and brings its own
// display up to date afterwards.

#include "stage/CTnStage.h"
#include "stage/StageWatch.h"
#include "video/CTnVideoBoard.h"

namespace ocuva {

/// One autofocus, to its end. The display is refreshed whatever the host found; a running grab is halted and
/// started again once, so that the monitor shows frames from after the focus move.
void doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image);

} // namespace ocuva
