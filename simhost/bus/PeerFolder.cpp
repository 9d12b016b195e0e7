#include "simhost/bus/PeerFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace simhost {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view extension = ".peer";
constexpr std::string_view firstLine = "bus peer 1";
constexpr std::size_t maxFileBytes = 4096;

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
    log("Messages: the folder \"peers\" of the data folder cannot be used: it is no folder, or it is open to "
        "other users");
    return false;
}

fs::path PeerFolder::fileOf(const std::string& peerName) const {
    return m_folder / (peerName + std::string(extension));
}

bool PeerFolder::announce(const std::string& peerName, const Peer& peer) const {
    std::error_code error;
    fs::create_directories(m_folder.parent_path(), error);
    if (fs::create_directory(m_folder, error)) {
        fs::permissions(m_folder, fs::perms::owner_all, error);
    }
    if (!isOurs()) {
        return false;
    }
    // Written aside, so that nobody ever reads half a file.
    const fs::path file = fileOf(peerName);
    fs::path aside = file;
    aside += ".new";
    std::ofstream stream(aside, std::ios::binary);
    stream << firstLine << '\n' << peer.machine << '\n' << peer.socket;
    stream.close();
    if (stream) {
        fs::rename(aside, file, error);
    }
    if (!stream || error) {
        log("Messages: no file can be written into the folder \"peers\" of the data folder");
        fs::remove(aside, error);
        return false;
    }
    return true;
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
    std::ifstream stream(fileOf(peerName), std::ios::binary);
    std::string text(maxFileBytes, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));

    const std::size_t endOfFirst = text.find('\n');
    const std::size_t endOfMachine =
        endOfFirst == std::string::npos ? endOfFirst : text.find('\n', endOfFirst + 1);
    if (endOfMachine == std::string::npos || text.compare(0, endOfFirst, firstLine) != 0 ||
        endOfMachine + 1 == text.size()) {
        return std::nullopt;
    }
    return Peer{text.substr(endOfFirst + 1, endOfMachine - endOfFirst - 1), text.substr(endOfMachine + 1)};
}

} // namespace simhost
