#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT void TARN_CALL TarnPrintfVB(const char* line) {
    hosts::withHost([&](ocuva::Host& host) { return host.tn_log().TarnPrintfVB(line); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_log().TarnMessageBoxVB(messageKey, title, style); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.Tn_log().TarnGetUniqueObjectKey(buffer, bufferSize); });
}
