#include "hosts/simulated/SimulatedHost.h"

#include "hosts/common/HostLibraries.h"
#include "hosts/common/HostParts.h"
#include "hosts/common/faults/FaultyHost.h"

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
    FaultySettings faultySettings{gate, settings};
    FaultyLog faultyLog{gate, log};
    FaultyLogKeys faultyLogKeys{gate, log};
    FaultyMessages faultyMessages{gate, messages};
    FaultyGeneral faultyGeneral{gate, general};
    FaultyMicroscope faultyMicroscope{gate, microscope};
    FaultyVideo faultyVideo{gate, video};
    FaultyStatistics faultyStatistics{gate, video};
    Truth truth{parts.stage, parts.surface, [this] { return parts.trueField(); }};
};

SimulatedHost::SimulatedHost(SimulatedHostOptions options)
    : m_libraries(std::make_unique<Libraries>(std::move(options))) {}

SimulatedHost::~SimulatedHost() = default;

ocuva::TnReg& SimulatedHost::tn_reg() { return m_libraries->faultySettings; }
ocuva::TnLog& SimulatedHost::tn_log() { return m_libraries->faultyLog; }
ocuva::TnLogKeys& SimulatedHost::Tn_log() { return m_libraries->faultyLogKeys; }
ocuva::TnOcuva& SimulatedHost::tn_ocuva() { return m_libraries->faultyMessages; }
ocuva::TnLibProxy& SimulatedHost::tn_lib_proxy() { return m_libraries->faultyGeneral; }
ocuva::TnMicroProxy& SimulatedHost::tn_micro_proxy() { return m_libraries->faultyMicroscope; }
ocuva::TnVideo& SimulatedHost::tn_video() { return m_libraries->faultyVideo; }
ocuva::TnVduti& SimulatedHost::tn_vduti() { return m_libraries->faultyStatistics; }

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
