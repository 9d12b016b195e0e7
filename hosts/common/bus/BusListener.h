#pragma once
// The door of a notifier: the local socket that others connect to, and the peer file that names it.

#include "hosts/common/bus/PeerPresence.h"
#include "hosts/common/bus/SeldomLine.h"

#include <QLocalServer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

class QLocalSocket;

namespace hosts {

/// Keeps listening: after a shortage of descriptors it opens the server again. Used on the thread that
/// created it, which needs an event loop.
class BusListener {
public:
    /// Listens nowhere yet.
    explicit BusListener(std::shared_ptr<const PeerFolder> peers);
    /// Withdraws the peer file.
    ~BusListener() = default;
    BusListener(const BusListener&) = delete;
    BusListener& operator=(const BusListener&) = delete;

    /// Opens the door, unless it is open. Result: isListening, after a log line when it is not.
    bool listen();
    /// Whether others can connect; not in the moments after descriptors ran out.
    bool isListening() const { return m_server.isListening(); }

    /// The name under which others find it at present.
    const std::string& peerName() const { return m_peerName; }

    /// Whether a connection is waiting. Only a few of the waiting ones take a descriptor.
    bool hasWaiting() const { return m_server.hasPendingConnections(); }
    /// The next connection that waits; null when none does.
    QLocalSocket* nextConnection() { return m_server.nextPendingConnection(); }

    /// Called when a connection waits.
    std::function<void()> connectionWaits = {};
    /// Called when a connection could not be accepted, before the next attempt to listen: the time to close
    /// what can be done without.
    std::function<void()> outOfDescriptors = {};

private:
    bool open();
    void watchTheDoor();
    void openAgain();

    std::shared_ptr<const PeerFolder> m_peers;
    std::string m_peerName;
    PeerPresence m_presence;
    SeldomLine m_shortageLine;
    QLocalServer m_server;
    QTimer m_again;
    QObject m_context; ///< receives the signals; destroyed first
};

} // namespace hosts
