#pragma once
// The host's log: one text file that every process of the host appends to.

#include "base/FileRotation.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace simhost {

/// Appends whole lines. Each line is one write of its own that is in the file when the call returns, so lines
/// of several processes never mix and all stay readable after a kill. The file is opened for each line: it
/// may be moved away or deleted at any time, the next line makes it anew. A full file is moved away
/// (base/FileRotation.h); no call ever waits for another process. Any thread.
class LineFile {
public:
    /// Nothing is written yet.
    explicit LineFile(std::filesystem::path path, ocuva::FileLimit limit = {})
        : m_path(std::move(path))
        , m_limit(limit) {}

    /// Adds a line feed to the line. Empty on success, else the system's words for what went wrong.
    std::string append(std::string_view line);

    /// From the next line on; not while another thread appends.
    void limitTo(const ocuva::FileLimit& limit) { m_limit = limit; }

    /// As given at its making.
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
    ocuva::FileLimit m_limit;
    std::atomic<bool> m_torn = false; ///< the last line could be written in part only
};

/// Writes lines "2026-11-21 03:04:05.123 <text>". Line ends at the end of the text fall away, line breaks
/// inside are shown as " | ". What cannot be written to the file goes to stderr. Never throws; any thread.
///
/// A line is one small write into the system's cache, not onto the disk. Threads wait for each other's writes
/// and for nothing else; the thread that makes the pictures writes a line only when it meets an unusable
/// setting for the first time.
class HostLog {
public:
    /// nowText gives the time stamp of a line; without one it is the local time. It is called under a lock.
    explicit HostLog(std::filesystem::path path, std::function<std::string()> nowText = {});

    /// One line.
    void line(std::string_view text) noexcept;

    /// Another limit than that of FileLimit itself, from the next line on.
    void limitTo(const ocuva::FileLimit& limit);

    /// As given at its making.
    const std::filesystem::path& path() const { return m_file.path(); }

private:
    LineFile m_file;
    std::function<std::string()> m_nowText;
    std::mutex m_mutex; ///< keeps time stamps in order within this process
};

} // namespace simhost
