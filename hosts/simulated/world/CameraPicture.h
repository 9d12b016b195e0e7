#pragma once
// The simulated camera: exposures of the simulated world.

#include "hosts/common/picture/PictureControls.h"
#include "hosts/simulated/world/Exposure.h"
#include "hosts/simulated/world/Lens.h"
#include "hosts/simulated/world/Sensor.h"
#include "hosts/simulated/world/SurfaceShape.h"
#include "hosts/simulated/world/World.h"

#include <cstdint>

namespace hosts::simulated {

struct OpticsSettings {
    double depthOfField = 2.0; ///< stage units of Z over which the picture stays sharp
    double noise = 2.0;        ///< grey levels, root mean square
};

/// Renders pictures. A picture is a pure function of the exposure, the world, the surface, the optics and
/// the controls; while position and focus do not change, only the noise is recomputed. One thread at a
/// time; the world must outlive it.
class CameraPicture {
public:
    CameraPicture(const World& world, const SurfaceShape& surface, const OpticsSettings& optics = {});

    /// Takes effect with the next picture.
    void setControls(const PictureControls& controls);

    /// Fills mode.width * mode.height pixels 0xffRRGGBB, row by row from the top left. Positions are
    /// limited to +-1e9, and fields to a thousandth of a unit to 1e5 units per pixel. An invalid number
    /// counts as 0, an invalid or non-positive field as 640 x 480 units. A mode without pixels, or larger
    /// than 4096 in one direction, leaves `pixels` unchanged.
    void render(const Exposure& exposure, std::uint32_t* pixels);

private:
    Lens m_lens;
    Sensor m_sensor;
    View m_view;
    const SensorImage* m_image = nullptr; // of m_view, in the lens
};

} // namespace hosts::simulated
