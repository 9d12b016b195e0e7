#pragma once
// How worn the instrument is: section [Mechanics] of "simulator.ini".

#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/mechanics/StageWear.h"

namespace hosts::simulated {

struct MechanicsSettings {
    StageWear wear;
    double scaleErrorX = 0.0; ///< the true field is 1 + this times what the settings say
    double scaleErrorY = 0.0;
    double tiltFactor = 1.0;
};

/// The grade's values where no key of its own overrides them. An unknown grade is "ideal", with a log line.
MechanicsSettings readMechanics(SimConfig& config, Stores& stores, HostLog& log);

} // namespace hosts::simulated
