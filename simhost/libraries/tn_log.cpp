#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT void TARN_CALL TarnPrintfVB(const char* line) {
    simhost::withHost([&](ocuva::Host& host) { return host.tn_log().TarnPrintfVB(line); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnMessageBoxVB(const char* messageKey, const char* title,
                                                   TarnLong style) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.tn_log().TarnMessageBoxVB(messageKey, title, style); });
}

SIMHOST_EXPORT TarnLong TARN_CALL TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    return simhost::withHost(
        [&](ocuva::Host& host) { return host.Tn_log().TarnGetUniqueObjectKey(buffer, bufferSize); });
}
