#pragma once
// The files that the first start of the simulated host puts into its data folder.

#include "hosts/common/services/DataFolder.h"

namespace hosts::simulated {

/// Stores, eight minerals as standards and "simulator.ini"; README.md of this host lists them.
std::vector<SeedFile> seedFiles(const std::filesystem::path& folder);

/// The simulator's own configuration in a data folder.
inline std::filesystem::path simulatorConfig(const DataFolder& folder) {
    return folder.path() / "simulator.ini";
}

} // namespace hosts::simulated
