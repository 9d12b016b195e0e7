#include "hosts/common/services/Stores.h"

#include "base/AsideFile.h"
#include "base/FileLock.h"
#include "base/RegularFile.h"
#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <thread>

namespace hosts {

namespace {

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && equalIgnoringCase(text.substr(text.size() - end.size()), end);
}

std::string stampText(const FileStamp& stamp) {
    return std::to_string(stamp.size) + ' ' + std::to_string(stamp.modifiedNs);
}

/// The file's content as INI text, or the problem with it.
struct Content {
    IniText ini;
    std::string unusable;
    std::string problem;
    bool damaged = false;
};

Content contentOf(FileReading reading) {
    switch (reading.state) {
    case FileReading::State::absent:
        return {};
    case FileReading::State::unreadable:
        return {{}, {}, std::move(reading.problem), false};
    case FileReading::State::tooLarge:
        return {{}, stampText(reading.stamp), "it is larger than 16 MiB", true};
    case FileReading::State::read:
        break;
    }
    Content content;
    std::string whole = reading.text;
    if (auto ini = IniText::parse(std::move(reading.text), &content.problem)) {
        content.ini = std::move(*ini);
    } else {
        content.unusable = std::move(whole);
        content.damaged = true;
    }
    return content;
}

} // namespace

bool isSettled(const FileStamp& stamp, std::int64_t nowNs) {
    constexpr std::int64_t second = 1'000'000'000;
    const bool isFine = stamp.modifiedNs % second != 0;
    return nowNs - std::max(stamp.modifiedNs, stamp.changedNs) > (isFine ? fineSettleNs : settleNs);
}

Stores::Stores(std::filesystem::path folder, HostLog& log, std::chrono::milliseconds patience,
               std::function<std::int64_t()> nowNs)
    : m_folder(std::move(folder))
    , m_log(log)
    , m_patience(patience)
    , m_nowNs(std::move(nowNs)) {}

ocuva::Long Stores::getInt(std::string_view section, std::string_view key, ocuva::Long defaultValue,
                           std::string_view store) {
    const std::lock_guard guard(m_mutex);
    const std::optional<std::string> value =
        isStoreName(store) ? refreshed(store).ini.value(section, key) : std::nullopt;
    if (!value)
        return defaultValue;
    const std::optional<ocuva::Long> number = leadingWholeNumber(*value);
    if (!number && !value->empty())
        complainOnce(section, key, store, *value, defaultValue);
    return number.value_or(defaultValue);
}

void Stores::complainOnce(std::string_view section, std::string_view key, std::string_view store,
                          const std::string& value, ocuva::Long used) {
    const std::string name = '[' + std::string(section) + "] " + std::string(key);
    std::string& refused = m_refused[std::string(store) + '\n' + name];
    if (refused == value)
        return;
    refused = value;
    m_log.line(name + '=' + value + " in " + std::string(store) + " is no whole number; " +
               std::to_string(used) + " is used");
}

std::string Stores::getString(std::string_view section, std::string_view key, std::string_view defaultValue,
                              std::string_view store) {
    const std::lock_guard guard(m_mutex);
    if (!isStoreName(store))
        return std::string(defaultValue);
    auto value = refreshed(store).ini.value(section, key);
    return value ? std::move(*value) : std::string(defaultValue);
}

ocuva::Long Stores::entryCount(std::string_view section, std::string_view store) {
    const std::lock_guard guard(m_mutex);
    return isStoreName(store) ? static_cast<ocuva::Long>(refreshed(store).ini.entries(section).size()) : 0;
}

std::string Stores::entry(std::string_view section, ocuva::Long number, std::string_view store) {
    const std::lock_guard guard(m_mutex);
    if (number < 1 || !isStoreName(store))
        return {};
    const auto entries = refreshed(store).ini.entries(section);
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < entries.size() ? entries[index] : std::string();
}

std::uint64_t Stores::revision(std::string_view store) {
    const std::lock_guard guard(m_mutex);
    return isStoreName(store) ? refreshed(store).revision : 0;
}

bool Stores::setString(std::string_view section, std::string_view key, std::string_view value,
                       std::string_view store) {
    const std::lock_guard guard(m_writing);
    if (!isStoreName(store))
        return false;
    std::filesystem::path lockFile = pathOf(store);
    lockFile += ".lock";
    const ocuva::FileLock lock(lockFile, m_patience);
    return lock.held() ? write(section, key, value, store) : refuse(store, lock.problem());
}

/// The caller holds the store's lock. Concurrent readers get the old file or the new one, and recognise
/// the new one by its stamp.
bool Stores::write(std::string_view section, std::string_view key, std::string_view value,
                   std::string_view store) {
    constexpr int attempts = 20; // an editor cannot be that quick
    for (int n = 0; n < attempts; ++n)
        if (const std::optional<bool> done = tryToWrite(section, key, value, store))
            return *done;
    return refuse(store, "somebody else changes it all the time");
}

std::optional<bool> Stores::tryToWrite(std::string_view section, std::string_view key, std::string_view value,
                                       std::string_view store) {
    waitForEditor(store);
    const Cached cached = copyOfRefreshed(store);
    if (!cached.problem.empty() && !cached.damaged)
        return refuse(store, cached.problem);
    IniText edited = cached.ini;
    if (!edited.setValue(section, key, value))
        return refuse(store, '[' + std::string(section) + "] " + std::string(key) + "=" + std::string(value) +
                                 " cannot be kept in an INI file");
    if (cached.damaged && !moveDamagedAside(store))
        return false;
    if (cached.stamp && !cached.damaged && edited.text() == cached.ini.text())
        return true;
    const auto former =
        cached.stamp && !cached.damaged ? std::optional(cached.ini.text()) : std::optional<std::string>();
    const std::error_code error = ocuva::replaceFileThatHolds(former, pathOf(store), edited.text());
    if (error == std::errc::operation_canceled)
        return std::nullopt;
    return !error || refuse(store, error.message());
}

/// An editor that writes in place empties the file first.
void Stores::waitForEditor(std::string_view store) const {
    constexpr int looks = 50;
    constexpr std::chrono::milliseconds pause(10);
    for (int n = 0; n < looks; ++n) {
        const std::optional<FileStamp> stamp = fileStamp(pathOf(store));
        if (!stamp || stamp->size > 0)
            return;
        std::this_thread::sleep_for(pause);
    }
}

bool Stores::moveDamagedAside(std::string_view store) {
    std::error_code error;
    std::filesystem::path target;
    for (int n = 1; target.empty() || std::filesystem::exists(std::filesystem::symlink_status(target, error));
         ++n) {
        target = pathOf(store);
        target += ".damaged-" + std::to_string(n);
    }
    error = ocuva::replaceable(pathOf(store));
    if (!error)
        error = ocuva::moveFile(pathOf(store), target, std::chrono::milliseconds(0));
    if (error)
        return refuse(store, "it is damaged and cannot be moved aside: " + error.message());
    m_log.line("Store " + pathOf(store).string() + " is damaged; it was kept as " +
               target.filename().string() + " and a new one is begun");
    return true;
}

bool Stores::refuse(std::string_view store, const std::string& reason) {
    m_log.line("Store " + pathOf(store).string() + " could not be written: " + reason);
    return false;
}

std::filesystem::path Stores::pathOf(std::string_view store) const {
    return m_folder / std::filesystem::path(std::string(store));
}

bool Stores::isStoreName(std::string_view store) {
    const bool plain = std::none_of(store.begin(), store.end(), [](char c) {
        return c == '/' || c == '\\' || c == ':' || static_cast<unsigned char>(c) < 0x20;
    });
    const bool taken = store.empty() || store == "." || store == ".." || endsWith(store, ".lock") ||
                       endsWith(store, ".aside") || endsWith(store, ".former") || endsWith(store, ".swap");
    if (plain && !taken)
        return true;
    m_log.line('"' + std::string(store) + "\" is no name of a settings store");
    return false;
}

Stores::Cached Stores::copyOfRefreshed(std::string_view store) {
    const std::lock_guard guard(m_mutex);
    return refreshed(store);
}

Stores::Cached& Stores::refreshed(std::string_view store) {
    auto found = m_cache.find(store);
    if (found == m_cache.end())
        found = m_cache.emplace(std::string(store), Cached{}).first;
    Cached& cached = found->second;
    if (!cached.settled || cached.stamp != fileStamp(pathOf(store)))
        read(cached, store);
    return cached;
}

void Stores::read(Cached& cached, std::string_view store) {
    FileReading reading = readFile(pathOf(store), IniText::maxBytes);
    const bool hasStamp =
        reading.state == FileReading::State::read || reading.state == FileReading::State::tooLarge;
    cached.stamp = hasStamp ? std::optional(reading.stamp) : std::nullopt;
    cached.settled = hasStamp && isSettled(reading.stamp, m_nowNs());

    Content content = contentOf(std::move(reading));
    if (content.ini.text() == cached.ini.text() && content.unusable == cached.unusable &&
        content.problem == cached.problem && cached.revision > 0)
        return;
    cached.ini = std::move(content.ini);
    cached.unusable = std::move(content.unusable);
    cached.problem = std::move(content.problem);
    cached.damaged = content.damaged;
    ++cached.revision;
    if (!cached.problem.empty())
        m_log.line("Store " + pathOf(store).string() + " cannot be read, defaults hold: " + cached.problem);
}

} // namespace hosts
