#pragma once
// Ties picture points to stage positions by two or three points that the operator picked.

#include "base/StagePosition.h"
#include "base/Types.h"
#include "hostlink/Host.h"
#include "pictures/CalibrationView.h"

#include <array>
#include <optional>

namespace ocuva {

/// One point picked on the picture and on the stage.
struct CalibrationPoint {
    Integer XI = 0; ///< picture coordinate: 1/10000 of the image's width from its left edge
    Integer YI = 0; ///< 1/10000 of the image's height from its top edge
    /// The stage position, in stage units, that brings the point to the image's centre.
    ///@{
    Long XS = 0;
    Long YS = 0;
    Long ZS = 0;
    ///@}

    bool operator==(const CalibrationPoint&) const = default;
};

/// The points of one calibration.
struct CalibrationPoints {
    bool twoPoints = false; ///< only points 1 and 2 count
    /// In the order of the dialog; an unused third one is all zeros.
    std::array<CalibrationPoint, 3> points;

    /// How many of them count.
    std::size_t count() const { return twoPoints ? 2 : 3; }
    bool operator==(const CalibrationPoints&) const = default;
};

/// A map per axis from picture coordinates to stage units: stage = scale * picture + offset.
struct PicturePlan {
    /// Scale in stage units per picture unit, offset in stage units.
    ///@{
    double scaleX = 0.0;
    double offsetX = 0.0;
    double scaleY = 0.0;
    double offsetY = 0.0;
    ///@}
};

/// The plane of the stage's Z: Z = a * X + b * Y + c.
struct StagePlan {
    /// All 0 if there is no plane.
    ///@{
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    ///@}

    bool operator==(const StagePlan&) const = default;
};

/// On each axis, scale and offset come from the pair of points whose image coordinates differ most (of
/// equal ones the first of 1-2, 1-3, 2-3). Throws ArithmeticError if an image difference exceeds 16 bits
/// or a stage difference 32 bits, or if all points in use have the same coordinate on an axis.
PicturePlan picturePlanThrough(const CalibrationPoints& points);

/// Points, and the plans computed from them. After a change of the points the plans stay until they are
/// computed again.
class Calibration {
public:
    /// Without points; all plans are 0. The library outlives it.
    explicit Calibration(TnLibProxy& libProxy)
        : m_libProxy(libProxy) {}

    /// The input of the next computation.
    CalibrationPoints points;

    /// The view on which the points were picked, if it is known.
    std::optional<CalibrationView> view;

    /// Whether there are points at all: all zeros is what a program that was never calibrated has.
    bool isMade() const { return points.points != CalibrationPoints{}.points; }

    /// The plan through the points. Throws as picturePlanThrough does; the plan stays as it was then.
    void ComputePicturePlan();

    /// Lets the host compute the plane through the stage points. With two points the plane is level across
    /// their line. If the host finds no plane, it is the flat one at Z 0.
    void ComputeStagePlan();

    /// Stage position of a picture point; Z is taken on the plane at the rounded X and Y. Throws
    /// ArithmeticError when a result leaves 32 bits.
    StagePosition ComputeStagePosition(Single XPic, Single YPic) const;

    /// The same for a picture that was taken dx, dy stage units away: X and Y are shifted, and Z is taken
    /// on the plane there. Throws ArithmeticError if a result exceeds 32 bits.
    StagePosition movedPosition(Single XPic, Single YPic, std::int64_t dx, std::int64_t dy) const;

    /// Takes points, view and plans of another calibration, all or, when computing them failed before, none.
    void assign(const Calibration& other) {
        points = other.points;
        view = other.view;
        m_picturePlan = other.m_picturePlan;
        m_stagePlan = other.m_stagePlan;
    }

    /// As computed last.
    ///@{
    const PicturePlan& picturePlan() const { return m_picturePlan; }
    const StagePlan& stagePlan() const { return m_stagePlan; }
    ///@}

private:
    Long heightAt(Long XSt, Long YSt) const;

    TnLibProxy& m_libProxy;
    PicturePlan m_picturePlan;
    StagePlan m_stagePlan;
};

} // namespace ocuva
