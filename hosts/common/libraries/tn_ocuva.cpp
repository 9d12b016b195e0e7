#include "hosts/common/libraries/ProcessHost.h"

HOSTS_EXPORT TarnLong TARN_CALL TarnOcuvaSendMsgByName(const char* name) {
    return hosts::withHost([&](ocuva::Host& host) { return host.tn_ocuva().TarnOcuvaSendMsgByName(name); });
}
