#pragma once
// The notifier of our hosts and their messages by name, between all processes of one user that work with
// the same data folder. There is no process in the middle: each subscribed notifier listens on a local socket
// of its own and says so in the folder "peers" of the data folder.

#include "hostlink/Notifier.h"
#include "hosts/common/bus/BusSender.h"
#include "hosts/common/bus/PeerFolder.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace hosts {

/// Needs a QCoreApplication. Used on one thread; notifiers may be made on others and then live there. Trouble
/// is told to the log, one line each, and never disturbs the program.
class MessageBus {
public:
    /// `log` takes one line without a line feed; it is called on the threads of bus and notifiers.
    MessageBus(const std::filesystem::path& dataFolder, std::function<void(std::string)> log);

    /// The notifier may outlive the bus.
    std::unique_ptr<ocuva::Notifier> createNotifier();

    /// Sends the message that the name stands for (messageOfName) to every subscribed notifier, this
    /// process's own included, and waits until it is on its way (BusSender::flush), so that the process may
    /// end at once. True when at least one notifier took it, whether or not its filter lets it through.
    bool sendByName(const std::string& name);

private:
    std::shared_ptr<const PeerFolder> m_peers;
    BusSender m_sender;
};

} // namespace hosts
