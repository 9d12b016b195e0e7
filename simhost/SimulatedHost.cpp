#include "simhost/SimulatedHost.h"

#include "simhost/HostLibraries.h"
#include "simhost/HostParts.h"

#include <utility>

namespace simhost {

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
};

SimulatedHost::SimulatedHost(SimulatedHostOptions options)
    : m_libraries(std::make_unique<Libraries>(std::move(options))) {}

SimulatedHost::~SimulatedHost() = default;

ocuva::TnReg& SimulatedHost::tn_reg() { return m_libraries->settings; }
ocuva::TnLog& SimulatedHost::tn_log() { return m_libraries->log; }
ocuva::TnLogKeys& SimulatedHost::Tn_log() { return m_libraries->log; }
ocuva::TnOcuva& SimulatedHost::tn_ocuva() { return m_libraries->messages; }
ocuva::TnLibProxy& SimulatedHost::tn_lib_proxy() { return m_libraries->general; }
ocuva::TnMicroProxy& SimulatedHost::tn_micro_proxy() { return m_libraries->microscope; }
ocuva::TnVideo& SimulatedHost::tn_video() { return m_libraries->video; }
ocuva::TnVduti& SimulatedHost::tn_vduti() { return m_libraries->video; }

std::unique_ptr<ocuva::Notifier> SimulatedHost::createNotifier() {
    HostParts& parts = m_libraries->parts;
    return parts.options.createNotifier ? parts.options.createNotifier() : parts.bus().createNotifier();
}

const SurfaceShape& SimulatedHost::trueSurface() const { return m_libraries->parts.surface; }
FieldSize SimulatedHost::trueField() { return m_libraries->parts.field.seen(); }
StageMechanics& SimulatedHost::stage() { return m_libraries->parts.stage; }
VideoBoard& SimulatedHost::board() { return m_libraries->parts.board; }
Clock& SimulatedHost::clock() { return *m_libraries->parts.clock; }
const std::filesystem::path& SimulatedHost::dataFolder() const { return m_libraries->parts.folder.path(); }

} // namespace simhost
