#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left,
                                                                 TarnLong top, TarnLong right,
                                                                 TarnLong bottom, TarnLong* pixelCount,
                                                                 TarnLong* pixelSum, TarnDouble* variance) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_vduti().TarnVideoBufferComputeStatistics(buffer, left, top, right, bottom, pixelCount,
                                                                pixelSum, variance);
    });
}
