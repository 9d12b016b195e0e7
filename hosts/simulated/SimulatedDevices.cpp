#include "hosts/simulated/SimulatedDevices.h"

#include "hosts/simulated/config/SeedFiles.h"

#include <utility>

namespace hosts::simulated {

namespace {

std::shared_ptr<Clock> clockOr(std::shared_ptr<Clock> given, SimConfig& config) {
    return given ? std::move(given) : std::make_shared<RealClock>(config.getDouble(settings::timeFactor));
}

SurfaceShape tilted(SurfaceShape surface, double factor) {
    surface.tiltX *= factor;
    surface.tiltY *= factor;
    return surface;
}

StageSettings stageSettings(SimConfig& config) {
    using namespace settings;
    const auto axis = [&config](const SimSetting& lower, const SimSetting& upper, const SimSetting& speed,
                                const SimSetting& acceleration, const SimSetting& start,
                                const SimSetting& backlash) {
        return AxisSettings{config.getLong(lower),          config.getLong(upper), config.getDouble(speed),
                            config.getDouble(acceleration), config.getLong(start), config.getLong(backlash)};
    };
    return {axis(xMin, xMax, speedX, accelerationX, startX, backlashX),
            axis(yMin, yMax, speedY, accelerationY, startY, backlashY),
            axis(zMin, zMax, speedZ, accelerationZ, startZ, backlashZ)};
}

/// The true field of the camera, which can differ from the settings.
FieldSize trueField(HostBasis& basis, const MechanicsSettings& mechanics) {
    const FieldSize believed = basis.field.seen();
    return {believed.width * (1.0 + mechanics.scaleErrorX), believed.height * (1.0 + mechanics.scaleErrorY)};
}

} // namespace

SimulatedDevices::SimulatedDevices(HostBasis& basis, std::shared_ptr<Clock> hostClock)
    : config(simulatorConfig(basis.folder), basis.log)
    , faults(basis.stores, basis.log)
    , mechanics(readMechanics(config, basis.stores, basis.log))
    , clock(clockOr(std::move(hostClock), config))
    , surface(tilted(config.surface(), mechanics.tiltFactor))
    , stage(*clock, stageSettings(config), mechanics.wear, [this] { return faults.devices(); })
    , world(config, surface, basis.folder.standards(), basis.log)
    , camera({*clock, stage, world, [this, &basis] { return trueField(basis, mechanics); },
              [this] { return faults.devices(); }, config.getDouble(settings::noise)})
    , truth(stage, surface, [this, &basis] { return trueField(basis, mechanics); }) {
    constexpr std::uintmax_t mebibyte = 1024u * 1024u;
    basis.log.limitTo({mebibyte * static_cast<std::uintmax_t>(config.getLong(settings::logSize))});
}

} // namespace hosts::simulated
