#include "hosts/common/bus/BusSender.h"

#include "hosts/common/bus/BusSocket.h"

#include <QLocalSocket>

#include <algorithm>
#include <utility>

namespace hosts {

namespace {

constexpr qint64 maxWaitingBytes = 1024 * 1024;

int msUntil(std::chrono::steady_clock::time_point deadline) {
    const auto left = deadline - std::chrono::steady_clock::now();
    return static_cast<int>(
        std::max<std::int64_t>(0, std::chrono::duration_cast<std::chrono::milliseconds>(left).count()));
}

/// Interval of further write attempts while the system does not signal that it can accept more.
constexpr int askAgainMs = 5;

bool isConnected(const QLocalSocket* socket) {
    return socket != nullptr && socket->state() == QLocalSocket::ConnectedState;
}

/// Waits until no more than that many bytes wait in the socket; false when the peer stops reading before.
bool drain(QLocalSocket& socket, qint64 bytesLeft) {
    using Time = std::chrono::steady_clock;
    Time::time_point stalledAt = Time::now() + busStallLimit;
    qint64 waiting = socket.bytesToWrite();
    while (isConnected(&socket) && waiting > bytesLeft) {
        // The system signals free space late; a write finds out sooner.
        socket.flush();
        if (socket.bytesToWrite() == waiting) {
            socket.waitForBytesWritten(askAgainMs);
        }
        if (socket.bytesToWrite() < waiting) {
            waiting = socket.bytesToWrite();
            stalledAt = Time::now() + busStallLimit;
        } else if (Time::now() > stalledAt) {
            return false;
        }
    }
    return true;
}

void closeWhenWritten(std::unique_ptr<QLocalSocket> socket) {
    QLocalSocket* remaining = socket.release();
    QObject::connect(remaining, &QLocalSocket::disconnected, remaining, &QObject::deleteLater);
    remaining->disconnectFromServer();
}

} // namespace

BusSender::BusSender(std::shared_ptr<const PeerFolder> peers)
    : m_peers(std::move(peers))
    , m_machine(machineName()) {}

BusSender::~BusSender() {
    flush();
    for (auto& [name, connection] : m_connections) {
        if (isOfThisProcess(name) && isConnected(connection.socket.get()) &&
            connection.socket->bytesToWrite() > 0) {
            closeWhenWritten(std::move(connection.socket));
        }
    }
}

int BusSender::send(const BusMessage& message, const std::string& exceptPeer) {
    const auto frame = encodeBusFrame(message);
    if (!frame) {
        m_peers->log("Messages: a message that is too long was not sent");
        return 0;
    }
    const Deadline deadline = std::chrono::steady_clock::now() + busConnectLimit;
    findPeers();
    int taken = 0;
    for (auto next = m_connections.begin(); next != m_connections.end();) {
        const auto peer = next++; // sendTo may erase it
        if (peer->first != exceptPeer && sendTo(peer->first, peer->second, *frame, deadline)) {
            ++taken;
        }
    }
    return taken;
}

void BusSender::findPeers() {
    const std::vector<std::string> names = m_peers->names();
    std::erase_if(m_connections, [&names](const auto& known) {
        return !std::binary_search(names.begin(), names.end(), known.first);
    });
    for (const std::string& name : names) {
        if (m_connections.count(name) != 0 || m_unreadable.count(name) != 0) {
            continue;
        }
        if (const auto peer = m_peers->read(name)) {
            m_connections[name] = {peer->machine, peer->socket, nullptr, false};
        } else {
            m_unreadable.insert(name);
            m_peers->log("Messages: the file \"" + name + "\" in the folder \"peers\" names no peer");
        }
    }
}

bool BusSender::sendTo(const std::string& peerName, Connection& connection, const std::string& frame,
                       Deadline deadline) {
    if (connection.machine != m_machine) {
        return false;
    }
    // A connection whose other end has gone reports this only when it is written to; a second attempt
    // shows whether the peer itself has gone.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!isConnected(connection.socket.get()) && !connectTo(peerName, connection, deadline)) {
            return false;
        }
        if (!makeRoom(connection, static_cast<qint64>(frame.size()))) {
            return false;
        }
        QLocalSocket& socket = *connection.socket;
        if (!isConnected(&socket)) {
            continue;
        }
        socket.write(frame.data(), static_cast<qint64>(frame.size()));
        socket.flush();
        if (isConnected(&socket)) {
            return true;
        }
    }
    return false;
}

bool BusSender::connectTo(const std::string& peerName, Connection& connection, Deadline deadline) {
    connection.socket = std::make_unique<QLocalSocket>();
    QLocalSocket& socket = *connection.socket;
    socket.setReadBufferSize(1); // nothing is read from it
    socket.connectToServer(QString::fromStdString(connection.socketName), QIODevice::ReadWrite);
    if (socket.waitForConnected(msUntil(deadline))) {
        return true;
    }
    const QLocalSocket::LocalSocketError reason = socket.error();
    connection.socket.reset();
    if (reason == QLocalSocket::ConnectionRefusedError || reason == QLocalSocket::ServerNotFoundError) {
        forget(peerName, connection);
    } else {
        m_peers->log("Messages: a peer did not take a connection; the message did not reach it");
    }
    return false;
}

bool BusSender::makeRoom(Connection& connection, qint64 bytes) {
    QLocalSocket& socket = *connection.socket;
    if (connection.stuck) {
        socket.flush();
        connection.stuck = socket.bytesToWrite() > maxWaitingBytes / 2;
    } else if (!drain(socket, maxWaitingBytes - bytes)) {
        m_peers->log("Messages: a peer has stopped reading; messages to it are dropped");
        connection.stuck = true;
    }
    return !connection.stuck;
}

void BusSender::forget(const std::string& peerName, const Connection& connection) {
    m_peers->withdraw(peerName);
    removeBusSocket(connection.socketName);
    m_connections.erase(std::string(peerName));
}

void BusSender::flush() {
    for (auto& [name, connection] : m_connections) {
        // A peer of this process may be on this very thread: it cannot read while we wait, and it ends with
        // us.
        if (!isOfThisProcess(name) && isConnected(connection.socket.get()) && !connection.stuck &&
            !drain(*connection.socket, 0)) {
            m_peers->log("Messages: a peer has stopped reading; what waits for it may be lost");
            connection.stuck = true;
        }
    }
}

} // namespace hosts
