#pragma once
// What a stage that is not new does besides what it is told.

#include "base/Types.h"

#include <array>

namespace hosts::simulated {

/// One axis.
struct AxisWear {
    double play = 0.0;           ///< stage units, 0 or more; a move up takes it up
    double driftPerMinute = 0.0; ///< stage units
};

/// The defaults are a stage that is new. Units are stage units and milliseconds of simulated time.
struct StageWear {
    std::array<AxisWear, 3> axes{}; ///< X, Y, Z

    /// After a move the sample swings about its place, by this much at most and as good as still after
    /// settlingMs.
    double settlingAmplitude = 0.0;
    double settlingMs = 300.0; ///< above 0

    /// The axis that stalls, 0 for none: stallAfter units from where a move began it stops, reports that it
    /// moves until stallTimeoutMs later, and then stands short of its target.
    ocuva::Long stallAxis = 0;
    double stallAfter = 0.0;        ///< stage units
    double stallTimeoutMs = 3000.0; ///< simulated milliseconds

    /// Something else that sends X, once each period, to an absolute target so far above or below where it
    /// was bound for, in turn. 0 for nothing.
    double otherControllerAmplitude = 0.0;
    double otherControllerPeriodMs = 10000.0; ///< above 0
};

} // namespace hosts::simulated
