#include "hosts/common/bus/BusListener.h"

#include "hosts/common/bus/BusSocket.h"

#include <QLocalSocket>
#include <QSocketNotifier>

#include <chrono>
#include <utility>

namespace hosts {

namespace {

using namespace std::chrono_literals;

constexpr int listenBacklog = 128;
constexpr int maxWaiting = 8; ///< accepted connections that are still waiting; each has a descriptor
constexpr auto againAfter = 250ms;

} // namespace

BusListener::BusListener(std::shared_ptr<const PeerFolder> peers)
    : m_peers(std::move(peers))
    , m_peerName(newPeerName())
    , m_presence(m_peers) {
    m_server.setListenBacklogSize(listenBacklog);
    m_server.setMaxPendingConnections(maxWaiting);
    m_again.setSingleShot(true);
    m_again.setInterval(againAfter);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_context, [this] {
        if (connectionWaits) {
            connectionWaits();
        }
    });
    QObject::connect(&m_again, &QTimer::timeout, &m_context, [this] { openAgain(); });
}

bool BusListener::listen() {
    if (!isListening() && !open()) {
        m_peers->log("Messages: no local socket can be opened; none will be received");
    }
    return isListening();
}

bool BusListener::open() {
    if (!listenForUser(m_server, m_peerName)) {
        return false;
    }
    if (!m_presence.announce(m_peerName, {machineName(), m_server.fullServerName().toStdString()})) {
        m_presence.withdraw();
        m_server.close();
        return true; // and announce has said why
    }
    watchTheDoor();
    return true;
}

// A server that cannot accept a connection closes itself without a signal, but its socket notifier is
// destroyed with it.
void BusListener::watchTheDoor() {
    if (const auto* notifier = m_server.findChild<QSocketNotifier*>()) {
        QObject::connect(notifier, &QObject::destroyed, &m_context, [this] { openAgain(); });
    }
}

void BusListener::openAgain() {
    if (isListening()) {
        return;
    }
    if (outOfDescriptors) {
        outOfDescriptors();
    }
    // Under another name: a sender that has met the closed door is about to clear the old one away.
    m_presence.withdraw();
    m_peerName = newPeerName();
    if (open() && isListening()) {
        m_shortageLine.log(*m_peers, "Messages: there were no descriptors left for another connection; "
                                     "listening again");
    } else {
        m_again.start();
    }
}

} // namespace hosts
