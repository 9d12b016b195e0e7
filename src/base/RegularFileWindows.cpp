// Opening of regular files on Windows.

#include "base/RegularFile.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr DWORD sharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Windows locks prevent reading and writing, so the lock is put where the file has no bytes.
constexpr DWORD lockPlace = 0x7fffffff;

std::error_code lastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

/// The C library's descriptor for a handle, which it then owns; -1 with the reason.
int descriptorOf(HANDLE handle, int flags, std::error_code& error) {
    if (handle == INVALID_HANDLE_VALUE) {
        error = lastError();
        return -1;
    }
    BY_HANDLE_FILE_INFORMATION about{};
    if (GetFileType(handle) != FILE_TYPE_DISK || !GetFileInformationByHandle(handle, &about) ||
        (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        CloseHandle(handle);
        error = FileRefusal::notRegular;
        return -1;
    }
    const int descriptor =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), flags | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0) {
        CloseHandle(handle);
        error = std::make_error_code(std::errc::too_many_files_open);
    }
    return descriptor;
}

HANDLE open(const fs::path& file, DWORD access, DWORD disposition) {
    return CreateFileW(file.c_str(), access, sharedByAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

} // namespace

RegularFile RegularFile::openToRead(const fs::path& file, std::error_code& error) {
    error.clear();
    return RegularFile(descriptorOf(open(file, GENERIC_READ, OPEN_EXISTING), _O_RDONLY, error));
}

RegularFile RegularFile::openToAppend(const fs::path& file, std::error_code& error) {
    error.clear();
    return RegularFile(descriptorOf(open(file, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, OPEN_ALWAYS),
                                    _O_WRONLY | _O_APPEND, error));
}

RegularFile RegularFile::openToLock(const fs::path& file, std::error_code& error) {
    error.clear();
    return RegularFile(descriptorOf(open(file, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS), _O_RDWR, error));
}

RegularFile RegularFile::createNew(const fs::path& file, bool /*forOwnerOnly*/, std::error_code& error) {
    error.clear(); // on Windows the folder determines the rights
    return RegularFile(descriptorOf(open(file, GENERIC_READ | GENERIC_WRITE, CREATE_NEW), _O_RDWR, error));
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
    if (!ReadFile(handleOf(m_descriptor), buffer, static_cast<DWORD>(bytes), &count, nullptr)) {
        error = lastError();
    }
    return count;
}

std::size_t RegularFile::write(std::string_view bytes, std::error_code& error) const {
    error.clear();
    std::size_t total = 0;
    while (total < bytes.size()) {
        const std::string_view rest = bytes.substr(total);
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
        descriptorOf(::ocuva::open(file, FILE_READ_ATTRIBUTES, OPEN_EXISTING), _O_RDONLY, error));
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
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return {}; // does not exist, or creating the new file will fail
    }
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return FileRefusal::link;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) {
        return FileRefusal::notRegular;
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

} // namespace ocuva
