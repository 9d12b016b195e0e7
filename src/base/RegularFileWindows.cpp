// Opening of regular files on Windows.

#include "base/RegularFile.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <windows.h>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr DWORD sharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Windows locks prevent reading and writing, so the lock is put where the file has no bytes.
constexpr DWORD lockPlace = 0x7fffffff;

// A write or read of more bytes would not fit into the system's count.
constexpr std::size_t mostBytesAtOnce = std::size_t{1} << 30;

std::error_code lastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

/// Names such as NUL and COM1.txt are devices in every folder. The system's full name of a device has no
/// drive.
bool isDevice(const fs::path& file) {
    std::wstring full(GetFullPathNameW(file.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(file.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.starts_with(L"\\\\.\\");
}

bool isFolder(const fs::path& file) {
    const DWORD attributes = GetFileAttributesW(file.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Files that the system packs, or keeps elsewhere, carry marks as links do; only a link is another name.
bool isLink(HANDLE handle) {
    FILE_ATTRIBUTE_TAG_INFO about{};
    return GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &about, sizeof about) != FALSE &&
           (about.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(about.ReparseTag);
}

bool isLink(const fs::path& file) {
    const HANDLE handle = CreateFileW(file.c_str(), FILE_READ_ATTRIBUTES, sharedByAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    const bool link = isLink(handle);
    CloseHandle(handle);
    return link;
}

/// How a file is opened.
struct Way {
    DWORD access;
    DWORD disposition;
    DWORD links; ///< FILE_FLAG_OPEN_REPARSE_POINT where none is followed
    int flags;   ///< of the C library
};
constexpr DWORD followed = 0;
constexpr DWORD notFollowed = FILE_FLAG_OPEN_REPARSE_POINT;

std::error_code whyNotRegular(HANDLE handle, DWORD links) {
    BY_HANDLE_FILE_INFORMATION about{};
    if (links == notFollowed && isLink(handle)) {
        return FileRefusal::link;
    }
    const bool regular = GetFileType(handle) == FILE_TYPE_DISK &&
                         GetFileInformationByHandle(handle, &about) != FALSE &&
                         (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    return regular ? std::error_code() : make_error_code(FileRefusal::notRegular);
}

/// The C library's descriptor, which owns the system's handle; -1 with the reason.
int open(const fs::path& file, const Way& way, std::error_code& error) {
    error.clear();
    // Asked first: with some devices the mere opening does something.
    if (isDevice(file)) {
        error = FileRefusal::notRegular;
        return -1;
    }
    const HANDLE handle = CreateFileW(file.c_str(), way.access, sharedByAll, nullptr, way.disposition,
                                      FILE_ATTRIBUTE_NORMAL | way.links, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        error = lastError();
        if (error.value() == ERROR_ACCESS_DENIED && isFolder(file)) {
            error = std::make_error_code(std::errc::is_a_directory);
        }
        return -1;
    }
    error = whyNotRegular(handle, way.links);
    const int descriptor = error ? -1
                                 : _open_osfhandle(reinterpret_cast<std::intptr_t>(handle),
                                                   way.flags | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0) {
        CloseHandle(handle);
        error = error ? error : std::make_error_code(std::errc::too_many_files_open);
    }
    return descriptor;
}

} // namespace

RegularFile RegularFile::openToRead(const fs::path& file, std::error_code& error) {
    return RegularFile(::ocuva::open(file, {GENERIC_READ, OPEN_EXISTING, followed, _O_RDONLY}, error));
}

/// Nobody but the administrator, and whom he trusts, can make a link to a file here.
RegularFile RegularFile::openToAppend(const fs::path& file, std::error_code& error) {
    const bool link = isLink(file);
    return RegularFile(::ocuva::open(file,
                                     {FILE_APPEND_DATA | FILE_READ_ATTRIBUTES,
                                      static_cast<DWORD>(link ? OPEN_EXISTING : OPEN_ALWAYS),
                                      link ? followed : notFollowed, _O_WRONLY | _O_APPEND},
                                     error));
}

RegularFile RegularFile::openToLock(const fs::path& file, std::error_code& error) {
    return RegularFile(
        ::ocuva::open(file, {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, notFollowed, _O_RDWR}, error));
}

/// On Windows the folder determines the rights.
RegularFile RegularFile::createNew(const fs::path& file, bool /*forOwnerOnly*/, std::error_code& error) {
    return RegularFile(
        ::ocuva::open(file, {GENERIC_READ | GENERIC_WRITE, CREATE_NEW, notFollowed, _O_RDWR}, error));
}

int RegularFile::numberForTiff() const {
    HANDLE copy = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), handleOf(m_descriptor), GetCurrentProcess(), &copy, 0, FALSE,
                         DUPLICATE_SAME_ACCESS)) {
        return -1;
    }
    // libtiff takes the lower half of the handle; the upper half is guaranteed to be insignificant.
    return static_cast<int>(reinterpret_cast<std::intptr_t>(copy));
}

void RegularFile::closeNumber(int number) {
    CloseHandle(reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number)));
}

void RegularFile::close() {
    if (isOpen()) {
        _close(m_descriptor);
        m_descriptor = -1;
    }
}

std::uintmax_t RegularFile::size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(handleOf(m_descriptor), &size) ? static_cast<std::uintmax_t>(size.QuadPart) : 0;
}

void RegularFile::rewind() const { _lseeki64(m_descriptor, 0, SEEK_SET); }

std::size_t RegularFile::read(char* buffer, std::size_t bytes, std::error_code& error) const {
    error.clear();
    DWORD count = 0;
    if (!ReadFile(handleOf(m_descriptor), buffer, static_cast<DWORD>(std::min(bytes, mostBytesAtOnce)),
                  &count, nullptr)) {
        error = lastError();
    }
    return count;
}

std::size_t RegularFile::write(std::string_view bytes, std::error_code& error) const {
    error.clear();
    std::size_t total = 0;
    while (total < bytes.size()) {
        const std::string_view rest = bytes.substr(total, mostBytesAtOnce);
        DWORD written = 0;
        if (!WriteFile(handleOf(m_descriptor), rest.data(), static_cast<DWORD>(rest.size()), &written,
                       nullptr)) {
            error = lastError();
            break;
        }
        total += written;
    }
    return total;
}

std::error_code RegularFile::flushToDisk() const {
    return FlushFileBuffers(handleOf(m_descriptor)) ? std::error_code() : lastError();
}

bool RegularFile::tryLock(std::error_code& error) const {
    error.clear();
    OVERLAPPED place{};
    place.OffsetHigh = lockPlace;
    if (LockFileEx(handleOf(m_descriptor), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &place)) {
        return true;
    }
    if (const DWORD code = GetLastError(); code != ERROR_LOCK_VIOLATION && code != ERROR_IO_PENDING) {
        error = lastError();
    }
    return false;
}

bool RegularFile::isStillAt(const fs::path& file) const {
    std::error_code error;
    const RegularFile named(
        ::ocuva::open(file, {FILE_READ_ATTRIBUTES, OPEN_EXISTING, followed, _O_RDONLY}, error));
    BY_HANDLE_FILE_INFORMATION ours{};
    BY_HANDLE_FILE_INFORMATION its{};
    return named.isOpen() && GetFileInformationByHandle(handleOf(m_descriptor), &ours) &&
           GetFileInformationByHandle(handleOf(named.m_descriptor), &its) &&
           ours.dwVolumeSerialNumber == its.dwVolumeSerialNumber &&
           ours.nFileIndexHigh == its.nFileIndexHigh && ours.nFileIndexLow == its.nFileIndexLow;
}

bool RegularFile::hasName() const {
    FILE_STANDARD_INFO about{};
    return !GetFileInformationByHandleEx(handleOf(m_descriptor), FileStandardInfo, &about, sizeof about) ||
           !about.DeletePending;
}

bool RegularFile::isBeingWritten() const {
    const HANDLE alone =
        ReOpenFile(handleOf(m_descriptor), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, 0);
    if (alone == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(alone);
    return false;
}

bool RegularFile::isOwn() const {
    BY_HANDLE_FILE_INFORMATION about{};
    return GetFileInformationByHandle(handleOf(m_descriptor), &about) && about.nNumberOfLinks == 1;
}

std::error_code RegularFile::takeRightsOf(const fs::path& /*file*/) const { return {}; }

std::error_code replaceable(const fs::path& target) {
    if (isDevice(target)) {
        return FileRefusal::notRegular;
    }
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return {}; // does not exist, or creating the new file will fail
    }
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && isLink(target)) {
        return FileRefusal::link;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? make_error_code(FileRefusal::writeProtected)
                                                       : std::error_code();
}

std::error_code exchangeNames(const fs::path& /*one*/, const fs::path& /*other*/) {
    // ReplaceFileW takes several steps, and for a moment the name is free.
    return std::make_error_code(std::errc::not_supported);
}

std::error_code renameIfFree(const fs::path& from, const fs::path& to) {
    if (MoveFileExW(from.c_str(), to.c_str(), 0)) {
        return {};
    }
    const DWORD code = GetLastError();
    return code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS
               ? std::make_error_code(std::errc::file_exists)
               : std::error_code(static_cast<int>(code), std::system_category());
}

std::error_code moveFile(const fs::path& from, const fs::path& to, std::chrono::milliseconds patience) {
    constexpr DWORD lookAgainMs = 10;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) == FALSE) {
        const std::error_code error = lastError();
        // The first is also the answer for a target that a program has open.
        const bool mayPass = error.value() == ERROR_ACCESS_DENIED || error.value() == ERROR_SHARING_VIOLATION;
        if (!mayPass || std::chrono::steady_clock::now() >= end) {
            return error;
        }
        Sleep(lookAgainMs);
    }
    return {};
}

} // namespace ocuva
