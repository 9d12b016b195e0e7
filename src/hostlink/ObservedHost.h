#pragma once
// A host whose answers to settings and messages are reported, wherever in the program they were asked for.

#include "hostlink/InterposedHost.h"

#include <functional>
#include <utility>

namespace ocuva {

/// Hands every call on as it is, and reports two results: that a setting was not kept, and whether a running
/// copy took a message.
class ObservedHost final : public InterposedHost<HandOn> {
public:
    /// Called right after the host's function, on its thread. Either may be empty.
    struct Listener {
        std::function<void()> settingNotKept;        ///< a setting was refused
        std::function<void(bool taken)> messageSent; ///< by name
    };

    /// The host outlives it.
    ObservedHost(Host& host, const Listener& listener)
        : InterposedHost(HandOn(), host)
        , m_reg(host.tn_reg(), listener.settingNotKept)
        , m_ocuva(host.tn_ocuva(), listener.messageSent) {}

    /// As the host's own.
    ///@{
    TnReg& tn_reg() override { return m_reg; }
    TnOcuva& tn_ocuva() override { return m_ocuva; }
    ///@}

private:
    struct Reg final : Interposed<TnReg, HandOn> {
        Reg(TnReg& inner, std::function<void()> listener)
            : Interposed(HandOn(), inner)
            , notKept(std::move(listener)) {}
        TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                       const char* store) override {
            const TarnLong kept = Interposed::TarnRegisterSetString(section, key, value, store);
            if (kept == 0 && notKept) {
                notKept();
            }
            return kept;
        }
        std::function<void()> notKept;
    };
    struct Messages final : Interposed<TnOcuva, HandOn> {
        Messages(TnOcuva& inner, std::function<void(bool taken)> listener)
            : Interposed(HandOn(), inner)
            , sent(std::move(listener)) {}
        TarnLong TarnOcuvaSendMsgByName(const char* name) override {
            const TarnLong taken = Interposed::TarnOcuvaSendMsgByName(name);
            if (sent) {
                sent(taken != 0);
            }
            return taken;
        }
        std::function<void(bool taken)> sent;
    };

    Reg m_reg;
    Messages m_ocuva;
};

} // namespace ocuva
