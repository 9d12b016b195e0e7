#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBoardInit(void) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardInit(); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBoardShutdown(void) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardShutdown(); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardStartGrab(continuous, show); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBoardHaltGrab(void) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardHaltGrab(); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoSetCurrentBoardType(TarnLong boardType) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoSetCurrentBoardType(boardType); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoGetCurrentBoardType(void) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoGetCurrentBoardType(); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    if (functionCode == TARN_BOARD_FUNCTION_DISPLAY && data != nullptr) {
        simhost::showLiveVideoIn(static_cast<TarnDisplayRequest*>(data)->windowHandle);
    }
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardFunction(functionCode, data); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBufferAlloc(descriptor, parent); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoGetBufferDesc(handle, descriptor); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoSetCurrentCameraType(TarnLong cameraType) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoSetCurrentCameraType(cameraType); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoGetCurrentCameraType(void) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoGetCurrentCameraType(); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoCameraSetReferences(TarnLong group, TarnDouble first,
                                                               TarnDouble second) {
    return simhost::withHost([&](ocuva::Host& host) {
        return host.tn_video().TarnVideoCameraSetReferences(group, first, second);
    });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first,
                                                               TarnDouble* second) {
    return simhost::withHost([&](ocuva::Host& host) {
        return host.tn_video().TarnVideoCameraGetReferences(group, first, second);
    });
}
