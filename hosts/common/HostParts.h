#pragma once
// The parts that the simulated host is made of, in the order in which they need each other.

#include "hosts/common/FieldOfView.h"
#include "hosts/common/bus/MessageBus.h"
#include "hosts/common/faults/FaultPlan.h"
#include "hosts/common/services/DataFolder.h"
#include "hosts/common/services/Database.h"
#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/SimulatedHost.h"
#include "hosts/simulated/config/MechanicsSettings.h"
#include "hosts/simulated/config/SimConfig.h"

#include <memory>

namespace hosts {

/// The limits, speeds and places of the stage as "simulator.ini" has them.
simulated::StageSettings stageSettings(simulated::SimConfig& config);

/// The camera over the world with the standards of that folder on its holder.
std::unique_ptr<FrameSource> makeCamera(simulated::SimConfig& config, const simulated::SurfaceShape& surface,
                                        const std::filesystem::path& standards, HostLog& log);

struct HostParts {
    /// Throws std::runtime_error when the data folder cannot be had.
    explicit HostParts(simulated::SimulatedHostOptions hostOptions);

    /// Made at first use, because it needs a QCoreApplication and not every user of the host has one.
    MessageBus& bus();

    /// Keeps the camera type for the next start; false when there is no such type.
    bool chooseCamera(TarnLong cameraType);

    /// What the camera really sees, which the settings only believe.
    FieldSize trueField();

    simulated::SimulatedHostOptions options;
    DataFolder folder;
    HostLog log;
    Stores stores;
    simulated::SimConfig config;
    FaultPlan faults;
    simulated::MechanicsSettings mechanics;
    std::shared_ptr<Clock> clock;
    simulated::SurfaceShape surface;
    Database database;
    FieldOfView field;
    simulated::StageMechanics stage;
    std::unique_ptr<FrameSource> camera;
    VideoBoard board;

private:
    /// The references that were saved as defaults of the camera type in use.
    void applyDefaultReferences();

    std::unique_ptr<MessageBus> m_bus;
};

} // namespace hosts
