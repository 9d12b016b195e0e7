/* Settings: this host keeps none, so everything has its default. */
#include "minimal_host.h"

HOST_FUNCTION TarnLong TARN_CALL TarnRegisterGetInt(const char* section, const char* key,
                                                    TarnLong defaultValue, const char* store) {
    (void)section, (void)key, (void)store;
    return defaultValue;
}

HOST_FUNCTION TarnLong TARN_CALL TarnRegisterSetString(const char* section, const char* key,
                                                       const char* value, const char* store) {
    (void)section, (void)key, (void)value, (void)store;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnRegisterGetString(const char* section, const char* key,
                                                       const char* defaultValue, char* buffer,
                                                       TarnLong bufferSize, const char* store) {
    (void)section, (void)key, (void)store;
    return fill_text(defaultValue, buffer, bufferSize);
}
