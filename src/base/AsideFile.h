#pragma once
// A file that is prepared next to its place and moved there when it is complete, so that what was there
// before stays whole until then; and the other way round, a file that is taken out of the way for a while.
//
// Both have a name in the target's folder that nobody can guess and that is made from the target's:
// "Video.tif.ocuva-<24 hexadecimal digits>.aside". While its program runs, such a file is locked. So what a
// program that was killed left behind can be told from a file that is in use, and from somebody else's.

#include "base/RegularFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// A new file for a target, of the user's own. Whatever it holds is removed at the end, unless it was moved
/// into place. One thread.
class AsideFile {
public:
    /// Makes nothing yet. The target's folder has to be there when the file is made.
    explicit AsideFile(std::filesystem::path target);
    ~AsideFile();
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Removes what dead programs left of this target and makes the file, empty, open for reading and
    /// writing, and with the access rights of the one that it is to replace. Refused where the target cannot
    /// be replaced. Once.
    [[nodiscard]] std::error_code create();

    /// What was made. A writer that needs a number of its own takes a copy.
    const RegularFile& file() const { return m_file; }
    /// Where the file goes in the end, as it was given.
    const std::filesystem::path& target() const { return m_target; }
    /// Its name until then; empty before it is made and once it is in place.
    const std::filesystem::path& path() const { return m_path; }

    /// Puts the file where a regular file or nothing is. On an error nothing has changed.
    [[nodiscard]] std::error_code moveIntoPlace();

    /// The same, but only in the place of a file that holds `former`, or of none at all; else nothing has
    /// changed and the error is std::errc::operation_canceled. `content` is what was written. The two files
    /// are exchanged in one step, and somebody else's that comes back is put where it was: there is no moment
    /// at which a change of his is lost, and none without a file at the target. A program that is killed in
    /// between leaves it for finishSwaps. On disks and systems that cannot exchange two files the target is
    /// looked at right before the move. One caller at a time (hold a FileLock).
    [[nodiscard]] std::error_code moveIntoPlaceOf(const std::optional<std::string>& former,
                                                  std::string_view content);

private:
    void closeToMove();

    std::filesystem::path m_target;
    std::filesystem::path m_path;
    RegularFile m_file;
};

/// What is at a target, out of the way: put back at the end, unless it was dropped. One thread.
class FormerFile {
public:
    /// Moves nothing yet.
    explicit FormerFile(std::filesystem::path target);
    ~FormerFile();
    FormerFile(const FormerFile&) = delete;
    FormerFile& operator=(const FormerFile&) = delete;

    /// Removes what dead programs left of this target, and moves the target away. No error where there is
    /// nothing. On an error, such as for what is not a regular file, nothing has changed.
    [[nodiscard]] std::error_code moveAway();

    /// Removes it for good.
    void drop();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path; ///< empty while nothing is moved away
    RegularFile m_file;
};

/// Gives the file this content as a whole or not at all: written aside, brought to the disk, moved into
/// place.
[[nodiscard]] std::error_code replaceFile(const std::filesystem::path& file, std::string_view content);

/// The same with AsideFile::moveIntoPlaceOf, after finishSwaps.
[[nodiscard]] std::error_code replaceFileThatHolds(const std::optional<std::string>& former,
                                                   const std::filesystem::path& file,
                                                   std::string_view content);

/// Looks for what a program left of this target that was killed in moveIntoPlaceOf. Somebody else's file that
/// was still to be put back is put back, unless the target has been written since. One caller at a time.
void finishSwaps(const std::filesystem::path& target);

/// Whether this is the name of a file aside, a former file or one left by a swap, of whichever target.
bool isAsideName(std::string_view name);

} // namespace ocuva
