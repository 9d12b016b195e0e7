#pragma once
// The next step of a calibration, determined from the boxes.

#include "pictures/TypedPoints.h"

namespace ocuva {

/// The next step.
struct CalibrationStep {
    /// Correct: the box holds no number that fits. Unusable: no calibration can be computed from the points.
    enum class Kind { Correct, Pick, Read, Unusable, Accept };

    Kind kind = Kind::Pick;            ///< what to do
    std::size_t point = 0;             ///< of Correct, Pick and Read, from 0
    PointField field = PointField::XI; ///< of Correct

    bool operator==(const CalibrationStep&) const = default;
};

/// Wrong boxes come first, then points without a place on the picture, then those without one on the stage:
/// points are picked while the stage stays, and read afterwards.
CalibrationStep nextCalibrationStep(bool twoPoints, const std::array<PointTexts, 3>& texts);

} // namespace ocuva
