#pragma once
// The simulated host: all functions of a real host's libraries, inside this process. README.md next to
// this file lists every setting, and what is simulated and what is not.

#include "hosts/common/DeviceHost.h"
#include "hosts/simulated/Truth.h"
#include "hosts/simulated/camera/SimulatedCamera.h"
#include "hosts/simulated/mechanics/StageMechanics.h"
#include "hosts/simulated/world/SurfaceShape.h"

#include <memory>

namespace hosts::simulated {

struct SimulatedDevices;

/// The data folder has "simulator.ini" as well.
struct SimulatedHostOptions : HostOptions {
    /// Null: a real clock, run at TimeFactor of "simulator.ini".
    std::shared_ptr<Clock> clock;
};

/// Used on one thread. Frames reach the windows from a thread of the camera, or from the thread that
/// advances a virtual clock.
class SimulatedHost final : public DeviceHost {
public:
    /// Throws std::runtime_error with a sentence for the operator if the data folder cannot be used.
    explicit SimulatedHost(const SimulatedHostOptions& options);
    ~SimulatedHost() override;

    /// The true state, which no real host can report: for tests and benchmarks.
    ///@{
    const Truth& truth() const;
    const SurfaceShape& trueSurface() const;
    FieldSize trueField();
    StageMechanics& stage();
    SimulatedCamera& camera();
    ///@}

private:
    SimulatedHost(std::unique_ptr<HostBasis>&& basis, std::shared_ptr<Clock> clock);
    SimulatedHost(std::unique_ptr<HostBasis>&& basis, std::shared_ptr<SimulatedDevices> devices);

    std::shared_ptr<SimulatedDevices> m_devices;
};

} // namespace hosts::simulated
