#include "hosts/common/HostBasis.h"

#include <stdexcept>
#include <utility>
#include <variant>

namespace hosts {

namespace {

DataFolder openFolder(const std::filesystem::path& path, const DataFolder::Seeds& seeds) {
    std::variant<DataFolder, std::string> opened =
        DataFolder::open(path.empty() ? DataFolder::locate() : path, seeds);
    if (const std::string* const problem = std::get_if<std::string>(&opened)) {
        throw std::runtime_error(*problem);
    }
    return std::get<DataFolder>(std::move(opened));
}

} // namespace

HostBasis::HostBasis(HostOptions hostOptions, const DataFolder::Seeds& seeds)
    : options(std::move(hostOptions))
    , folder(openFolder(options.dataFolder, seeds))
    , log(folder.logFile())
    , stores(folder.path(), log)
    , database(folder.standards(), log)
    , field(stores, log) {}

MessageBus& HostBasis::bus() {
    if (!m_bus) {
        m_bus =
            std::make_unique<MessageBus>(folder.path(), [this](const std::string& text) { log.line(text); });
    }
    return *m_bus;
}

} // namespace hosts
