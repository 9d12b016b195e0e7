#pragma once
// Where the notifiers of one data folder find each other.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace hosts {

/// Takes one line for the host's log, without a line feed.
using BusLog = std::function<void(std::string)>;

/// A listening notifier.
struct Peer {
    std::string machine; ///< name of the computer that it runs on; a data folder may lie on a shared disk
    std::string socket;  ///< name of its local socket, UTF-8
};

/// The folder "peers" below a data folder: one small file per listening notifier. It belongs to the user
/// alone; a folder that is another user's, or that others may write to, is not used. Any thread.
class PeerFolder {
public:
    /// The folder is not looked at yet. An empty log keeps silent.
    PeerFolder(const std::filesystem::path& dataFolder, BusLog log);

    /// Makes the peer's file, whole at once, and the folder where needed. False, after a log line, when that
    /// cannot be done.
    bool announce(const std::string& peerName, const Peer& peer) const;
    /// The same without a log line, and only where the data folder itself is there.
    bool announceQuietly(const std::string& peerName, const Peer& peer) const;
    /// Whether that peer's file is there.
    bool isThere(const std::string& peerName) const;
    /// As given at its making, with "peers" behind it.
    const std::filesystem::path& path() const { return m_folder; }
    /// Removes the peer's file.
    void withdraw(const std::string& peerName) const;
    /// The names of all peers, sorted; empty when there is no folder.
    std::vector<std::string> names() const;
    /// Nothing when the file is gone or is none of ours.
    std::optional<Peer> read(const std::string& peerName) const;

    /// One line to whoever was named at the making.
    void log(const std::string& line) const;

private:
    std::string whyNotAnnounced(const std::string& peerName, const Peer& peer) const;
    bool isOurs() const;
    std::filesystem::path fileOf(const std::string& peerName) const;

    std::filesystem::path m_folder;
    BusLog m_log;
};

} // namespace hosts
