#include "simhost/bus/BusNotifier.h"

#include "simhost/bus/BusSocket.h"

#include <QLocalSocket>
#include <QMetaObject>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace simhost {

namespace {
/// While this many messages wait for their receiver nothing more is read, and the senders keep the rest.
constexpr std::size_t maxQueued = 1000;
constexpr int listenBacklog = 128;
} // namespace

BusNotifier::BusNotifier(std::shared_ptr<const PeerFolder> peers)
    : m_peers(std::move(peers))
    , m_peerName(newPeerName())
    , m_sender(m_peers) {
    m_server.setListenBacklogSize(listenBacklog);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_context, [this] { acceptConnections(); });
}

BusNotifier::~BusNotifier() {
    if (m_server.isListening()) {
        m_peers->withdraw(m_peerName);
    }
}

void BusNotifier::setOnNotify(OnNotify receiver) { m_receiver = std::move(receiver); }

void BusNotifier::Subscribe(const std::string& filter) {
    m_filter = BusFilter(filter);
    if (!m_filter.isUnderstood()) {
        m_peers->log("Messages: a subscription's filter is not understood; it lets nothing through");
    }
    if (!m_server.isListening()) {
        listen();
    }
}

void BusNotifier::Send(const std::string& component, const std::string& subComponent, const std::string& id) {
    send({component, subComponent, id});
}

void BusNotifier::listen() {
    if (!listenForUser(m_server, m_peerName)) {
        m_peers->log("Messages: no local socket can be opened; none will be received");
        return;
    }
    if (!m_peers->announce(m_peerName, {machineName(), m_server.fullServerName().toStdString()})) {
        m_server.close();
    }
}

void BusNotifier::acceptConnections() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        socket->setReadBufferSize(static_cast<qint64>(busFrameMaxBytes));
        m_incoming.push_back({socket, {}});
        QObject::connect(socket, &QLocalSocket::readyRead, &m_context, [this] { readConnections(); });
        QObject::connect(socket, &QLocalSocket::disconnected, &m_context, [this] { readConnections(); });
    }
    readConnections();
}

void BusNotifier::readConnections() {
    for (std::size_t left = m_incoming.size(); left > 0 && m_queue.size() < maxQueued; --left) {
        const auto incoming = m_incoming.begin();
        if (readFrom(*incoming)) {
            m_incoming.splice(m_incoming.end(), m_incoming, incoming);
        } else {
            QObject::disconnect(incoming->socket, nullptr, &m_context, nullptr);
            incoming->socket->abort();
            incoming->socket->deleteLater();
            m_incoming.erase(incoming);
        }
    }
    scheduleDelivery();
}

bool BusNotifier::readFrom(Incoming& incoming) {
    while (m_queue.size() < maxQueued) {
        const std::size_t room = busFrameMaxBytes - incoming.bytes.size();
        const QByteArray arrived = incoming.socket->read(static_cast<qint64>(room));
        incoming.bytes.append(arrived.constData(), static_cast<std::size_t>(arrived.size()));
        if (!takeFrames(incoming)) {
            m_peers->log("Messages: what a peer sent is no message; its connection was closed");
            return false;
        }
        if (!arrived.isEmpty()) {
            continue;
        }
        if (incoming.socket->state() == QLocalSocket::ConnectedState) {
            return true;
        }
        if (!incoming.bytes.empty()) {
            m_peers->log("Messages: a peer went away in the middle of a message");
        }
        return false;
    }
    return true;
}

bool BusNotifier::takeFrames(Incoming& incoming) {
    std::string_view rest = incoming.bytes;
    FrameState state = FrameState::complete;
    while (state == FrameState::complete) {
        DecodedFrame frame = decodeBusFrame(rest);
        state = frame.state;
        rest.remove_prefix(frame.usedBytes);
        if (state == FrameState::complete && m_filter.letsThrough(frame.message)) {
            m_queue.push_back({++m_lastHandler, std::move(frame.message.component),
                               std::move(frame.message.subComponent), std::move(frame.message.id)});
        }
    }
    incoming.bytes.erase(0, incoming.bytes.size() - rest.size());
    return state != FrameState::malformed;
}

void BusNotifier::scheduleDelivery() {
    if (!m_scheduled && !m_delivering && !m_queue.empty()) {
        m_scheduled = true;
        QMetaObject::invokeMethod(
            &m_context, [this] { deliverNext(); }, Qt::QueuedConnection);
    }
}

void BusNotifier::deliverNext() {
    m_scheduled = false; // what was scheduled finds its message in the queue: nothing else takes one out
    const ocuva::Notification message = std::move(m_queue.front());
    m_queue.pop_front();
    // The receiver may replace itself or destroy this notifier.
    const QPointer<QObject> alive(&m_context);
    const OnNotify receiver = m_receiver;
    m_delivering = true;
    if (receiver) {
        receiver(message);
    }
    if (alive.isNull()) {
        return;
    }
    m_delivering = false;
    readConnections();
}

} // namespace simhost
