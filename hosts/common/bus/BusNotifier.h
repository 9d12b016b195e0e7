#pragma once
// The receiving end of the bus: one notifier of a host.

#include "hostlink/Notifier.h"
#include "hosts/common/bus/BusFrame.h"
#include "hosts/common/bus/BusListener.h"
#include "hosts/common/bus/BusSender.h"
#include "hosts/common/bus/PeerFolder.h"
#include "hosts/common/bus/SeldomLine.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <memory>
#include <string>

class QLocalSocket;

namespace hosts {

/// Number of connections that a notifier keeps open. One more closes the one that has been idle longest;
/// its sender reconnects with its next message.
inline constexpr std::size_t busMaxConnections = 64;

/// A notifier that other notifiers of the same data folder reach through a local socket. It listens from
/// the first Subscribe on. Used on the thread that created it, whose event loop delivers the events. A
/// message that arrives while a receiver is running waits until that returns, even if the receiver runs an
/// event loop. Senders are served in turn, and the event loop always gets to its other work.
class BusNotifier final : public ocuva::Notifier {
public:
    /// Listens nowhere yet.
    explicit BusNotifier(std::shared_ptr<const PeerFolder> peers);
    ~BusNotifier() override;

    void setOnNotify(OnNotify receiver) override;
    void Subscribe(const std::string& filter) override;
    void Send(const std::string& component, const std::string& subComponent, const std::string& id) override;

    /// Whether messages can reach this notifier; false after a Subscribe that found no way.
    bool isListening() const { return m_listener.isListening(); }

    /// As Send. Result: how many peers took the message, whether or not their filters let it through.
    int send(const BusMessage& message) { return m_sender.send(message, m_listener.peerName()); }

private:
    struct Incoming {
        QLocalSocket* socket; ///< owned by the listener
        std::string bytes;    ///< read, but not queued yet
        std::uint64_t heard;  ///< the larger, the later something came from it
    };
    using Connections = std::list<Incoming>;

    /// Takes in the connections that wait and reads from all.
    void serve();
    bool admitWaiting();
    /// The connection that has been idle the longest; the end when something has come from each.
    Connections::iterator longestIdle();
    void close(Connections::iterator incoming);
    void closeIdle();
    void readConnections();
    /// Queues what has arrived whole; false when the connection has come to its end.
    bool readFrom(Incoming& incoming);
    bool takeFrames(Incoming& incoming);
    void scheduleDelivery();
    /// Delivers for a moment, and leaves the rest for after the event loop's other work.
    void deliverSlice();
    /// False when the receiver has destroyed this notifier.
    bool deliverNext();

    std::shared_ptr<const PeerFolder> m_peers;
    BusSender m_sender;
    OnNotify m_receiver;
    BusFilter m_filter;
    Connections m_incoming; ///< the one that is read next at the front
    std::deque<ocuva::Notification> m_queue;
    std::uint64_t m_heard = 0;
    ocuva::Long m_lastHandler = 0;
    bool m_delivering = false;
    bool m_scheduled = false;
    SeldomLine m_crowdedLine;
    BusListener m_listener;
    QTimer m_nextSlice;
    QObject m_context; ///< receives the signals; made and destroyed with this object
};

} // namespace hosts
