#include "hosts/common/DeviceHost.h"

#include "hosts/common/HostLibraries.h"
#include "hosts/common/faults/FaultGate.h"

#include <utility>

namespace hosts {

struct DeviceHost::Libraries {
    Libraries(std::unique_ptr<HostBasis> basis, HostDevices devices)
        : parts(std::move(basis), std::move(devices)) {}
    HostParts parts;
    SettingsLibrary settings{parts};
    LogLibrary log{parts};
    MessageLibrary messages{parts};
    GeneralLibrary general{parts};
    MicroscopeLibrary microscope{parts};
    VideoLibrary video{parts};

    FaultGate gate{parts.devices.faults, *parts.devices.clock, parts.log};
    ocuva::Interposed<ocuva::TnReg, FaultGate> tn_reg{gate, settings};
    ocuva::Interposed<ocuva::TnLog, FaultGate> tn_log{gate, log};
    ocuva::Interposed<ocuva::TnLogKeys, FaultGate> Tn_log{gate, log};
    ocuva::Interposed<ocuva::TnOcuva, FaultGate> tn_ocuva{gate, messages};
    ocuva::Interposed<ocuva::TnLibProxy, FaultGate> tn_lib_proxy{gate, general};
    ocuva::Interposed<ocuva::TnMicroProxy, FaultGate> tn_micro_proxy{gate, microscope};
    ocuva::Interposed<ocuva::TnVideo, FaultGate> tn_video{gate, video};
    ocuva::Interposed<ocuva::TnVduti, FaultGate> tn_vduti{gate, video};
};

DeviceHost::DeviceHost(std::unique_ptr<HostBasis> basis, HostDevices devices)
    : m_libraries(std::make_unique<Libraries>(std::move(basis), std::move(devices))) {}

DeviceHost::~DeviceHost() = default;

#define ACCESS_LIBRARY(Class, library, file, FUNCTIONS)                                                      \
    ocuva::Class& DeviceHost::library() { return m_libraries->library; }
TARN_LIBRARIES(ACCESS_LIBRARY)
#undef ACCESS_LIBRARY

std::unique_ptr<ocuva::Notifier> DeviceHost::createNotifier() {
    HostParts& parts = m_libraries->parts;
    return parts.options.createNotifier ? parts.options.createNotifier() : parts.bus().createNotifier();
}

VideoBoard& DeviceHost::board() { return m_libraries->parts.board; }
Clock& DeviceHost::clock() { return *m_libraries->parts.devices.clock; }
const std::filesystem::path& DeviceHost::dataFolder() const { return m_libraries->parts.folder.path(); }

} // namespace hosts
