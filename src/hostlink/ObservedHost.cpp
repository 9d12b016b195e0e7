#include "hostlink/ObservedHost.h"

#include <utility>

namespace ocuva {

ObservedHost::ObservedHost(Host& host, Listener listener)
    : m_host(host)
    , m_listener(std::move(listener)) {}

TarnLong ObservedHost::Reg::TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                               const char* store) {
    return owner.m_host.tn_reg().TarnRegisterGetInt(section, key, defaultValue, store);
}

TarnLong ObservedHost::Reg::TarnRegisterSetString(const char* section, const char* key, const char* value,
                                                  const char* store) {
    const TarnLong kept = owner.m_host.tn_reg().TarnRegisterSetString(section, key, value, store);
    if (kept == 0 && owner.m_listener.settingNotKept) {
        owner.m_listener.settingNotKept();
    }
    return kept;
}

TarnLong ObservedHost::Reg::TarnRegisterGetString(const char* section, const char* key,
                                                  const char* defaultValue, char* buffer, TarnLong bufferSize,
                                                  const char* store) {
    return owner.m_host.tn_reg().TarnRegisterGetString(section, key, defaultValue, buffer, bufferSize, store);
}

TarnLong ObservedHost::Messages::TarnOcuvaSendMsgByName(const char* name) {
    const TarnLong taken = owner.m_host.tn_ocuva().TarnOcuvaSendMsgByName(name);
    if (owner.m_listener.messageSent) {
        owner.m_listener.messageSent(taken != 0);
    }
    return taken;
}

} // namespace ocuva
