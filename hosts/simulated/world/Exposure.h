#pragma once
// What decides the content of one frame.

#include "hosts/common/devices/CameraMode.h"

#include <cstdint>

namespace hosts::simulated {

/// One exposure. A place of the world is named by the stage position that brings it under the image centre;
/// going right on the picture goes down in X, going down goes down in Y, because the stage carries the sample
/// under a fixed camera.
struct Exposure {
    CameraMode mode;
    double stageX = 0.0;           ///< stage units; fractions occur while the stage moves
    double stageY = 0.0;           ///< stage units
    double stageZ = 0.0;           ///< stage units; sharp if it equals the surface height
    double fieldWidth = 640.0;     ///< stage units across the whole picture, > 0
    double fieldHeight = 480.0;    ///< stage units
    std::uint64_t frameNumber = 0; ///< seeds the noise of this frame
};

} // namespace hosts::simulated
