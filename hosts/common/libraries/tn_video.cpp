#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBoardInit(void) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardInit(); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBoardShutdown(void) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardShutdown(); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardStartGrab(continuous, show); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBoardHaltGrab(void) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardHaltGrab(); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoSetCurrentBoardType(TarnLong boardType) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoSetCurrentBoardType(boardType); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoGetCurrentBoardType(void) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_video().TarnVideoGetCurrentBoardType(); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    if (functionCode == TARN_BOARD_FUNCTION_DISPLAY && data != nullptr) {
        hosts::showLiveVideoIn(static_cast<TarnDisplayRequest*>(data)->windowHandle);
    }
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBoardFunction(functionCode, data); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoBufferAlloc(descriptor, parent); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoGetBufferDesc(handle, descriptor); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoSetCurrentCameraType(TarnLong cameraType) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoSetCurrentCameraType(cameraType); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoGetCurrentCameraType(void) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_video().TarnVideoGetCurrentCameraType(); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoCameraSetReferences(TarnLong group, TarnDouble first,
                                                             TarnDouble second) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_video().TarnVideoCameraSetReferences(group, first, second);
    });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first,
                                                             TarnDouble* second) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_video().TarnVideoCameraGetReferences(group, first, second);
    });
}
