#include "hosts/common/devices/CameraMode.h"

namespace hosts {

CameraMode cameraMode(ocuva::Long cameraType) {
    // The two television standards of such cameras in square pixels: 625 lines at 25, 525 lines at 30
    // pictures a second.
    constexpr CameraMode europeanGrey{768, 576, 25.0, false};
    constexpr CameraMode europeanColour{768, 576, 25.0, true};
    constexpr CameraMode americanColour{640, 480, 30.0, true};
    constexpr CameraMode americanGrey{640, 480, 30.0, false};
    switch (cameraType) {
    case 1:
        return europeanGrey;
    case 2:
        return americanColour;
    case 4:
        return americanGrey;
    default:
        return europeanColour;
    }
}

} // namespace hosts
