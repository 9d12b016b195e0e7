#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnStartStage(TarnLong axis) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_micro_proxy().TarnStartStage(axis); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnLoadStageAbs(TarnLong axis, TarnSingle target) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnLoadStageAbs(axis, target); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnLoadStageRelSecure(axis, distance); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnReadStagePos(TarnLong axis, TarnLong* position) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnReadStagePos(axis, position); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnReadStageStatus(axis, zero, status); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnAutoFocusExt(TarnLong flag) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_micro_proxy().TarnAutoFocusExt(flag); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnBacklashStage(TarnLong axis) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_micro_proxy().TarnBacklashStage(axis); });
}
