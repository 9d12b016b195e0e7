#pragma once
// The host's log: one text file that every process of the host appends to.

#include "base/LineFile.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace hosts {

/// Writes lines "2026-11-21 03:04:05.123 <text>". Line ends at the end of the text are removed, line
/// breaks inside are shown as " | ". Lines that cannot be written go to stderr. Never throws; any thread.
///
/// A line is one small write into the system's cache, not to the disk. Threads wait only for each other's
/// writes; the thread that makes the pictures writes a line only when it finds an invalid setting for the
/// first time.
class HostLog {
public:
    /// nowText gives the time stamp of a line; without one it is the local time. It is called under a lock.
    explicit HostLog(std::filesystem::path path, std::function<std::string()> nowText = {});

    /// One line.
    void line(std::string_view text) noexcept;

    /// Another limit than that of FileLimit itself, from the next line on.
    void limitTo(const ocuva::FileLimit& limit);

    /// As passed to the constructor.
    const std::filesystem::path& path() const { return m_file.path(); }

private:
    ocuva::LineFile m_file;
    std::function<std::string()> m_nowText;
    std::mutex m_mutex; ///< keeps time stamps in order within this process
};

} // namespace hosts
