#pragma once
// Tells the board which window live video is shown in, and how.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

/// Asks the board to show live video in that window reduced zoomDivisor times, or pixel for pixel while the
/// menu entry
/// "&Normal (1:1)" is marked.
void handDisplayToBoard(TnVideo& video, Long windowHandle, Long zoomDivisor, bool normalZoomIsChecked);

} // namespace ocuva
