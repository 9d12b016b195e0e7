#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT TarnLong TARN_CALL TarnSetVideoBoardType(TarnLong boardType) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoBoardType(boardType); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnSetVideoCameraType(TarnLong cameraType) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoCameraType(cameraType); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetVideoMag100Factors(x100, y100); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoMag100Factors(x100, y100); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetStageLimits(axis, lower, upper); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetDirStd(buffer, bufferSize); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnDbObjectNew(const char* typeName) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectNew(typeName); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnDbObjectRead(TarnLong handle, const char* name) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectRead(handle, name); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnDbObjectDelete(TarnLong handle) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectDelete(handle); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbGetStagePos(handle, x, y, z); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnIniEnumNb(const char* section, const char* store) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnIniEnumNb(section, store); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                                    TarnLong bufferSize, const char* store) {
    return simhost::withHost([&](ocuva::Host& host) {
        return host.tn_lib_proxy().TarnIniEnumString(section, number, buffer, bufferSize, store);
    });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnSolvePlan(TarnLong rows, const TarnDouble* matrix,
                                                const TarnDouble* rightSide, TarnDouble* solution) {
    return simhost::withHost([&](ocuva::Host& host) {
        return host.tn_lib_proxy().TarnSolvePlan(rows, matrix, rightSide, solution);
    });
}
