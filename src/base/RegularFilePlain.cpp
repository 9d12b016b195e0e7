// Opening of regular files on systems other than Windows.

#include "base/RegularFile.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr mode_t rightsOfAny = 0666; // reduced by the user's mask
constexpr mode_t rightsOfOwner = 0600;
constexpr mode_t allRights = 07777;

// With O_NONBLOCK, opening a pipe fails instead of waiting for its other end.
constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

std::error_code lastError() { return {errno, std::generic_category()}; }

/// The system's error for a folder, the program's own for anything else.
std::error_code refusalOf(mode_t type) {
    return S_ISDIR(type) ? std::make_error_code(std::errc::is_a_directory)
                         : make_error_code(FileRefusal::notRegular);
}

bool isTrustedOwner(uid_t owner) { return owner == ::geteuid() || owner == 0; }

} // namespace

RegularFile RegularFile::openExisting(const fs::path& file, int way, std::error_code& error) {
    error.clear();
    struct stat about {};
    // Checked first: merely opening some devices has an effect.
    if (::stat(file.c_str(), &about) == 0 && !S_ISREG(about.st_mode)) {
        error = refusalOf(about.st_mode);
        return {};
    }
    RegularFile opened(::open(file.c_str(), way | always, rightsOfAny));
    if (!opened.isOpen()) {
        error = errno == ELOOP && (way & O_NOFOLLOW) != 0 ? make_error_code(FileRefusal::link) : lastError();
    } else if (::fstat(opened.m_descriptor, &about) != 0 || !S_ISREG(about.st_mode)) {
        error = FileRefusal::notRegular;
        opened.close();
    }
    return opened;
}

RegularFile RegularFile::openToRead(const fs::path& file, std::error_code& error) {
    return openExisting(file, O_RDONLY, error);
}

RegularFile RegularFile::openToAppend(const fs::path& file, std::error_code& error) {
    struct stat about {};
    const bool isLink = ::lstat(file.c_str(), &about) == 0 && S_ISLNK(about.st_mode);
    if (isLink && !isTrustedOwner(about.st_uid)) {
        error = FileRefusal::link;
        return {};
    }
    return openExisting(file, O_WRONLY | O_APPEND | (isLink ? 0 : O_CREAT | O_NOFOLLOW), error);
}

RegularFile RegularFile::openToLock(const fs::path& file, std::error_code& error) {
    return openExisting(file, O_RDWR | O_CREAT | O_NOFOLLOW, error);
}

RegularFile RegularFile::createNew(const fs::path& file, bool forOwnerOnly, std::error_code& error) {
    error.clear();
    RegularFile created(::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | always,
                               forOwnerOnly ? rightsOfOwner : rightsOfAny));
    if (!created.isOpen()) {
        error = lastError();
    }
    return created;
}

int RegularFile::numberForTiff() const { return ::fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0); }

void RegularFile::closeNumber(int number) { ::close(number); }

void RegularFile::close() {
    if (isOpen()) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
}

std::uintmax_t RegularFile::size() const {
    struct stat about {};
    return ::fstat(m_descriptor, &about) == 0 ? static_cast<std::uintmax_t>(about.st_size) : 0;
}

void RegularFile::rewind() const { ::lseek(m_descriptor, 0, SEEK_SET); }

std::size_t RegularFile::read(char* buffer, std::size_t bytes, std::error_code& error) const {
    error.clear();
    for (;;) {
        const ssize_t count = ::read(m_descriptor, buffer, bytes);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            error = lastError();
            return 0;
        }
    }
}

std::size_t RegularFile::write(std::string_view bytes, std::error_code& error) const {
    error.clear();
    std::size_t total = 0;
    while (total < bytes.size()) {
        const ssize_t written = ::write(m_descriptor, bytes.data() + total, bytes.size() - total);
        if (written < 0 && errno != EINTR) {
            error = lastError();
            break;
        }
        total += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return total;
}

std::error_code RegularFile::flushToDisk() const {
    return ::fsync(m_descriptor) == 0 ? std::error_code() : lastError();
}

bool RegularFile::tryLock(std::error_code& error) const {
    error.clear();
    while (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) {
            return false;
        }
        if (errno != EINTR) {
            error = lastError();
            return false;
        }
    }
    return true;
}

bool RegularFile::isStillAt(const fs::path& file) const {
    struct stat open {};
    struct stat named {};
    return ::fstat(m_descriptor, &open) == 0 && ::stat(file.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

bool RegularFile::hasName() const {
    struct stat about {};
    return ::fstat(m_descriptor, &about) != 0 || about.st_nlink > 0;
}

bool RegularFile::isBeingWritten() const {
#ifdef F_SETLEASE
    // A lease is granted only while nobody writes. A program that opens the file during the lease causes a
    // signal to the holder, which by default would end this program.
    if (::fcntl(m_descriptor, F_SETSIG, SIGURG) == 0 && ::fcntl(m_descriptor, F_SETLEASE, F_RDLCK) != 0) {
        return errno == EAGAIN;
    }
    ::fcntl(m_descriptor, F_SETLEASE, F_UNLCK);
#endif
    return false;
}

bool RegularFile::isOwn() const {
    struct stat about {};
    return ::fstat(m_descriptor, &about) == 0 && about.st_uid == ::geteuid() && about.st_nlink == 1;
}

std::error_code RegularFile::takeRightsOf(const fs::path& file) const {
    struct stat about {};
    if (::lstat(file.c_str(), &about) != 0) {
        return {};
    }
    return ::fchmod(m_descriptor, about.st_mode & allRights) == 0 ? std::error_code() : lastError();
}

std::error_code replaceable(const fs::path& target) {
    struct stat about {};
    if (::lstat(target.c_str(), &about) != 0) {
        return {}; // does not exist, or creating the new file will fail
    }
    if (S_ISLNK(about.st_mode)) {
        return FileRefusal::link;
    }
    if (!S_ISREG(about.st_mode)) {
        return refusalOf(about.st_mode);
    }
    // The administrator may write everything; only the owner's write permission protects the file from
    // him.
    const bool mayWrite = (about.st_mode & S_IWUSR) != 0 &&
                          (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0 || errno != EACCES);
    return mayWrite ? std::error_code() : make_error_code(FileRefusal::writeProtected);
}

namespace {

#ifdef RENAME_EXCHANGE
constexpr unsigned exchange = RENAME_EXCHANGE;
constexpr unsigned noReplace = RENAME_NOREPLACE;

std::error_code renameWith(const fs::path& from, const fs::path& to, unsigned way) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), way) == 0) {
        return {};
    }
    // A disk that does not support the flag calls it invalid, an old system does not know the call.
    const bool isUnknown = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
    return isUnknown ? std::make_error_code(std::errc::not_supported) : lastError();
}
#else
constexpr unsigned exchange = 0;
constexpr unsigned noReplace = 0;

std::error_code renameWith(const fs::path& /*from*/, const fs::path& /*to*/, unsigned /*way*/) {
    return std::make_error_code(std::errc::not_supported);
}
#endif

} // namespace

std::error_code exchangeNames(const fs::path& one, const fs::path& other) {
    return renameWith(one, other, exchange);
}

std::error_code renameIfFree(const fs::path& from, const fs::path& to) {
    std::error_code error = renameWith(from, to, noReplace);
    if (error == std::errc::not_supported) {
        error.clear();
        if (fs::exists(fs::symlink_status(to, error))) {
            return std::make_error_code(std::errc::file_exists);
        }
        fs::rename(from, to, error);
    }
    return error;
}

std::error_code moveFile(const fs::path& from, const fs::path& to, std::chrono::milliseconds /*patience*/) {
    std::error_code error;
    fs::rename(from, to, error);
    return error;
}

} // namespace ocuva
