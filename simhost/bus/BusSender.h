#pragma once
// The sending end of the bus.

#include "simhost/bus/BusFrame.h"
#include "simhost/bus/PeerFolder.h"

#include <chrono>
#include <map>
#include <memory>
#include <set>
#include <string>

class QLocalSocket;

namespace simhost {

/// How long one send waits for all peers together.
inline constexpr std::chrono::milliseconds busSendLimit{500};

/// Carries messages to every listening notifier. Keeps one connection per peer, so that messages arrive in
/// the order of sending. A peer that does not read costs nobody anything: what the system does not take at
/// once waits here, and beyond a megabyte it is dropped with a log line. Used on the thread that made it,
/// which needs an event loop for what waits.
class BusSender {
public:
    explicit BusSender(std::shared_ptr<const PeerFolder> peers);
    /// Waits, within busSendLimit, until the system has taken what waits.
    ~BusSender();
    BusSender(const BusSender&) = delete;
    BusSender& operator=(const BusSender&) = delete;

    /// Sends to all peers but the one of that name. Peers that are gone are removed from the folder. Result:
    /// how many peers took the message. A message that makes too long a frame is dropped with a log line.
    int send(const BusMessage& message, const std::string& exceptPeer = {});

    /// Waits, within busSendLimit, until the system has taken everything: for processes that end soon.
    void flush();

private:
    using Deadline = std::chrono::steady_clock::time_point;
    struct Connection {
        std::string machine;
        std::string socketName;
        std::unique_ptr<QLocalSocket> socket;
        bool stuck = false; ///< messages to it are being dropped
    };

    void findPeers();
    bool sendTo(const std::string& peerName, Connection& connection, const std::string& frame,
                Deadline deadline);
    bool connectTo(const std::string& peerName, Connection& connection, Deadline deadline);
    bool hasRoom(Connection& connection, const std::string& frame);
    void forget(const std::string& peerName, const Connection& connection);

    std::shared_ptr<const PeerFolder> m_peers;
    std::string m_machine;
    std::map<std::string, Connection> m_connections; ///< by peer name
    std::set<std::string> m_unreadable;              ///< names of files that are no peer files
};

} // namespace simhost
