#pragma once
// Which host stands behind the seam: the host's own shared libraries, or the simulated one.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace ocuva {

/// Which host is to be used.
struct HostChoice {
    bool library = false; ///< else the simulated one
    /// Where the libraries are; empty: where the system looks for libraries.
    std::filesystem::path folder;
};

/// What the choice depends on.
struct HostSurroundings {
    std::optional<std::string> wantedHost; ///< OCUVA_HOST: "library" or "sim", without regard to letter case
    std::optional<std::string> wantedFolder;                 ///< OCUVA_HOST_LIBRARIES
    std::filesystem::path programFolder;                     ///< where the program itself is
    std::function<bool(const std::filesystem::path&)> allIn; ///< whether a folder holds all libraries
};

/// Unless somebody wants one of the two, the libraries if all of them are beside the program or a folder is
/// named for them. They are taken from the named folder, else from beside the program, else from where the
/// system looks. Throws std::invalid_argument with a sentence for the operator when the wanted host is
/// neither.
HostChoice chooseHost(const HostSurroundings& surroundings);

} // namespace ocuva
