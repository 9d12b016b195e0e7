#pragma once
// The receiving end of the bus: one notifier of the simulated host.

#include "hostlink/Notifier.h"
#include "simhost/bus/BusFrame.h"
#include "simhost/bus/BusSender.h"
#include "simhost/bus/PeerFolder.h"

#include <QLocalServer>
#include <QObject>

#include <deque>
#include <list>
#include <memory>
#include <string>

class QLocalSocket;

namespace simhost {

/// A notifier that other notifiers of the same data folder reach through a local socket. It listens from the
/// first Subscribe on. Used on the thread that made it, whose event loop delivers the events; a message that
/// arrives while a receiver runs waits until that returns, even when the receiver runs an event loop itself.
class BusNotifier final : public ocuva::Notifier {
public:
    /// Listens nowhere yet.
    explicit BusNotifier(std::shared_ptr<const PeerFolder> peers);
    ~BusNotifier() override;

    void setOnNotify(OnNotify receiver) override;
    void Subscribe(const std::string& filter) override;
    void Send(const std::string& component, const std::string& subComponent, const std::string& id) override;

    /// Whether messages can reach this notifier; false after a Subscribe that found no way.
    bool isListening() const { return m_server.isListening(); }

    /// As Send. Result: how many peers took the message, whether or not their filters let it through.
    int send(const BusMessage& message) { return m_sender.send(message, m_peerName); }

private:
    struct Incoming {
        QLocalSocket* socket; ///< owned by the server
        std::string bytes;    ///< read, but no whole frame yet
    };

    void listen();
    void acceptConnections();
    void readConnections();
    /// Queues what has arrived whole; false when the connection has come to its end.
    bool readFrom(Incoming& incoming);
    bool takeFrames(Incoming& incoming);
    void scheduleDelivery();
    void deliverNext();

    std::shared_ptr<const PeerFolder> m_peers;
    std::string m_peerName;
    BusSender m_sender;
    OnNotify m_receiver;
    BusFilter m_filter;
    std::list<Incoming> m_incoming; ///< the one that is read next at the front
    std::deque<ocuva::Notification> m_queue;
    ocuva::Long m_lastHandler = 0;
    bool m_delivering = false;
    bool m_scheduled = false;
    QLocalServer m_server;
    QObject m_context; ///< receives the signals; made and destroyed with this object
};

} // namespace simhost
