#pragma once
// The choice of a host from a table.

#include "hostlink/DisplayWindow.h"
#include "hostlink/Host.h"
#include "report/ReportFiles.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace ocuva {

/// The inputs of the choice.
struct HostSurroundings {
    std::optional<std::string> wantedHost;   ///< OCUVA_HOST: a host's name, without regard to letter case
    std::optional<std::string> wantedFolder; ///< OCUVA_HOST_LIBRARIES
    std::filesystem::path programFolder;     ///< the folder of the program
    std::function<bool(const std::filesystem::path&)> allIn; ///< whether a folder holds all libraries
};

/// The inputs for creating a host.
struct HostRequest {
    std::filesystem::path folder; ///< found by the host's search
    DisplayWindows& windows;      ///< outlives the host
    bool serverMode = false;      ///< problems go to standard error, not into windows
};

/// A host, and the program's information about it.
struct ChosenHost {
    std::shared_ptr<void> watch; ///< outlives the host; null for hosts that need none
    std::unique_ptr<Host> host;  ///< the host itself
    QString title;               ///< of the main window
    QString dataFolder;          ///< for the program's own files; copies with the same one know each other
    int minuteMs = 0;            ///< between two ticks of a sleeping server's idle count
    Keeper keeper = Keeper::program; ///< of log and settings
    QString description;             ///< for a report
};

/// One row of the table of hosts.
struct NamedHost {
    std::string name;                ///< the value of OCUVA_HOST that chooses it
    DisplayWindows::Painter painter; ///< who draws live video
    /// The folder of the host; nothing if it is not found. An empty path: it needs no folder, or the system
    /// searches for it.
    std::optional<std::filesystem::path> (*find)(const HostSurroundings& surroundings);
    /// Throws std::exception with a sentence for the operator.
    ChosenHost (*make)(const HostRequest& request);
};

/// The folder of a host's libraries: the named one, otherwise the program's if all of them are in it.
std::optional<std::filesystem::path> findLibraries(const HostSurroundings& surroundings);

/// The chosen row of the table.
struct HostChoice {
    const NamedHost* host = nullptr; ///< the row
    std::filesystem::path folder;    ///< found by its search
};

/// The host that is requested by name, wherever it is found; otherwise the first that is found. Throws
/// std::invalid_argument with a sentence for the operator if there is no host of that name, or none is
/// found.
HostChoice chooseHost(std::span<const NamedHost> hosts, const HostSurroundings& surroundings);

} // namespace ocuva
