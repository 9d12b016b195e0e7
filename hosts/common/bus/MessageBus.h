#pragma once
// The notifier of the hosts here and their messages by name, between all processes of one user with the
// same data folder. There is no central process: each subscribed notifier listens on its own local socket,
// announced in the folder "peers" of the data folder.

#include "hostlink/Notifier.h"
#include "hosts/common/bus/BusSender.h"
#include "hosts/common/bus/PeerFolder.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace hosts {

/// Needs a QCoreApplication. Used on one thread; notifiers may be created on others and then live there.
/// Problems are logged, one line each, and never disturb the program.
class MessageBus {
public:
    /// `log` takes one line without a line feed; it is called on the threads of bus and notifiers.
    MessageBus(const std::filesystem::path& dataFolder, std::function<void(std::string)> log);

    /// The notifier may outlive the bus.
    std::unique_ptr<ocuva::Notifier> createNotifier();

    /// Sends the message for the name (messageOfName) to every subscribed notifier, including this
    /// process's own, and waits until it has been passed on (BusSender::flush), so that the process may
    /// end at once. True if at least one notifier received it, whatever its filter.
    bool sendByName(const std::string& name);

private:
    std::shared_ptr<const PeerFolder> m_peers;
    BusSender m_sender;
};

} // namespace hosts
