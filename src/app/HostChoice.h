#pragma once
// Which of the hosts that there are stands behind the seam.

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

/// What the choice depends on.
struct HostSurroundings {
    std::optional<std::string> wantedHost;   ///< OCUVA_HOST: a host's name, without regard to letter case
    std::optional<std::string> wantedFolder; ///< OCUVA_HOST_LIBRARIES
    std::filesystem::path programFolder;     ///< where the program itself is
    std::function<bool(const std::filesystem::path&)> allIn; ///< whether a folder holds all libraries
};

/// What a host is made with.
struct HostRequest {
    std::filesystem::path folder; ///< as its search found it
    DisplayWindows& windows;      ///< outlives the host
    bool serverMode = false;      ///< complaints go to standard error, not into windows
};

/// A host, and what the program needs to know of it.
struct ChosenHost {
    std::shared_ptr<void> watch; ///< outlives the host; null for hosts that need none
    std::unique_ptr<Host> host;
    QString title;
    QString dataFolder; ///< for the program's own files; copies with the same one are copies of each other
    int minuteMs = 0;   ///< between two ticks of a sleeping server's idle count
    Keeper keeper = Keeper::program; ///< of log and settings
    QString description;             ///< for a report
};

/// One row of the table of hosts.
struct NamedHost {
    std::string name;                ///< the word that chooses it
    DisplayWindows::Painter painter; ///< who draws live video
    /// Where the host is to be had; nothing where it is not seen. Empty: it needs no folder, or the system
    /// looks for it.
    std::optional<std::filesystem::path> (*find)(const HostSurroundings& surroundings);
    /// Throws std::exception with a sentence for the operator.
    ChosenHost (*make)(const HostRequest& request);
};

/// A host's libraries: in the named folder, else beside the program when all of them are there.
std::optional<std::filesystem::path> findLibraries(const HostSurroundings& surroundings);

/// The choice, out of the table that it was made from.
struct HostChoice {
    const NamedHost* host = nullptr;
    std::filesystem::path folder;
};

/// The host of that name where one is wanted, wherever it is found; else the first that is found. Throws
/// std::invalid_argument with a sentence for the operator when the wanted host is none of them, or none is
/// found.
HostChoice chooseHost(std::span<const NamedHost> hosts, const HostSurroundings& surroundings);

} // namespace ocuva
