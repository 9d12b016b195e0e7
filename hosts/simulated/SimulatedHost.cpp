#include "hosts/simulated/SimulatedHost.h"

#include "hosts/simulated/SimulatedDevices.h"
#include "hosts/simulated/config/SeedFiles.h"

#include <string_view>
#include <utility>

namespace hosts::simulated {

namespace {

template <typename Device>
std::shared_ptr<Device> partOf(const std::shared_ptr<SimulatedDevices>& devices, Device& device) {
    return {devices, &device};
}

HostDevices asHostDevices(const std::shared_ptr<SimulatedDevices>& devices) {
    return {devices->clock, partOf<Stage>(devices, devices->stage),
            partOf<FrameSource>(devices, devices->camera),
            [&plan = devices->faults](std::string_view name) { return plan.function(name); }};
}

} // namespace

SimulatedHost::SimulatedHost(const SimulatedHostOptions& options)
    : SimulatedHost(std::make_unique<HostBasis>(options, seedFiles), options.clock) {}

SimulatedHost::SimulatedHost(std::unique_ptr<HostBasis>&& basis, std::shared_ptr<Clock> clock)
    : SimulatedHost(std::move(basis), std::make_shared<SimulatedDevices>(*basis, std::move(clock))) {}

SimulatedHost::SimulatedHost(std::unique_ptr<HostBasis>&& basis, std::shared_ptr<SimulatedDevices> devices)
    : DeviceHost(std::move(basis), asHostDevices(devices))
    , m_devices(std::move(devices)) {}

SimulatedHost::~SimulatedHost() = default;

const Truth& SimulatedHost::truth() const { return m_devices->truth; }
const SurfaceShape& SimulatedHost::trueSurface() const { return m_devices->surface; }
FieldSize SimulatedHost::trueField() { return m_devices->truth.field(); }
StageMechanics& SimulatedHost::stage() { return m_devices->stage; }
SimulatedCamera& SimulatedHost::camera() { return m_devices->camera; }

} // namespace hosts::simulated
