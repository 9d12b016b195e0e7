#include "hosts/simulated/camera/WorldCamera.h"

#include "hosts/common/services/Standards.h"

#include <vector>

namespace hosts::simulated {

namespace {

// The host numbers its standards in the order of their files, as its list shows them.
World worldOf(SimConfig& config, const std::filesystem::path& standards, HostLog& log) {
    std::vector<Mount> mounts;
    for (const StandardMount& standard : readStandards(standards, log)) {
        mounts.push_back({static_cast<double>(standard.position.x), static_cast<double>(standard.position.y),
                          static_cast<int>(mounts.size()) + 1, standard.name});
    }
    return {static_cast<std::uint32_t>(config.getLong(settings::seed)), std::move(mounts)};
}

} // namespace

WorldCamera::WorldCamera(SimConfig& config, const SurfaceShape& surface,
                         const std::filesystem::path& standards, HostLog& log)
    : m_world(worldOf(config, standards, log))
    , m_picture(m_world, surface,
                {config.getDouble(settings::depthOfField), config.getDouble(settings::noise)}) {}

void WorldCamera::render(const Exposure& exposure, const PictureControls& controls, std::uint32_t* pixels) {
    m_picture.setControls(controls);
    m_picture.render(exposure, pixels);
}

} // namespace hosts::simulated
