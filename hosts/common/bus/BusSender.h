#pragma once
// The sending end of the bus.

#include "hosts/common/bus/BusFrame.h"
#include "hosts/common/bus/PeerFolder.h"

#include <QtGlobal>

#include <chrono>
#include <map>
#include <memory>
#include <set>
#include <string>

class QLocalSocket;

namespace hosts {

/// How long one send waits for all connections that it has to make, together.
inline constexpr std::chrono::milliseconds busConnectLimit{500};
/// How long a peer may take nothing before it counts as one that has stopped reading.
inline constexpr std::chrono::milliseconds busStallLimit{2000};

/// Sends messages to every listening notifier. Keeps one connection per peer, so messages arrive in the
/// order of sending.
///
/// Data that the system does not accept at once waits here, up to a megabyte per peer. A sender that is
/// further ahead slows down to the pace of the peer: nothing is lost as long as the peer reads. A peer
/// that accepts nothing for busStallLimit has stopped reading: all messages to it are dropped, with one
/// log line, until it has read half of the waiting data.
///
/// Used on the thread that created it, which needs an event loop for waiting data.
class BusSender {
public:
    /// Looks for peers at each send.
    explicit BusSender(std::shared_ptr<const PeerFolder> peers);
    /// Flushes.
    ~BusSender();
    BusSender(const BusSender&) = delete;
    BusSender& operator=(const BusSender&) = delete;

    /// Sends to all peers but the one of that name. Peers that are gone are removed from the folder. Result:
    /// how many peers took the message. A message that makes too long a frame is dropped with a log line.
    int send(const BusMessage& message, const std::string& exceptPeer = {});

    /// Waits until the system has taken everything that peers which read are to get: for processes that end
    /// soon.
    void flush();

private:
    using Deadline = std::chrono::steady_clock::time_point;
    struct Connection {
        std::string machine;
        std::string socketName;
        std::unique_ptr<QLocalSocket> socket;
        bool stuck = false; ///< has stopped reading; messages to it are being dropped
    };

    void findPeers();
    bool sendTo(const std::string& peerName, Connection& connection, const std::string& frame,
                Deadline deadline);
    bool connectTo(const std::string& peerName, Connection& connection, Deadline deadline);
    /// Waits for room for that many bytes as the class says; false when the message is to be dropped.
    bool makeRoom(Connection& connection, qint64 bytes);
    void forget(const std::string& peerName, const Connection& connection);

    std::shared_ptr<const PeerFolder> m_peers;
    std::string m_machine;
    std::map<std::string, Connection> m_connections; ///< by peer name
    std::set<std::string> m_unreadable;              ///< names of files that are no peer files
};

} // namespace hosts
