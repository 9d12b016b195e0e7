#pragma once
// The parts that the host functions work on.

#include "hosts/common/HostBasis.h"
#include "hosts/common/board/VideoBoard.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/devices/FrameSource.h"
#include "hosts/common/devices/Stage.h"
#include "hosts/common/faults/FunctionFault.h"

#include <memory>

namespace hosts {

/// The devices of a host, kept alive by it.
struct HostDevices {
    std::shared_ptr<Clock> clock; ///< the time in which the devices work
    std::shared_ptr<Stage> stage;
    std::shared_ptr<FrameSource> camera;
    FunctionFaults faults = {}; ///< wanted of the host functions
};

struct HostParts {
    /// The camera begins with the type and the references that the stores have.
    HostParts(std::unique_ptr<HostBasis> hostBasis, HostDevices hostDevices);

    /// Keeps the camera type for the next start; false when there is no such type.
    bool chooseCamera(TarnLong cameraType);

    std::unique_ptr<HostBasis> basis;
    HostDevices devices;
    VideoBoard board;

    /// Of the basis and of the devices.
    ///@{
    HostOptions& options;
    DataFolder& folder;
    HostLog& log;
    Stores& stores;
    Database& database;
    FieldOfView& field;
    Stage& stage;
    MessageBus& bus() { return basis->bus(); }
    ///@}

private:
    /// The references that were saved as defaults of the camera type in use.
    void applyDefaultReferences();
};

} // namespace hosts
