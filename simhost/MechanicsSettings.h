#pragma once
// How worn the instrument is: section [Mechanics] of "simulator.ini".

#include "simhost/mechanics/StageWear.h"
#include "simhost/services/SimConfig.h"
#include "simhost/services/Stores.h"

namespace simhost {

struct MechanicsSettings {
    StageWear wear;
    double scaleErrorX = 0.0; ///< the true field is 1 + this times what the settings say
    double scaleErrorY = 0.0;
    double tiltFactor = 1.0;
};

/// The grade's values where no key of its own overrides them. An unknown grade is "ideal", with a log line.
MechanicsSettings readMechanics(SimConfig& config, Stores& stores, HostLog& log);

} // namespace simhost
