#include "hosts/common/bus/PeerPresence.h"

#include <QString>

#include <chrono>
#include <utility>

namespace hosts {

PeerPresence::PeerPresence(std::shared_ptr<const PeerFolder> peers)
    : m_peers(std::move(peers)) {
    m_again.setInterval(std::chrono::seconds(1));
    QObject::connect(&m_again, &QTimer::timeout, &m_again, [this] { check(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_again, [this] { check(); });
}

bool PeerPresence::announce(const std::string& peerName, const Peer& peer) {
    withdraw();
    m_name = peerName;
    m_peer = peer;
    m_announced = true;
    const bool known = m_peers->announce(m_name, m_peer);
    known ? watch() : m_again.start();
    return known;
}

void PeerPresence::withdraw() {
    if (std::exchange(m_announced, false)) {
        m_again.stop();
        m_peers->withdraw(m_name);
    }
}

/// The data folder may have been removed together with the watch, or moved away, which is reported only in
/// its parent folder.
void PeerPresence::watch() {
    if (const QStringList watched = m_watcher.directories(); !watched.isEmpty()) {
        m_watcher.removePaths(watched);
    }
    const std::filesystem::path& peers = m_peers->path();
    for (const auto& folder : {peers, peers.parent_path(), peers.parent_path().parent_path()}) {
        m_watcher.addPath(QString::fromStdU16String(folder.u16string()));
    }
}

void PeerPresence::check() {
    if (!m_announced) {
        return;
    }
    if (m_peers->isThere(m_name)) {
        if (m_again.isActive()) {
            m_again.stop();
            watch();
        }
    } else if (m_peers->announceQuietly(m_name, m_peer)) {
        m_again.stop();
        watch();
        m_peers->log("Messages: this copy could not be reached for a while; it can again");
    } else {
        m_again.start();
    }
}

} // namespace hosts
