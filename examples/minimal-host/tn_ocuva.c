/* Messages by name: this host has nobody to send them to. */
#include "minimal_host.h"

HOST_FUNCTION TarnLong TARN_CALL TarnOcuvaSendMsgByName(const char* name) {
    (void)name;
    return 0;
}
