#include "base/FileRotation.h"

#include "base/FileLock.h"
#include "base/RegularFile.h"

#include <string>
#include <system_error>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

fs::path withEnding(const fs::path& file, const std::string& ending) {
    fs::path result = file;
    result += ending;
    return result;
}

fs::path numbered(const fs::path& file, int number) { return withEnding(file, '.' + std::to_string(number)); }

/// Files after the first gap need not be moved. A gap exists if a process was killed between two moves.
int firstFree(const fs::path& file, int kept) {
    std::error_code error;
    int number = 1;
    while (number < kept && fs::exists(fs::symlink_status(numbered(file, number), error))) {
        ++number;
    }
    return number;
}

/// Whether it was moved; only a regular file is replaced.
bool move(const fs::path& from, const fs::path& to) {
    // Not waited for: a file that stays in use would hold up every line.
    constexpr std::chrono::milliseconds patience{0};
    return !replaceable(to) && !moveFile(from, to, patience);
}

void moveOn(const fs::path& file, int kept) {
    for (int number = firstFree(file, kept); number > 1; --number) {
        if (!move(numbered(file, number - 1), numbered(file, number))) {
            return;
        }
    }
    move(file, numbered(file, 1));
}

} // namespace

bool isFull(const fs::path& file, std::uintmax_t addedBytes, const FileLimit& limit) {
    std::error_code error;
    if (const fs::file_status status = fs::status(file, error); !fs::is_regular_file(status)) {
        return false;
    }
    const std::uintmax_t size = fs::file_size(file, error);
    return !error && size > 0 && size + addedBytes > limit.maxBytes;
}

void rotateWhenFull(const fs::path& file, std::uintmax_t addedBytes, const FileLimit& limit) {
    if (!isFull(file, addedBytes, limit)) {
        return;
    }
    std::error_code error;
    const fs::path real = fs::canonical(file, error);
    if (error) {
        return;
    }
    const FileLock lock(withEnding(real, ".lock"), std::chrono::milliseconds(0));
    // The previous holder of the lock may have moved the file already.
    if (lock.held() && isFull(real, addedBytes, limit)) {
        moveOn(real, limit.kept);
    }
}

} // namespace ocuva
