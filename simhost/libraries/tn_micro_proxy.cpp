#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT TarnLong TARN_CALL TarnStartStage(TarnLong axis) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_micro_proxy().TarnStartStage(axis); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnLoadStageAbs(TarnLong axis, TarnSingle target) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnLoadStageAbs(axis, target); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnLoadStageRelSecure(axis, distance); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnReadStagePos(TarnLong axis, TarnLong* position) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnReadStagePos(axis, position); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnReadStageStatus(axis, zero, status); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnAutoFocusExt(TarnLong flag) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_micro_proxy().TarnAutoFocusExt(flag); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnBacklashStage(TarnLong axis) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_micro_proxy().TarnBacklashStage(axis); });
}
