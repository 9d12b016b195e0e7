#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnSetVideoBoardType(TarnLong boardType) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoBoardType(boardType); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnSetVideoCameraType(TarnLong cameraType) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoCameraType(cameraType); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetVideoMag100Factors(x100, y100); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnSetVideoMag100Factors(x100, y100); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetStageLimits(axis, lower, upper); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnGetDirStd(buffer, bufferSize); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnDbObjectNew(const char* typeName) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectNew(typeName); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnDbObjectRead(TarnLong handle, const char* name) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectRead(handle, name); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnDbObjectDelete(TarnLong handle) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbObjectDelete(handle); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnDbGetStagePos(handle, x, y, z); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnIniEnumNb(const char* section, const char* store) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_lib_proxy().TarnIniEnumNb(section, store); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                                  TarnLong bufferSize, const char* store) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_lib_proxy().TarnIniEnumString(section, number, buffer, bufferSize, store);
    });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnSolvePlan(TarnLong rows, const TarnDouble* matrix,
                                              const TarnDouble* rightSide, TarnDouble* solution) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_lib_proxy().TarnSolvePlan(rows, matrix, rightSide, solution);
    });
}
