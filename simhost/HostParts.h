#pragma once
// The parts that the simulated host is made of, in the order in which they need each other.

#include "simhost/FieldOfView.h"
#include "simhost/MechanicsSettings.h"
#include "simhost/SimulatedHost.h"
#include "simhost/bus/MessageBus.h"
#include "simhost/faults/FaultPlan.h"
#include "simhost/services/DataFolder.h"
#include "simhost/services/Database.h"
#include "simhost/services/HostLog.h"
#include "simhost/services/SimConfig.h"
#include "simhost/services/Stores.h"

#include <memory>

namespace simhost {

/// The limits, speeds and places of the stage as "simulator.ini" has them.
StageSettings stageSettings(SimConfig& config);

/// The camera over the world with the standards of that folder on its holder.
std::unique_ptr<FrameSource> makeCamera(SimConfig& config, const SurfaceShape& surface,
                                        const std::filesystem::path& standards, HostLog& log);

struct HostParts {
    /// Throws std::runtime_error when the data folder cannot be had.
    explicit HostParts(SimulatedHostOptions hostOptions);

    /// Made at first use, because it needs a QCoreApplication and not every user of the host has one.
    MessageBus& bus();

    /// Keeps the camera type for the next start; false when there is no such type.
    bool chooseCamera(TarnLong cameraType);

    /// What the camera really sees, which the settings only believe.
    FieldSize trueField();

    SimulatedHostOptions options;
    DataFolder folder;
    HostLog log;
    Stores stores;
    SimConfig config;
    FaultPlan faults;
    MechanicsSettings mechanics;
    std::shared_ptr<Clock> clock;
    SurfaceShape surface;
    Database database;
    FieldOfView field;
    StageMechanics stage;
    std::unique_ptr<FrameSource> camera;
    VideoBoard board;

private:
    /// The references that were saved as defaults of the camera type in use.
    void applyDefaultReferences();

    std::unique_ptr<MessageBus> m_bus;
};

} // namespace simhost
