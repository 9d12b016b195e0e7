#pragma once
// The folder in which the notifiers of one data folder find each other.

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
    std::string machine; ///< name of its computer; a data folder may be on a shared disk
    std::string socket;  ///< name of its local socket, UTF-8
};

/// The folder "peers" below a data folder: one small file per listening notifier. It belongs to the user
/// alone; a folder that is another user's, or that others may write to, is not used. Any thread.
class PeerFolder {
public:
    /// The folder is not looked at yet. An empty log keeps silent.
    PeerFolder(const std::filesystem::path& dataFolder, BusLog log);

    /// Creates the peer's file in one step, and the folder if necessary. False, after a log line, if that
    /// fails.
    bool announce(const std::string& peerName, const Peer& peer) const;
    /// The same without a log line, and only if the data folder exists.
    bool announceQuietly(const std::string& peerName, const Peer& peer) const;
    /// Whether that peer's file is there.
    bool isThere(const std::string& peerName) const;
    /// The folder passed to the constructor, followed by "peers".
    const std::filesystem::path& path() const { return m_folder; }
    /// Removes the peer's file.
    void withdraw(const std::string& peerName) const;
    /// The names of all peers, sorted; empty when there is no folder.
    std::vector<std::string> names() const;
    /// Nothing if the file is missing or not a valid peer file.
    std::optional<Peer> read(const std::string& peerName) const;

    /// Passes one line to the receiver given to the constructor.
    void log(const std::string& line) const;

private:
    std::string whyNotAnnounced(const std::string& peerName, const Peer& peer) const;
    bool isOurs() const;
    std::filesystem::path fileOf(const std::string& peerName) const;

    std::filesystem::path m_folder;
    BusLog m_log;
};

} // namespace hosts
