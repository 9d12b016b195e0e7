#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT TarnLong TARN_CALL TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left,
                                                                   TarnLong top, TarnLong right,
                                                                   TarnLong bottom, TarnLong* pixelCount,
                                                                   TarnLong* pixelSum, TarnDouble* variance) {
    return simhost::withHost([&](ocuva::Host& host) {
        return host.tn_vduti().TarnVideoBufferComputeStatistics(buffer, left, top, right, bottom, pixelCount,
                                                                pixelSum, variance);
    });
}
