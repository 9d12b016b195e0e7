#pragma once
// What a calibration says about the set-up: how large the field is, and which way the stage's axes run.

#include "pictures/Calibration.h"

#include <optional>

namespace ocuva {

/// In the terms of the set-up.
struct CalibrationField {
    /// Width and height of the whole field in stage units at magnification 100.
    ///@{
    Single x100 = 0.0F;
    Single y100 = 0.0F;
    ///@}
    /// Whether a click right of (below) the centre moves the axis up.
    ///@{
    bool MoveXInverse = false;
    bool MoveYInverse = false;
    ///@}

    bool operator==(const CalibrationField&) const = default;
};

/// Of points that were picked at that magnification. Nothing where they give no scale for both axes.
std::optional<CalibrationField> fieldOf(const CalibrationPoints& points, Long magnification);

} // namespace ocuva
