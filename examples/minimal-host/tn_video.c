/* A video board that does not come up: the program runs without a picture. */
#include "minimal_host.h"

static TarnLong board_type = 1;
static TarnLong camera_type = 3;

HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardInit(void) { return 0; }
HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardShutdown(void) { return 0; }
HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardHaltGrab(void) { return 0; }

HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) {
    (void)continuous, (void)show;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoSetCurrentBoardType(TarnLong boardType) {
    board_type = boardType;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoGetCurrentBoardType(void) { return board_type; }

/* Code 0 brings the window that live video is to be drawn into: the host keeps the handle and draws, from any
 * thread. */
HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    (void)functionCode, (void)data;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    (void)descriptor, (void)parent;
    return TARN_BUFFER_NONE;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    (void)handle, (void)descriptor;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoSetCurrentCameraType(TarnLong cameraType) {
    camera_type = cameraType;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoGetCurrentCameraType(void) { return camera_type; }

HOST_FUNCTION TarnLong TARN_CALL TarnVideoCameraSetReferences(TarnLong group, TarnDouble first,
                                                              TarnDouble second) {
    (void)group, (void)first, (void)second;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first,
                                                              TarnDouble* second) {
    (void)group, (void)first, (void)second;
    return 0;
}
