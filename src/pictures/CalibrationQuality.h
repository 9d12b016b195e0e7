#pragma once
// How good a calibration is, told before it is accepted.

#include "pictures/Calibration.h"

#include <array>
#include <optional>
#include <vector>

namespace ocuva {

/// What is wrong with the points, or may be.
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
    Kind kind = Kind::OutOfRange; ///< what is remarked
    /// Point numbers from 0, where the kind names two points.
    ///@{
    std::size_t first = 0;
    std::size_t second = 0;
    ///@}

    bool operator==(const CalibrationRemark&) const = default;
};

/// Whether the stage points of the remark span no plane: every Z that they give is 0.
bool leavesNoPlane(const CalibrationRemark& remark);

/// Where the map of each axis by itself puts a picked point, less where it was found on the stage.
struct CalibrationResidual {
    /// Stage units.
    ///@{
    double x = 0.0;
    double y = 0.0;
    ///@}

    /// In the plane of the two axes, stage units.
    double length() const;
};

/// What the dialog tells about a calibration.
struct CalibrationQuality {
    /// Stage units across the whole picture, with the sign of the direction. Nothing where no plan can be
    /// computed.
    ///@{
    std::optional<double> unitsPerWidth;
    std::optional<double> unitsPerHeight;
    ///@}

    /// From the one map of three points that takes both axes together: the angle on the stage between the
    /// picture's two axes, 0 to 180 degrees, and by how much the picture is turned against the stage, -90 to
    /// 90 degrees. Nothing with two points or when they lie on a line.
    ///@{
    std::optional<double> axesAngleDegrees;
    std::optional<double> turnDegrees;
    ///@}

    /// Per point; with three points that have a plan only.
    std::optional<std::array<CalibrationResidual, 3>> residuals;
    /// The point with the longest residual; nothing where none is as long as half a stage unit.
    std::optional<std::size_t> worst;

    std::vector<CalibrationRemark> remarks; ///< the gravest first

    /// Whether a plan can be computed at all.
    bool isComputable() const { return unitsPerWidth.has_value(); }
};

/// A triangle whose height is less than this part of its longest side is nearly a line.
inline constexpr double nearLineRatio = 0.05;

/// Judges the points in use; what cannot be computed is a remark.
CalibrationQuality calibrationQuality(const CalibrationPoints& points);

} // namespace ocuva
