#include "video/DisplayHandOver.h"

namespace ocuva {

void handDisplayToBoard(TnVideo& video, Long windowHandle, Long zoomDivisor, bool normalZoomIsChecked) {
    TarnDisplayRequest request{windowHandle, -zoomDivisor, normalZoomIsChecked ? hostTrue : hostFalse};
    video.TarnVideoBoardFunction(TARN_BOARD_FUNCTION_DISPLAY, &request);
}

} // namespace ocuva
