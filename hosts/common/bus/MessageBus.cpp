#include "hosts/common/bus/MessageBus.h"

#include "hosts/common/bus/BusFrame.h"
#include "hosts/common/bus/BusNotifier.h"

#include <utility>

namespace hosts {

MessageBus::MessageBus(const std::filesystem::path& dataFolder, std::function<void(std::string)> log)
    : m_peers(std::make_shared<const PeerFolder>(dataFolder, std::move(log)))
    , m_sender(m_peers) {}

std::unique_ptr<ocuva::Notifier> MessageBus::createNotifier() {
    return std::make_unique<BusNotifier>(m_peers);
}

bool MessageBus::sendByName(const std::string& name) {
    const int taken = m_sender.send(messageOfName(name));
    m_sender.flush();
    return taken > 0;
}

} // namespace hosts
