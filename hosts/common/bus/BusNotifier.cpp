#include "hosts/common/bus/BusNotifier.h"

#include "hosts/common/bus/BusSocket.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QMetaObject>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace hosts {

namespace {

/// While this many messages wait for their receiver nothing more is read, and the senders keep the rest. Few,
/// because the message of another sender waits behind them.
constexpr std::size_t maxQueued = 64;

// The share of the event loop that a flood gets.
constexpr int sliceMs = 10;
constexpr int pauseMs = 1;

} // namespace

BusNotifier::BusNotifier(std::shared_ptr<const PeerFolder> peers)
    : m_peers(std::move(peers))
    , m_sender(m_peers)
    , m_listener(m_peers) {
    m_nextSlice.setSingleShot(true);
    m_nextSlice.setInterval(pauseMs);
    QObject::connect(&m_nextSlice, &QTimer::timeout, &m_context, [this] { deliverSlice(); });
    m_listener.connectionWaits = [this] {
        serve();
        scheduleDelivery();
    };
    m_listener.outOfDescriptors = [this] { closeIdle(); };
}

BusNotifier::~BusNotifier() = default;

void BusNotifier::setOnNotify(OnNotify receiver) { m_receiver = std::move(receiver); }

void BusNotifier::Subscribe(const std::string& filter) {
    m_filter = BusFilter(filter);
    if (!m_filter.isUnderstood()) {
        m_peers->log("Messages: a subscription's filter is not understood; it lets nothing through");
    }
    m_listener.listen();
}

void BusNotifier::Send(const std::string& component, const std::string& subComponent, const std::string& id) {
    send({component, subComponent, id});
}

void BusNotifier::serve() {
    do {
        readConnections();
    } while (admitWaiting());
}

bool BusNotifier::admitWaiting() {
    bool admitted = false;
    while (m_listener.hasWaiting()) {
        // A server without a descriptor for the next connection would lose all that wait.
        if (m_incoming.size() >= busMaxConnections || !canOpenAnother()) {
            const auto idle = longestIdle();
            if (idle == m_incoming.end()) {
                break; // it waits until the others have been read
            }
            m_crowdedLine.log(*m_peers, "Messages: too many connections at once; those that have been idle "
                                        "the longest are closed");
            close(idle);
        }
        QLocalSocket* socket = m_listener.nextConnection();
        socket->setReadBufferSize(static_cast<qint64>(busFrameMaxBytes));
        m_incoming.push_back({socket, {}, ++m_heard});
        const auto served = [this] {
            serve();
            scheduleDelivery();
        };
        QObject::connect(socket, &QLocalSocket::readyRead, &m_context, served);
        QObject::connect(socket, &QLocalSocket::disconnected, &m_context, served);
        admitted = true;
    }
    return admitted;
}

BusNotifier::Connections::iterator BusNotifier::longestIdle() {
    auto longest = m_incoming.end();
    const bool wholeOnesWait = m_queue.size() >= maxQueued;
    for (auto incoming = m_incoming.begin(); incoming != m_incoming.end(); ++incoming) {
        const bool isIdle = !hasUnread(*incoming->socket) && !(wholeOnesWait && !incoming->bytes.empty());
        if (isIdle && (longest == m_incoming.end() || incoming->heard < longest->heard)) {
            longest = incoming;
        }
    }
    return longest;
}

void BusNotifier::closeIdle() {
    for (auto idle = longestIdle(); idle != m_incoming.end(); idle = longestIdle()) {
        close(idle);
    }
}

void BusNotifier::close(Connections::iterator incoming) {
    QObject::disconnect(incoming->socket, nullptr, &m_context, nullptr);
    incoming->socket->abort();
    incoming->socket->deleteLater();
    m_incoming.erase(incoming);
}

void BusNotifier::readConnections() {
    for (std::size_t left = m_incoming.size(); left > 0 && m_queue.size() < maxQueued; --left) {
        const auto incoming = m_incoming.begin();
        if (readFrom(*incoming)) {
            m_incoming.splice(m_incoming.end(), m_incoming, incoming);
        } else {
            close(incoming);
        }
    }
}

bool BusNotifier::readFrom(Incoming& incoming) {
    for (;;) {
        if (!takeFrames(incoming)) {
            m_peers->log("Messages: what a peer sent is no message; its connection was closed");
            return false;
        }
        if (m_queue.size() >= maxQueued) {
            return true;
        }
        const std::size_t room = busFrameMaxBytes - incoming.bytes.size();
        const QByteArray arrived = incoming.socket->read(static_cast<qint64>(room));
        if (!arrived.isEmpty()) {
            incoming.bytes.append(arrived.constData(), static_cast<std::size_t>(arrived.size()));
            incoming.heard = ++m_heard;
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
}

bool BusNotifier::takeFrames(Incoming& incoming) {
    std::string_view rest = incoming.bytes;
    FrameState state = FrameState::complete;
    while (state == FrameState::complete && m_queue.size() < maxQueued) {
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
            &m_context, [this] { deliverSlice(); }, Qt::QueuedConnection);
    }
}

void BusNotifier::deliverSlice() {
    m_scheduled = false;
    QElapsedTimer slice;
    slice.start();
    while (!m_queue.empty() && !slice.hasExpired(sliceMs)) {
        if (!deliverNext()) {
            return;
        }
        serve();
    }
    if (!m_queue.empty()) {
        m_scheduled = true;
        m_nextSlice.start();
    }
}

bool BusNotifier::deliverNext() {
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
        return false;
    }
    m_delivering = false;
    return true;
}

} // namespace hosts
