#pragma once
// The faults of a worn stage.

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

    /// The stalling axis, 0 for none: stallAfter units from the start of a move it stops, reports motion
    /// for another stallTimeoutMs, and stays short of its target.
    ocuva::Long stallAxis = 0;
    double stallAfter = 0.0;        ///< stage units
    double stallTimeoutMs = 3000.0; ///< simulated milliseconds

    /// The second controller: once per period it drives X to an absolute target this far above or below
    /// its last target, alternately. 0 for none.
    double otherControllerAmplitude = 0.0;
    double otherControllerPeriodMs = 10000.0; ///< above 0
};

} // namespace hosts::simulated
