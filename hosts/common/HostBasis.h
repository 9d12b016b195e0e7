#pragma once
// The parts of a host that need no device: its folder and the files in it.

#include "hosts/common/FieldOfView.h"
#include "hosts/common/HostOptions.h"
#include "hosts/common/bus/MessageBus.h"
#include "hosts/common/services/DataFolder.h"
#include "hosts/common/services/Database.h"
#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"

#include <memory>

namespace hosts {

struct HostBasis {
    /// Throws std::runtime_error with a sentence for the operator if the data folder cannot be used.
    HostBasis(HostOptions hostOptions, const DataFolder::Seeds& seeds);

    /// Made at first use, because it needs a QCoreApplication and not every user of the host has one.
    MessageBus& bus();

    HostOptions options;
    DataFolder folder;
    HostLog log;
    Stores stores;
    Database database;
    FieldOfView field;

private:
    std::unique_ptr<MessageBus> m_bus;
};

} // namespace hosts
