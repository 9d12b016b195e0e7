#pragma once
// The few file operations, and facts about process and clock, that differ between systems; all of the
// folder's platform code is behind this header. Nothing here throws on a failing file: problems
// come back as the system's own words ("Permission denied"), success as an empty text. Any thread.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace hosts {

/// Properties that change when somebody writes or replaces a file.
struct FileStamp {
    std::uint64_t size = 0; ///< bytes
    std::int64_t modifiedNs =
        0;                      ///< since 1970; as fine as the file system's clock, which may tick in seconds
    std::int64_t changedNs = 0; ///< last change of content, name or rights; 0 if the system has none
    std::uint64_t identity =
        0; ///< number of the file on its volume, which may be given again; on Windows its birth
    bool operator==(const FileStamp&) const = default;
};

/// Nothing when there is no such file.
std::optional<FileStamp> fileStamp(const std::filesystem::path& file);

/// What a file held, or why nothing was read.
struct FileReading {
    /// absent is no problem; the others have left text empty.
    enum class State { absent, read, tooLarge, unreadable };
    State state = State::absent; ///< which of them
    std::string text;            ///< when read
    FileStamp stamp;             ///< when read or too large: as it was before the first byte was read
    std::string problem;         ///< when unreadable
};

/// Reads a regular file of at most maxBytes; anything but a regular file is unreadable.
FileReading readFile(const std::filesystem::path& file, std::size_t maxBytes);

/// Gives the file this content as a whole or not at all: written aside, brought to the disk, renamed over.
/// Only a regular file is ever replaced; it keeps its access rights, and one that its owner may not write is
/// left alone. One writer at a time (hold a FileLock).
std::string replaceFile(const std::filesystem::path& file, std::string_view text);

/// Wall clock since 1970, the one that file stamps are taken from.
std::int64_t wallClockNs();

/// Local time as "2026-11-21 03:04:05.123".
std::string localTimeText();

unsigned long processId();

} // namespace hosts
