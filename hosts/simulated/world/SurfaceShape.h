#pragma once
// The true shape of the simulated sample's surface. Stage positions of standards, the picture's sharpness and
// the tests all ask this one formula.

namespace hosts::simulated {

/// A tilted, slightly bowed plane: the stage Z at which the place (x, y) is in focus.
struct SurfaceShape {
    double height = 0.0;    ///< stage units, at x = y = 0
    double tiltX = 0.0;     ///< units of Z per unit of X
    double tiltY = 0.0;     ///< units of Z per unit of Y
    double curvature = 0.0; ///< units of Z per square unit of distance from x = y = 0

    /// Stage units of Z; x and y are true stage positions.
    double at(double x, double y) const {
        return height + tiltX * x + tiltY * y + curvature * (x * x + y * y);
    }
};

} // namespace hosts::simulated
