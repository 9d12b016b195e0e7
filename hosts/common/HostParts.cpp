#include "hosts/common/HostParts.h"

#include <utility>

namespace hosts {

namespace {

constexpr const char* cameraTypeKey = "CameraType";

// The section with the references that a camera starts with, in hundredths, one key for each camera type.
constexpr const char* referencesSection = "tn_video\\meteor2";
constexpr TarnLong unchangedHundredths = -100;

} // namespace

HostParts::HostParts(std::unique_ptr<HostBasis> hostBasis, HostDevices hostDevices)
    : basis(std::move(hostBasis))
    , devices(std::move(hostDevices))
    , board(*devices.camera, basis->options.windows)
    , options(basis->options)
    , folder(basis->folder)
    , log(basis->log)
    , stores(basis->stores)
    , database(basis->database)
    , field(basis->field)
    , stage(*devices.stage) {
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

bool HostParts::chooseCamera(TarnLong cameraType) {
    return board.setCameraType(cameraType) &&
           stores.setString(FieldOfView::section, cameraTypeKey, std::to_string(cameraType),
                            FieldOfView::store);
}

} // namespace hosts
