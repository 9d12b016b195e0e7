#pragma once
// The devices of the simulated host, in the order in which they need each other.

#include "hosts/common/HostBasis.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/simulated/Truth.h"
#include "hosts/simulated/camera/SimulatedCamera.h"
#include "hosts/simulated/camera/WorldCamera.h"
#include "hosts/simulated/config/MechanicsSettings.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/faults/FaultPlan.h"
#include "hosts/simulated/mechanics/StageMechanics.h"
#include "hosts/simulated/world/SurfaceShape.h"

#include <memory>

namespace hosts::simulated {

struct SimulatedDevices {
    /// hostClock: null for a real clock, run at TimeFactor of "simulator.ini". The basis outlives the
    /// devices; its log gets the size that "simulator.ini" allows it.
    SimulatedDevices(HostBasis& basis, std::shared_ptr<Clock> hostClock);

    SimConfig config;
    FaultPlan faults;
    MechanicsSettings mechanics;
    std::shared_ptr<Clock> clock;
    SurfaceShape surface;
    StageMechanics stage;
    WorldCamera world;
    SimulatedCamera camera;
    Truth truth;
};

} // namespace hosts::simulated
