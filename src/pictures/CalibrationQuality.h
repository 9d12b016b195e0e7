#pragma once
// Judges how good a calibration is, before it is accepted.

#include "pictures/Calibration.h"

#include <array>
#include <optional>
#include <vector>

namespace ocuva {

/// A problem, or a possible one, with the points.
struct CalibrationRemark {
    /// Up to NoYScale no plan can be computed.
    enum class Kind {
        // No plan can be computed.
        OutOfRange, ///< differences leave 16 bits on the picture or 32 on the stage
        NoXScale,   ///< all points have the same X on the picture
        NoYScale,
        // A plan can be computed, and is of little use.
        FlatX,         ///< the stage's X is the same all over the picture
        FlatY,         //
        SameOnPicture, ///< points first and second
        SameOnStage,   ///< likewise; no plane, every Z is 0
        LineOnPicture, ///< all three on one line
        LineOnStage,   ///< likewise; no plane, every Z is 0
        NearLineOnPicture,
        NearLineOnStage,
    };
    Kind kind = Kind::OutOfRange; ///< the problem
    /// Numbers of the points, from 0, if the kind concerns two points.
    ///@{
    std::size_t first = 0;
    std::size_t second = 0;
    ///@}

    bool operator==(const CalibrationRemark&) const = default;
};

/// Whether the stage points of the remark span no plane: every Z that they give is 0.
bool leavesNoPlane(const CalibrationRemark& remark);

/// The position of a picked point computed from the maps of the single axes, minus its measured position.
struct CalibrationResidual {
    /// Stage units.
    ///@{
    double x = 0.0;
    double y = 0.0;
    ///@}

    /// In the plane of the two axes, stage units.
    double length() const;
};

/// The dialog's information about a calibration.
struct CalibrationQuality {
    /// Stage units across the whole picture, with the sign of the direction. Nothing if no plan can be
    /// computed.
    ///@{
    std::optional<double> unitsPerWidth;
    std::optional<double> unitsPerHeight;
    ///@}

    /// From the common map of both axes through three points: the angle on the stage between the picture's
    /// axes, 0 to 180 degrees, and the rotation of the picture against the stage, -90 to 90 degrees.
    /// Nothing with two points or points on a line.
    ///@{
    std::optional<double> axesAngleDegrees;
    std::optional<double> turnDegrees;
    ///@}

    /// Per point; with three points that have a plan only.
    std::optional<std::array<CalibrationResidual, 3>> residuals;
    /// The point with the longest residual; nothing if all are shorter than half a stage unit.
    std::optional<std::size_t> worst;

    std::vector<CalibrationRemark> remarks; ///< the gravest first

    /// Whether a plan can be computed at all.
    bool isComputable() const { return unitsPerWidth.has_value(); }
};

/// A triangle counts as nearly a line if its height is less than this fraction of its longest side.
inline constexpr double nearLineRatio = 0.05;

/// Judges the points in use; what cannot be computed is a remark.
CalibrationQuality calibrationQuality(const CalibrationPoints& points);

} // namespace ocuva
