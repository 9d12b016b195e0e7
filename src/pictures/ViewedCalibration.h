#pragma once
// A calibration, seen from the view that is on the monitor.

#include "pictures/Calibration.h"
#include "pictures/CalibrationView.h"

namespace ocuva {

/// Decides whether a calibration's positions hold for the view shown, and computes them. On the live image
/// they are always computed from the calibration; on a stored picture they are correct or there are none.
class ViewedCalibration {
public:
    /// The calibration outlives it.
    ViewedCalibration(const Calibration& calibration, CalibrationView shown);

    /// Nothing without a calibration, or if its view is unknown.
    const std::optional<ViewRelation>& relation() const { return m_relation; }

    /// Whether it was made elsewhere, or perhaps was: a description with this view would be another one's.
    bool isElsewhere() const;

    /// Whether points of the view have stage positions.
    bool givesPositions() const;

    /// The stage position of a point of the view; moved by the distance of the views on a stored picture.
    /// Throws ArithmeticError when a result leaves 32 bits.
    StagePosition position(Single XPic, Single YPic) const;

    /// As passed to the constructor.
    const CalibrationView& shown() const { return m_shown; }

private:
    const Calibration& m_calibration;
    CalibrationView m_shown;
    std::optional<ViewRelation> m_relation;
};

} // namespace ocuva
