#pragma once
// The functions of the host's libraries. tarn_abi.h defines what each function does. None throws, and each
// checks its pointers.

#include "hostlink/Host.h"
#include "hosts/common/HostParts.h"

namespace hosts {

class SettingsLibrary final : public ocuva::TnReg {
public:
    explicit SettingsLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_REG(TARN_OVERRIDE)

private:
    HostParts& m_parts;
};

/// The host has this library twice, under names that differ in one letter's case.
class LogLibrary final : public ocuva::TnLog, public ocuva::TnLogKeys {
public:
    explicit LogLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_LOG(TARN_OVERRIDE)
    TN_LOG_KEYS(TARN_OVERRIDE)

private:
    HostParts& m_parts;
};

class MessageLibrary final : public ocuva::TnOcuva {
public:
    explicit MessageLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_OCUVA(TARN_OVERRIDE)

private:
    HostParts& m_parts;
};

class GeneralLibrary final : public ocuva::TnLibProxy {
public:
    explicit GeneralLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_LIB_PROXY(TARN_OVERRIDE)

private:
    HostParts& m_parts;
};

class MicroscopeLibrary final : public ocuva::TnMicroProxy {
public:
    explicit MicroscopeLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_MICRO_PROXY(TARN_OVERRIDE)

private:
    HostParts& m_parts;
};

class VideoLibrary final : public ocuva::TnVideo, public ocuva::TnVduti {
public:
    explicit VideoLibrary(HostParts& parts)
        : m_parts(parts) {}
    TN_VIDEO(TARN_OVERRIDE)
    TN_VDUTI(TARN_OVERRIDE)

private:
    bool save(const TarnSaveRequest& request);
    HostParts& m_parts;
};

} // namespace hosts
