#pragma once
// What the camera is told for one frame, and how its types differ.

#include <cstdint>

namespace hosts::simulated {

/// Picture format of a camera type.
struct CameraMode {
    int width = 0;  ///< pixels
    int height = 0; ///< pixels
    double framesPerSecond = 0.0;
    bool colour = false;
};

/// Type 1: European black and white, 2: US/Japanese colour, 3: European colour, 4: US/Japanese black and
/// white. Any other number (0: none chosen) gives type 3.
CameraMode cameraMode(int cameraType);

/// One exposure. A place of the world is named by the stage position that brings it under the image centre;
/// going right on the picture goes down in X, going down goes down in Y, because the stage carries the sample
/// under a fixed camera.
struct Exposure {
    CameraMode mode;
    double stageX = 0.0;           ///< stage units; fractions occur while the stage moves
    double stageY = 0.0;           ///< stage units
    double stageZ = 0.0;           ///< stage units; sharp where it equals the surface height
    double fieldWidth = 640.0;     ///< stage units across the whole picture, > 0
    double fieldHeight = 480.0;    ///< stage units
    std::uint64_t frameNumber = 0; ///< seeds the noise of this frame
};

} // namespace hosts::simulated
