#pragma once
// A host of ours: the functions of every library, over a stage and a camera.

#include "hostlink/Host.h"
#include "hosts/common/HostParts.h"

#include <filesystem>
#include <memory>

namespace hosts {

/// Used on one thread. Frames reach the windows from the thread on which the camera delivers them.
class DeviceHost : public ocuva::Host {
public:
    DeviceHost(std::unique_ptr<HostBasis> basis, HostDevices devices);
    ~DeviceHost() override;

    /// ocuva::Host.
    ///@{
    TARN_LIBRARIES(TARN_ACCESS)
    std::unique_ptr<ocuva::Notifier> createNotifier() override;
    ///@}

    /// The parts that the functions use.
    ///@{
    VideoBoard& board();
    Clock& clock();
    const std::filesystem::path& dataFolder() const;
    ///@}

private:
    struct Libraries;
    std::unique_ptr<Libraries> m_libraries;
};

} // namespace hosts
