#include "hosts/simulated/SimulatedHost.h"

#include "hosts/common/HostLibraries.h"
#include "hosts/common/HostParts.h"
#include "hosts/common/faults/FaultGate.h"

#include <utility>

namespace hosts::simulated {

struct SimulatedHost::Libraries {
    explicit Libraries(SimulatedHostOptions options)
        : parts(std::move(options)) {}
    HostParts parts;
    SettingsLibrary settings{parts};
    LogLibrary log{parts};
    MessageLibrary messages{parts};
    GeneralLibrary general{parts};
    MicroscopeLibrary microscope{parts};
    VideoLibrary video{parts};

    FaultGate gate{parts.faults, *parts.clock, parts.log};
    ocuva::Interposed<ocuva::TnReg, FaultGate> tn_reg{gate, settings};
    ocuva::Interposed<ocuva::TnLog, FaultGate> tn_log{gate, log};
    ocuva::Interposed<ocuva::TnLogKeys, FaultGate> Tn_log{gate, log};
    ocuva::Interposed<ocuva::TnOcuva, FaultGate> tn_ocuva{gate, messages};
    ocuva::Interposed<ocuva::TnLibProxy, FaultGate> tn_lib_proxy{gate, general};
    ocuva::Interposed<ocuva::TnMicroProxy, FaultGate> tn_micro_proxy{gate, microscope};
    ocuva::Interposed<ocuva::TnVideo, FaultGate> tn_video{gate, video};
    ocuva::Interposed<ocuva::TnVduti, FaultGate> tn_vduti{gate, video};
    Truth truth{parts.stage, parts.surface, [this] { return parts.trueField(); }};
};

SimulatedHost::SimulatedHost(SimulatedHostOptions options)
    : m_libraries(std::make_unique<Libraries>(std::move(options))) {}

SimulatedHost::~SimulatedHost() = default;

#define ACCESS_LIBRARY(Class, library, file, FUNCTIONS)                                                      \
    ocuva::Class& SimulatedHost::library() { return m_libraries->library; }
TARN_LIBRARIES(ACCESS_LIBRARY)
#undef ACCESS_LIBRARY

std::unique_ptr<ocuva::Notifier> SimulatedHost::createNotifier() {
    HostParts& parts = m_libraries->parts;
    return parts.options.createNotifier ? parts.options.createNotifier() : parts.bus().createNotifier();
}

const Truth& SimulatedHost::truth() const { return m_libraries->truth; }
const SurfaceShape& SimulatedHost::trueSurface() const { return m_libraries->parts.surface; }
FieldSize SimulatedHost::trueField() { return m_libraries->truth.field(); }
StageMechanics& SimulatedHost::stage() { return m_libraries->parts.stage; }
VideoBoard& SimulatedHost::board() { return m_libraries->parts.board; }
Clock& SimulatedHost::clock() { return *m_libraries->parts.clock; }
const std::filesystem::path& SimulatedHost::dataFolder() const { return m_libraries->parts.folder.path(); }

} // namespace hosts::simulated
