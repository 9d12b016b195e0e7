#pragma once
// How worn the instrument is: section [Mechanics] of "simulator.ini".

#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/mechanics/StageWear.h"

namespace hosts::simulated {

/// The values of section [Mechanics].
struct MechanicsSettings {
    StageWear wear;           ///< play, vibration, drift, stall and the second controller
    double scaleErrorX = 0.0; ///< the true field is (1 + this) times that of the settings
    double scaleErrorY = 0.0; ///< the same for its height
    double tiltFactor = 1.0;  ///< factor on both tilts of the sample
};

/// The values of the grade, overridden by single keys. An unknown grade is "ideal", with a log line.
MechanicsSettings readMechanics(SimConfig& config, Stores& stores, HostLog& log);

} // namespace hosts::simulated
