#include "simhost/libraries/ProcessHost.h"

SIMHOST_EXPORT TarnLong TARN_CALL TarnOcuvaSendMsgByName(const char* name) {
    return simhost::withHost([&](ocuva::Host& host) { return host.tn_ocuva().TarnOcuvaSendMsgByName(name); });
}
