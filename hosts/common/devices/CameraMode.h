#pragma once
// Picture formats of cameras.

#include "base/Types.h"

namespace hosts {

/// Picture format of a camera.
struct CameraMode {
    int width = 0;  ///< pixels
    int height = 0; ///< pixels
    double framesPerSecond = 0.0;
    bool colour = false;
};

/// The format of a camera type. Type 1: European black and white, 2: US/Japanese colour, 3: European colour,
/// 4: US/Japanese black and white. Any other number (0: none chosen) gives type 3.
CameraMode cameraMode(ocuva::Long cameraType);

} // namespace hosts
