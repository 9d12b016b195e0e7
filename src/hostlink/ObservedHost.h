#pragma once
// A host whose answers to what is kept and sent are looked at, whoever asked.

#include "hostlink/Host.h"

#include <functional>

namespace ocuva {

/// Hands every call on as it is. What two libraries answer is told: whether a setting was kept, and whether
/// somebody took a message.
class ObservedHost final : public Host {
public:
    /// Told right after the call, on its thread. Either may be empty.
    struct Listener {
        std::function<void()> settingNotKept;        ///< a setting was refused
        std::function<void(bool taken)> messageSent; ///< by name
    };

    /// The host outlives it.
    ObservedHost(Host& host, Listener listener);

    /// As the host's own.
    ///@{
    TnReg& tn_reg() override { return m_reg; }
    TnLog& tn_log() override { return m_host.tn_log(); }
    TnLogKeys& Tn_log() override { return m_host.Tn_log(); }
    TnOcuva& tn_ocuva() override { return m_ocuva; }
    TnLibProxy& tn_lib_proxy() override { return m_host.tn_lib_proxy(); }
    TnMicroProxy& tn_micro_proxy() override { return m_host.tn_micro_proxy(); }
    TnVideo& tn_video() override { return m_host.tn_video(); }
    TnVduti& tn_vduti() override { return m_host.tn_vduti(); }
    std::unique_ptr<Notifier> createNotifier() override { return m_host.createNotifier(); }
    ///@}

private:
    struct Reg final : TnReg {
        explicit Reg(ObservedHost& observed)
            : owner(observed) {}
        TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                    const char* store) override;
        TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                       const char* store) override;
        TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                       char* buffer, TarnLong bufferSize, const char* store) override;
        ObservedHost& owner;
    };
    struct Messages final : TnOcuva {
        explicit Messages(ObservedHost& observed)
            : owner(observed) {}
        TarnLong TarnOcuvaSendMsgByName(const char* name) override;
        ObservedHost& owner;
    };

    Host& m_host;
    Listener m_listener;
    Reg m_reg{*this};
    Messages m_ocuva{*this};
};

} // namespace ocuva
