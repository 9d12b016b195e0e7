#include "hosts/simulated/world/CameraPicture.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

constexpr double kFarthest = 1e9;
constexpr double kFinestPixel = 1e-3;
constexpr double kCoarsestPixel = 1e5;

double held(double value) { return std::isfinite(value) ? std::clamp(value, -kFarthest, kFarthest) : 0.0; }

double pixelSize(double field, double usual, int pixels) {
    const double span = std::isfinite(field) && field > 0.0 ? field : usual;
    return std::clamp(span / pixels, kFinestPixel, kCoarsestPixel);
}

View viewOf(const Exposure& exposure) {
    const Exposure usual;
    View view;
    view.width = exposure.mode.width;
    view.height = exposure.mode.height;
    view.colour = exposure.mode.colour;
    view.x = held(exposure.stageX);
    view.y = held(exposure.stageY);
    view.z = held(exposure.stageZ);
    view.pixelX = pixelSize(exposure.fieldWidth, usual.fieldWidth, view.width);
    view.pixelY = pixelSize(exposure.fieldHeight, usual.fieldHeight, view.height);
    return view;
}

} // namespace

CameraPicture::CameraPicture(const World& world, const SurfaceShape& surface, const OpticsSettings& optics)
    : m_lens(world, surface, optics.depthOfField)
    , m_sensor(optics.noise) {}

void CameraPicture::setControls(const PictureControls& controls) { m_sensor.setControls(controls); }

void CameraPicture::render(const Exposure& exposure, std::uint32_t* pixels) {
    const CameraMode& mode = exposure.mode;
    if (mode.width < 1 || mode.height < 1 || mode.width > Sensor::kMaxWidth ||
        mode.height > Sensor::kMaxWidth) {
        return;
    }
    const View view = viewOf(exposure);
    if (m_image == nullptr || !(view == m_view)) {
        m_image = &m_lens.form(view);
        m_view = view;
    }
    m_sensor.expose(*m_image, exposure.frameNumber, pixels);
}

} // namespace hosts::simulated
