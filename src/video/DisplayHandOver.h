#pragma once
// Tells the board in which window to show live video, and at which scale.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

/// Makes the board show live video in the window, reduced zoomDivisor times, or pixel for pixel while the
/// menu entry "&Normal (1:1)" is checked.
void handDisplayToBoard(TnVideo& video, Long windowHandle, Long zoomDivisor, bool normalZoomIsChecked);

} // namespace ocuva
