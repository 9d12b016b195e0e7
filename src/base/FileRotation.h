#pragma once
// Keeps growing files, logs and traces, from filling the disk.

#include <cstdint>
#include <filesystem>

namespace ocuva {

/// The size at which a new file begins, and the number of older files, named file.1 (the newest) to file.3
/// if kept is 3.
struct FileLimit {
    std::uintmax_t maxBytes = 8u * 1024u * 1024u; ///< of one file; exceeded only by a single longer line
    int kept = 3;                                 ///< 1 or more
};

/// Whether appending this many bytes would exceed the limit. An empty file accepts any line, and a file
/// that is not regular has no limit.
bool isFull(const std::filesystem::path& file, std::uintmax_t addedBytes, const FileLimit& limit);

/// If isFull, renames file to file.1, file.1 to file.2 and so on; the last one is deleted. The next
/// program that opens the file for appending begins a new one. Links are followed.
///
/// Any number of threads and processes may append to the file at the same time: a writer that has it open
/// continues in the renamed file. One of them renames the files, under the lock file.lock. The others do
/// not wait but continue to write, as does a writer without the right to rename, so the limit may be
/// exceeded by a few lines, but nothing is lost or delayed.
void rotateWhenFull(const std::filesystem::path& file, std::uintmax_t addedBytes, const FileLimit& limit);

} // namespace ocuva
