#include "hosts/common/bus/PeerFolder.h"

#include "base/AsideFile.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace hosts {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view extension = ".peer";
constexpr std::string_view firstLine = "bus peer 1";
constexpr std::size_t maxFileBytes = 4096;
constexpr std::string_view notOurs =
    "the folder \"peers\" of the data folder cannot be used: it is no folder, or it is open to other users";

#ifdef _WIN32
// The folder inherits the access rights of the user's data folder.
bool belongsToUserAlone(const fs::path& folder) { return fs::is_directory(folder); }
#else
bool belongsToUserAlone(const fs::path& folder) {
    struct stat about {};
    return ::lstat(folder.c_str(), &about) == 0 && S_ISDIR(about.st_mode) && about.st_uid == ::geteuid() &&
           (about.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}
#endif

} // namespace

PeerFolder::PeerFolder(const fs::path& dataFolder, BusLog log)
    : m_folder(dataFolder / "peers")
    , m_log(std::move(log)) {}

void PeerFolder::log(const std::string& line) const {
    if (m_log) {
        m_log(line);
    }
}

bool PeerFolder::isOurs() const {
    if (belongsToUserAlone(m_folder)) {
        return true;
    }
    log("Messages: " + std::string(notOurs));
    return false;
}

fs::path PeerFolder::fileOf(const std::string& peerName) const {
    return m_folder / (peerName + std::string(extension));
}

std::string PeerFolder::whyNotAnnounced(const std::string& peerName, const Peer& peer) const {
    std::error_code error;
    if (fs::create_directory(m_folder, error)) {
        fs::permissions(m_folder, fs::perms::owner_all, error);
    }
    if (!belongsToUserAlone(m_folder)) {
        return error ? "the folder \"peers\" of the data folder cannot be made: " + error.message()
                     : std::string(notOurs);
    }
    error = ocuva::replaceFile(fileOf(peerName),
                               std::string(firstLine) + '\n' + peer.machine + '\n' + peer.socket);
    return error ? "no file can be written into the folder \"peers\" of the data folder: " + error.message()
                 : std::string();
}

bool PeerFolder::announce(const std::string& peerName, const Peer& peer) const {
    std::error_code error;
    fs::create_directories(m_folder.parent_path(), error);
    const std::string problem = whyNotAnnounced(peerName, peer);
    if (!problem.empty()) {
        log("Messages: " + problem);
    }
    return problem.empty();
}

bool PeerFolder::announceQuietly(const std::string& peerName, const Peer& peer) const {
    return whyNotAnnounced(peerName, peer).empty();
}

bool PeerFolder::isThere(const std::string& peerName) const {
    std::error_code error;
    return fs::exists(fs::symlink_status(fileOf(peerName), error));
}

void PeerFolder::withdraw(const std::string& peerName) const {
    std::error_code error;
    fs::remove(fileOf(peerName), error);
}

std::vector<std::string> PeerFolder::names() const {
    std::vector<std::string> found;
    std::error_code error;
    if (!fs::exists(fs::symlink_status(m_folder, error)) || !isOurs()) {
        return found;
    }
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() == extension) {
            found.push_back(entry->path().stem().string());
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::optional<Peer> PeerFolder::read(const std::string& peerName) const {
    std::error_code error;
    const ocuva::RegularFile file = ocuva::RegularFile::openToRead(fileOf(peerName), error);
    const std::string text =
        file.isOpen() ? file.readAll(maxFileBytes, error).value_or(std::string()) : std::string();
    const std::size_t endOfFirst = text.find('\n');
    const std::size_t endOfMachine =
        endOfFirst == std::string::npos ? endOfFirst : text.find('\n', endOfFirst + 1);
    if (endOfMachine == std::string::npos || text.compare(0, endOfFirst, firstLine) != 0 ||
        endOfMachine + 1 == text.size()) {
        return std::nullopt;
    }
    return Peer{text.substr(endOfFirst + 1, endOfMachine - endOfFirst - 1), text.substr(endOfMachine + 1)};
}

} // namespace hosts
