#include "standards/StandardList.h"

#include "base/FileLock.h"
#include "settings/SettingsTable.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

namespace ocuva {

namespace {

constexpr const char* section = "StandardList";
constexpr const char* sizeKey = "StandardListSize";
constexpr const char* objectType = "OCUVASTD";

std::string keyOf(Long index) { return "Standard" + std::to_string(index); }

const char* programStore() { return storeName(SettingsStore::Program).c_str(); }

// The text that a host wrote into a buffer, limited to the buffer whatever length the host reports.
template <std::size_t capacity> std::string textOf(const std::array<char, capacity>& buffer, Long length) {
    const Long bounded = std::clamp<Long>(length, 0, static_cast<Long>(capacity));
    return {buffer.data(), static_cast<std::size_t>(bounded)};
}

constexpr std::chrono::milliseconds noPatience{0};
constexpr std::chrono::milliseconds storingPatience{1000};

std::optional<FileLock> lockOf(const UnfinishedList& list, std::chrono::milliseconds patience) {
    if (list.file().empty()) {
        return {};
    }
    std::filesystem::path file = list.file();
    file += ".lock";
    return std::optional<FileLock>(std::in_place, file, patience);
}

} // namespace

Long StandardList::size() const {
    const Long size = m_reg.TarnRegisterGetInt(section, sizeKey, 0, programStore());
    return std::min<Long>(size, std::numeric_limits<Integer>::max());
}

bool StandardList::write(const std::string& key, const std::string& value) {
    return m_reg.TarnRegisterSetString(section, key.c_str(), value.c_str(), programStore()) != 0;
}

bool StandardList::GetNextStandard(std::string& name, Integer& index) const {
    const Long last = size();
    for (Long i = Long{index} + 1; i <= last; ++i) {
        std::array<char, nameLength> buffer{};
        const Long length = m_reg.TarnRegisterGetString(section, keyOf(i).c_str(), "", buffer.data(),
                                                        nameLength, programStore());
        if (length > 0) {
            index = static_cast<Integer>(i);
            name = textOf(buffer, length);
            return true;
        }
    }
    return false;
}

bool StandardList::AppendStandard(const std::string& name, bool clear) {
    Long n = size();
    if (clear) {
        n = 0;
        if (name.empty()) {
            return write(sizeKey, "0");
        }
    }
    if (name.empty() || n >= std::numeric_limits<Integer>::max()) {
        return name.empty();
    }
    n = std::max<Long>(n, 0);
    return write(keyOf(n + 1), name) && write(sizeKey, std::to_string(n + 1));
}

bool StandardList::storeEach(const std::vector<std::string>& names) {
    if (names.empty()) {
        return AppendStandard("", true);
    }
    bool all = true;
    for (std::size_t i = 0; i < names.size(); ++i) {
        all = AppendStandard(names[i], i == 0) && all;
    }
    return all;
}

bool StandardList::store(const std::vector<std::string>& names) {
    // Held against a program that starts meanwhile and would take the list for one that was cut off.
    const std::optional<FileLock> lock = lockOf(m_unfinished, storingPatience);
    m_unfinished.keep(names);
    const bool all = storeEach(names);
    if (all) {
        m_unfinished.drop();
    }
    return all;
}

std::vector<std::string> StandardList::names() const {
    std::vector<std::string> names;
    std::string name;
    Integer index = 0;
    while (GetNextStandard(name, index)) {
        names.push_back(name);
    }
    return names;
}

std::optional<std::size_t> StandardList::finishStoring() {
    std::optional<std::vector<std::string>> kept = m_unfinished.names();
    if (!kept) {
        return {};
    }
    const std::optional<FileLock> lock = lockOf(m_unfinished, noPatience);
    if (!lock || !lock->held()) {
        return {};
    }
    kept = m_unfinished.names(); // the program that had the lock may have dropped it
    if (!kept) {
        return {};
    }
    const bool differs = *kept != names();
    if (!differs || storeEach(*kept)) {
        m_unfinished.drop();
    }
    return differs ? std::optional(kept->size()) : std::nullopt;
}

std::string StandardList::directory() const {
    std::array<char, nameLength> buffer{};
    return textOf(buffer, m_libProxy.TarnGetDirStd(buffer.data(), nameLength));
}

std::optional<StagePosition> StandardList::position(const std::string& name) const {
    StandardObject object(m_libProxy);
    if (!object.isOpen() || !object.read(name)) {
        return {};
    }
    return object.position();
}

StandardObject::StandardObject(TnLibProxy& libProxy)
    : m_libProxy(libProxy)
    , m_handle(libProxy.TarnDbObjectNew(objectType)) {}

StandardObject::~StandardObject() {
    if (isOpen()) {
        m_libProxy.TarnDbObjectDelete(m_handle);
    }
}

bool StandardObject::read(const std::string& name) {
    return m_libProxy.TarnDbObjectRead(m_handle, name.c_str()) != 0;
}

std::optional<StagePosition> StandardObject::position() const {
    StagePosition position;
    if (m_libProxy.TarnDbGetStagePos(m_handle, &position.x, &position.y, &position.z) == 0) {
        return {};
    }
    return position;
}

} // namespace ocuva
