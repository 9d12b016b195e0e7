#pragma once
// The host's named settings stores: INI files in the data folder, each named exactly like its store
// ("Ocuva.INI", "TARN.INI", "TARN"). IniText.h says how their text is understood.

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/IniText.h"
#include "hosts/common/services/PlatformFiles.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace hosts {

/// Time after its last change during which a file's stamp does not prove its content: some file systems
/// have clocks that tick only once in 2 s, and reuse file numbers at once. A stamp that is not a whole
/// second comes from a clock that ticks at least every 10 ms.
///@{
inline constexpr std::int64_t settleNs = 3'000'000'000;
inline constexpr std::int64_t fineSettleNs = 100'000'000;
///@}

/// Whether a file that was read at nowNs (since 1970) cannot change any more behind the same stamp.
bool isSettled(const FileStamp& stamp, std::int64_t nowNs);

/// Any number of processes may read and write the same folder. A read sees every write that was finished
/// before it, and writers of different keys lose nothing. If somebody edits a file by hand, without the
/// lock, while it is being written here, his edit stays and the write is repeated on it.
///
/// A store name that is empty, is "." or "..", contains a separator, a colon or a control character, or
/// ends with ".lock", ".aside", ".former" or ".swap" is refused with a log line. A file that cannot be
/// parsed as INI text counts as empty, with one log line per content; it is never overwritten: the next
/// write renames it to "<name>.damaged-<n>". Any thread; a read never waits for a write to a slow disk.
class Stores {
public:
    /// patience: how long a write waits for another process that is writing the same store.
    /// nowNs: the clock that file stamps are taken from.
    Stores(std::filesystem::path folder, HostLog& log,
           std::chrono::milliseconds patience = std::chrono::seconds(5),
           std::function<std::int64_t()> nowNs = wallClockNs);

    /// The stored value, or the default when store, section or key is absent (getInt: or the value begins
    /// with no whole number of 32 bits; unless it is empty, one log line for each such value says so). An
    /// empty value is a value to getString.
    ///@{
    ocuva::Long getInt(std::string_view section, std::string_view key, ocuva::Long defaultValue,
                       std::string_view store);
    std::string getString(std::string_view section, std::string_view key, std::string_view defaultValue,
                          std::string_view store);
    ///@}

    /// On the disk when it returns true. False, with a log line, when it could not be written or IniText
    /// refuses it.
    bool setString(std::string_view section, std::string_view key, std::string_view value,
                   std::string_view store);

    /// Number of entries of a section, and the entry of a number counted from 1 as "key=value"; "" for a
    /// number out of range.
    ///@{
    ocuva::Long entryCount(std::string_view section, std::string_view store);
    std::string entry(std::string_view section, ocuva::Long number, std::string_view store);
    ///@}

    /// A number that is another one whenever the store's content is: who reads often keeps what he read
    /// together with this number. Costs one look at the file's stamp while nothing changes. Numbers of
    /// different stores, objects or processes mean nothing to each other.
    std::uint64_t revision(std::string_view store);

private:
    struct Cached {
        std::optional<FileStamp> stamp;
        bool settled = false; ///< the stamp alone proves that the content is still the same
        IniText ini;          ///< empty if the content cannot be used
        std::string unusable; ///< that content, to recognise the same damage
        std::string problem;  ///< why it cannot be used; empty for a good or an absent file
        bool damaged = false; ///< not INI text, as opposed to a file that the system does not let us read
        std::uint64_t revision = 0;
    };

    std::filesystem::path pathOf(std::string_view store) const;
    bool isStoreName(std::string_view store);
    Cached& refreshed(std::string_view store);
    void read(Cached& cached, std::string_view store);
    void complainOnce(std::string_view section, std::string_view key, std::string_view store,
                      const std::string& value, ocuva::Long used);
    Cached copyOfRefreshed(std::string_view store);
    bool write(std::string_view section, std::string_view key, std::string_view value,
               std::string_view store);
    std::optional<bool> tryToWrite(std::string_view section, std::string_view key, std::string_view value,
                                   std::string_view store);
    void waitForEditor(std::string_view store) const;
    bool moveDamagedAside(std::string_view store);
    bool refuse(std::string_view store, const std::string& reason);

    std::filesystem::path m_folder;
    HostLog& m_log;
    std::chrono::milliseconds m_patience;
    std::function<std::int64_t()> m_nowNs;
    std::mutex m_writing; ///< taken before m_mutex; held while a write lasts, the disk's time included
    std::mutex m_mutex;   ///< of m_cache
    std::map<std::string, Cached, std::less<>> m_cache;
    std::map<std::string, std::string> m_refused; ///< the last value of a key that was no number, by its name
};

} // namespace hosts
