#pragma once
// Keeps files that only grow, logs and traces, from filling the disk.

#include <cstdint>
#include <filesystem>

namespace ocuva {

/// How much is kept: a file of maxBytes, and behind it the `kept` files before it, named file.1 (the newest)
/// to file.3 where kept is 3.
struct FileLimit {
    std::uintmax_t maxBytes = 8u * 1024u * 1024u; ///< of one file; more only by a line that alone is longer
    int kept = 3;                                 ///< 1 or more
};

/// Asked before so many bytes are appended: whether they would lead beyond the limit. A file with nothing in
/// it takes any line, and what is no regular file has no limit.
bool isFull(const std::filesystem::path& file, std::uintmax_t addedBytes, const FileLimit& limit);

/// Where isFull, moves the file to file.1, that one to file.2 and so on; the last is dropped. Then there is
/// no file of that name, and the next who opens it for appending begins a new one. Links are followed.
///
/// Any number of threads and processes may append to the file meanwhile: whoever has it open writes on into
/// the file that was moved. One of them moves, under the lock file.lock; the others do not wait but write on,
/// as does whoever is not allowed to move files, so that the limit may be exceeded by some lines and nothing
/// is ever lost or held up.
void rotateWhenFull(const std::filesystem::path& file, std::uintmax_t addedBytes, const FileLimit& limit);

} // namespace ocuva
