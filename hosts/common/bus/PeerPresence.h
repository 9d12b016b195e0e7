#pragma once
// Keeps a listening notifier known to others.

#include "hosts/common/bus/PeerFolder.h"

#include <QFileSystemWatcher>
#include <QTimer>

#include <memory>
#include <string>

namespace hosts {

/// The file of one peer, from announce to withdraw or destruction. If somebody removes it, it is created
/// again as soon as the folder can be written. Causes no wake-ups while the file exists. Used on the
/// thread that created it, which needs an event loop.
class PeerPresence {
public:
    /// Nothing is announced yet.
    explicit PeerPresence(std::shared_ptr<const PeerFolder> peers);
    /// Withdraws.
    ~PeerPresence() { withdraw(); }
    PeerPresence(const PeerPresence&) = delete;
    PeerPresence& operator=(const PeerPresence&) = delete;

    /// False, after a log line, when others cannot know of it yet; it is tried again every second then.
    bool announce(const std::string& peerName, const Peer& peer);
    /// Removes the file; nothing without one.
    void withdraw();

private:
    void check();
    void watch();

    std::shared_ptr<const PeerFolder> m_peers;
    std::string m_name;
    Peer m_peer;
    bool m_announced = false;
    QFileSystemWatcher m_watcher;
    QTimer m_again;
};

} // namespace hosts
