#include "hosts/common/services/Database.h"

#include <limits>

namespace hosts {

Database::Database(std::filesystem::path standardsFolder, HostLog& log)
    : m_standardsFolder(std::move(standardsFolder))
    , m_log(log) {}

ocuva::Long Database::objectNew(std::string_view type) {
    if (type != standardType) {
        m_log.line("The database has no objects of type \"" + std::string(type) + "\"");
        return 0;
    }
    do
        m_lastHandle = m_lastHandle == std::numeric_limits<ocuva::Long>::max() ? 1 : m_lastHandle + 1;
    while (m_objects.count(m_lastHandle) > 0);
    m_objects.emplace(m_lastHandle, std::nullopt);
    return m_lastHandle;
}

bool Database::objectRead(ocuva::Long handle, std::string_view name) {
    const auto object = m_objects.find(handle);
    if (object == m_objects.end())
        return false;
    const std::filesystem::path file = m_standardsFolder / std::filesystem::path(std::string(name));
    const StandardFile standard = readStandardFile(file);
    object->second = standard.position;
    if (standard.problem.empty())
        return true;
    m_log.line("Standard " + file.string() + " cannot be read: " + standard.problem);
    return false;
}

bool Database::objectDelete(ocuva::Long handle) { return m_objects.erase(handle) > 0; }

bool Database::stagePos(ocuva::Long handle, ocuva::Long* x, ocuva::Long* y, ocuva::Long* z) const {
    const auto object = m_objects.find(handle);
    if (object == m_objects.end() || !object->second || !x || !y || !z)
        return false;
    *x = object->second->x;
    *y = object->second->y;
    *z = object->second->z;
    return true;
}

} // namespace hosts
