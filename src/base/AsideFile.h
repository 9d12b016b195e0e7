#pragma once
// AsideFile prepares a new file in the target's folder and moves it into place when it is complete, so
// that the previous file stays whole until then. FormerFile does the opposite: it moves a file out of the
// way for a while.
//
// Both have a name in the target's folder that nobody can guess and that is derived from the target's
// name: "Video.tif.ocuva-<24 hexadecimal digits>.aside". The file is locked while its program runs. So
// leftovers of a killed program can be distinguished from a file in use and from somebody else's file.

#include "base/RegularFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// A new file for a target, owned by the user. The destructor removes it unless it was moved into place.
/// For one thread.
class AsideFile {
public:
    /// Creates nothing yet. The target's folder must exist when create() is called.
    explicit AsideFile(std::filesystem::path target);
    ~AsideFile();
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Removes leftovers of killed programs for this target and creates the file: empty, open for reading
    /// and writing, with the access rights of the file that it is to replace. Fails if the target cannot
    /// be replaced. To be called once.
    [[nodiscard]] std::error_code create();

    /// The created file. A writer that needs a descriptor of its own takes a copy.
    const RegularFile& file() const { return m_file; }
    /// The target as passed to the constructor.
    const std::filesystem::path& target() const { return m_target; }
    /// The temporary name; empty before create() and after the move into place.
    const std::filesystem::path& path() const { return m_path; }

    /// Moves the file into place, where a regular file or nothing may be. On an error nothing has changed.
    [[nodiscard]] std::error_code moveIntoPlace();

    /// Moves the file into place only if the target holds `former`, or does not exist if `former` is
    /// empty. Otherwise nothing changes and the error is std::errc::operation_canceled. `content` is what
    /// was written. The two files are exchanged in one step, and a file that somebody else wrote in the
    /// meantime is put back: no change of his is lost, and the target always exists. If the program is
    /// killed in between, finishSwaps completes this. On disks and systems that cannot exchange two files,
    /// the target is checked right before the move. One caller at a time (hold a FileLock).
    [[nodiscard]] std::error_code moveIntoPlaceOf(const std::optional<std::string>& former,
                                                  std::string_view content);

private:
    void closeToMove();

    std::filesystem::path m_target;
    std::filesystem::path m_path;
    RegularFile m_file;
};

/// Moves the file at a target out of the way. The destructor puts it back unless drop() was called. For
/// one thread.
class FormerFile {
public:
    /// Moves nothing yet.
    explicit FormerFile(std::filesystem::path target);
    ~FormerFile();
    FormerFile(const FormerFile&) = delete;
    FormerFile& operator=(const FormerFile&) = delete;

    /// Removes leftovers of killed programs for this target, and moves the target away. It is no error if
    /// the target does not exist. On an error, for example because the target is not a regular file,
    /// nothing has changed.
    [[nodiscard]] std::error_code moveAway();

    /// Deletes the file that was moved away.
    void drop();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path; ///< empty while nothing is moved away
    RegularFile m_file;
};

/// Replaces the file's content as a whole or not at all: writes a temporary file, flushes it to the disk
/// and moves it into place.
[[nodiscard]] std::error_code replaceFile(const std::filesystem::path& file, std::string_view content);

/// The same with AsideFile::moveIntoPlaceOf, after a call of finishSwaps.
[[nodiscard]] std::error_code replaceFileThatHolds(const std::optional<std::string>& former,
                                                   const std::filesystem::path& file,
                                                   std::string_view content);

/// Cleans up after a program that was killed in moveIntoPlaceOf for this target. A file of somebody else
/// that was still to be put back is put back, unless the target has been written since. One caller at a
/// time.
void finishSwaps(const std::filesystem::path& target);

/// Whether this is the temporary name of any target: of a file being prepared, moved away or exchanged.
bool isAsideName(std::string_view name);

} // namespace ocuva
