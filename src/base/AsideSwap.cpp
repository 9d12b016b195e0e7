// Exchanges a temporary file with a target that somebody else may change at any moment.
//
// During the exchange the name of the temporary file contains, besides random digits, the hashes of the
// target's content before and after. A killed program leaves one of three things: the new content or the
// replaced one, which the hashes identify and which is removed; or somebody else's file that was still to
// be put back.

#include "base/AsideFile.h"
#include "base/AsideName.h"

#include <chrono>
#include <thread>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t hashDigits = 8;

std::string hashDigitsOf(std::string_view content) { return hexadecimal(hashOf(content), hashDigits); }

/// An editor that has opened a file writes to it under any name, in any number of writes.
void waitForWriter(const RegularFile& file) {
    constexpr int looks = 20; // somebody may keep it open forever
    constexpr std::chrono::milliseconds pause(10);
    for (int n = 0; n < looks && file.isBeingWritten(); ++n) {
        std::this_thread::sleep_for(pause);
    }
}

/// Nothing if the file is missing, not a regular file or unreadable.
std::optional<std::string> contentOf(const fs::path& file) {
    constexpr std::size_t maxBytes = 64u * 1024u * 1024u;
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(file, error))) {
        return std::nullopt;
    }
    const RegularFile opened = RegularFile::openToRead(file, error);
    if (!opened.isOpen()) {
        return std::nullopt;
    }
    waitForWriter(opened);
    return opened.readAll(maxBytes, error);
}

bool isAbsent(const fs::path& file) {
    std::error_code error;
    return fs::symlink_status(file, error).type() == fs::file_type::not_found;
}

void removeQuietly(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
}

std::error_code changedMeanwhile() { return std::make_error_code(std::errc::operation_canceled); }

/// Exchanges the two files until the file that comes back holds what the target was expected to hold.
/// Otherwise somebody else has written it in the meantime, and his file goes back to where it was.
std::error_code swapUntilKnown(const fs::path& aside, const fs::path& target,
                               std::optional<std::string> believed, std::optional<std::string> put) {
    constexpr int most = 100; // nobody writes that often; the temporary file then stays
    for (int n = 0; n < most; ++n) {
        if (const std::error_code error = exchangeNames(aside, target)) {
            if (n == 0) {
                return error;
            }
            static_cast<void>(renameIfFree(aside, target)); // in case the target was removed
            return changedMeanwhile();
        }
        std::optional<std::string> back = contentOf(aside);
        if (back == believed) {
            removeQuietly(aside);
            return n == 0 ? std::error_code() : changedMeanwhile();
        }
        believed = std::move(put);
        put = std::move(back);
    }
    return changedMeanwhile();
}

} // namespace

std::error_code AsideFile::moveIntoPlaceOf(const std::optional<std::string>& former,
                                           std::string_view content) {
    if (const std::error_code refusal = replaceable(m_target)) {
        return refusal;
    }
    if (former ? contentOf(m_target) != former : !isAbsent(m_target)) {
        return changedMeanwhile();
    }
    closeToMove();
    if (!former) {
        const std::error_code error = renameIfFree(m_path, m_target);
        if (!error) {
            m_file.close();
            m_path.clear();
        }
        return error == std::errc::file_exists ? changedMeanwhile() : error;
    }
    const std::string digits = randomDigits() + hashDigitsOf(*former) + hashDigitsOf(content);
    const fs::path swapped = asideName(m_target, swapKind, digits);
    if (const std::error_code error = renameIfFree(m_path, swapped)) {
        return error;
    }
    m_path = swapped;
    const std::error_code error = swapUntilKnown(m_path, m_target, former, std::string(content));
    if (error == std::errc::not_supported) {
        return moveIntoPlace();
    }
    if (error == std::errc::no_such_file_or_directory) {
        return changedMeanwhile(); // the target was removed
    }
    if (!error || error == std::errc::operation_canceled) {
        m_path.clear(); // removed, or somebody else's file that could not be put back
    }
    return error;
}

void finishSwaps(const fs::path& target) {
    forEachLeftover(target, swapKind, [&target](const fs::path& file, const std::string& digits) {
        const std::string before = digits.substr(digits.size() - 2 * hashDigits, hashDigits);
        const std::string after = digits.substr(digits.size() - hashDigits);
        const std::optional<std::string> left = contentOf(file);
        if (!left) {
            return;
        }
        const std::string found = hashDigitsOf(*left);
        const std::optional<std::string> now = contentOf(target);
        const bool isSomebodyElses = found != before && found != after;
        if (isSomebodyElses && now && hashDigitsOf(*now) == after) {
            static_cast<void>(swapUntilKnown(file, target, now, left));
        } else {
            removeQuietly(file);
        }
    });
}

} // namespace ocuva
