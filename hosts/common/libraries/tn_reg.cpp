#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnRegisterGetInt(const char* section, const char* key,
                                                   TarnLong defaultValue, const char* store) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_reg().TarnRegisterGetInt(section, key, defaultValue, store);
    });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnRegisterSetString(const char* section, const char* key, const char* value,
                                                      const char* store) {
    return hosts::withHost(
        [&](ocuva::Host& host) { return host.tn_reg().TarnRegisterSetString(section, key, value, store); });
}

HOSTS_EXPORT TarnLong TARN_CALL TarnRegisterGetString(const char* section, const char* key,
                                                      const char* defaultValue, char* buffer,
                                                      TarnLong bufferSize, const char* store) {
    return hosts::withHost([&](ocuva::Host& host) {
        return host.tn_reg().TarnRegisterGetString(section, key, defaultValue, buffer, bufferSize, store);
    });
}
