/* Statistics of an image that there is not. */
#include "minimal_host.h"

HOST_FUNCTION TarnLong TARN_CALL TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left,
                                                                  TarnLong top, TarnLong right,
                                                                  TarnLong bottom, TarnLong* pixelCount,
                                                                  TarnLong* pixelSum, TarnDouble* variance) {
    (void)buffer, (void)left, (void)top, (void)right, (void)bottom;
    *pixelCount = 0;
    *pixelSum = 0;
    *variance = 0.0;
    return 0;
}
