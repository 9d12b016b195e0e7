#pragma once
// Pictures of the simulated world, with its standards on the holder.

#include "hosts/common/services/HostLog.h"
#include "hosts/simulated/camera/PictureSource.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/world/CameraPicture.h"

#include <filesystem>

namespace hosts::simulated {

class WorldCamera final : public PictureSource {
public:
    /// The world, the optics and the noise are those of the configuration, the standards those of that
    /// folder. The surface is read once.
    WorldCamera(SimConfig& config, const SurfaceShape& surface, const std::filesystem::path& standards,
                HostLog& log);

    void render(const Exposure& exposure, const PictureControls& controls, std::uint32_t* pixels) override;

private:
    World m_world;
    CameraPicture m_picture;
};

} // namespace hosts::simulated
