#include "hosts/common/HostParts.h"

#include <stdexcept>
#include <utility>
#include <variant>

namespace hosts {

using namespace simulated;

namespace {

constexpr const char* cameraTypeKey = "CameraType";

// Where the program keeps the references that a camera begins with, in hundredths, one key for each camera
// type.
constexpr const char* referencesSection = "tn_video\\meteor2";
constexpr TarnLong unchangedHundredths = -100;

DataFolder openFolder(const std::filesystem::path& path) {
    std::variant<DataFolder, std::string> opened =
        DataFolder::open(path.empty() ? DataFolder::locate() : path);
    if (const std::string* const problem = std::get_if<std::string>(&opened)) {
        throw std::runtime_error(*problem);
    }
    return std::get<DataFolder>(std::move(opened));
}

std::shared_ptr<Clock> clockOr(std::shared_ptr<Clock> given, SimConfig& config) {
    return given ? std::move(given) : std::make_shared<RealClock>(config.getDouble(settings::timeFactor));
}

SurfaceShape tilted(SurfaceShape surface, double factor) {
    surface.tiltX *= factor;
    surface.tiltY *= factor;
    return surface;
}

} // namespace

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

HostParts::HostParts(SimulatedHostOptions hostOptions)
    : options(std::move(hostOptions))
    , folder(openFolder(options.dataFolder))
    , log(folder.logFile())
    , stores(folder.path(), log)
    , config(folder.simulatorConfig(), log)
    , faults(stores, log)
    , mechanics(readMechanics(config, stores, log))
    , clock(clockOr(options.clock, config))
    , surface(tilted(config.surface(), mechanics.tiltFactor))
    , database(folder.standards(), log)
    , field(stores, log)
    , stage(*clock, stageSettings(config), mechanics.wear, [this] { return faults.devices(); })
    , camera(makeCamera(config, surface, folder.standards(), log))
    , board({*clock, stage, *camera, options.windows, [this] { return trueField(); },
             [this] { return faults.devices(); }, config.getDouble(settings::noise)}) {
    constexpr std::uintmax_t mebibyte = 1024u * 1024u;
    log.limitTo({mebibyte * static_cast<std::uintmax_t>(config.getLong(settings::logSize))});
    const TarnLong kept = stores.getInt(FieldOfView::section, cameraTypeKey, 0, FieldOfView::store);
    if (kept != 0 && !board.setCameraType(kept)) {
        log.line("[tn_video] CameraType=" + std::to_string(kept) + " in " + FieldOfView::store +
                 " is no camera type; none is chosen");
    }
    applyDefaultReferences();
}

void HostParts::applyDefaultReferences() {
    const std::string suffix = std::to_string(board.cameraType());
    const auto kept = [this, &suffix](const char* key) {
        constexpr double scale = 100.0;
        return stores.getInt(referencesSection, key + suffix, unchangedHundredths, FieldOfView::store) /
               scale;
    };
    board.setReferences(1, kept("DefaultContrast100_"), kept("DefaultBrightness100_"));
    board.setReferences(2, kept("DefaultHue100_"), kept("DefaultSaturation100_"));
}

MessageBus& HostParts::bus() {
    if (!m_bus) {
        m_bus =
            std::make_unique<MessageBus>(folder.path(), [this](const std::string& text) { log.line(text); });
    }
    return *m_bus;
}

FieldSize HostParts::trueField() {
    const FieldSize believed = field.seen();
    return {believed.width * (1.0 + mechanics.scaleErrorX), believed.height * (1.0 + mechanics.scaleErrorY)};
}

bool HostParts::chooseCamera(TarnLong cameraType) {
    return board.setCameraType(cameraType) &&
           stores.setString(FieldOfView::section, cameraTypeKey, std::to_string(cameraType),
                            FieldOfView::store);
}

} // namespace hosts
