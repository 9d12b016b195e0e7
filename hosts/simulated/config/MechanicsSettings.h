#pragma once
// How worn the instrument is: section [Mechanics] of "simulator.ini".

#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/mechanics/StageWear.h"

namespace hosts::simulated {

/// The values of section [Mechanics].
struct MechanicsSettings {
    /// Play, vibration, drift, stall and the second controller.
    StageWear wear;
    /// The true field is (1 + this) times the field that the settings give: width and height. A fraction,
    /// -0.2 to 0.2.
    ///@{
    double scaleErrorX = 0.0;
    double scaleErrorY = 0.0;
    ///@}
    /// Factor on both tilts of the sample, -100 to 100.
    double tiltFactor = 1.0;
};

/// The values of the grade, overridden by single keys. An unknown grade is "ideal", with a log line.
MechanicsSettings readMechanics(SimConfig& config, Stores& stores, HostLog& log);

} // namespace hosts::simulated
