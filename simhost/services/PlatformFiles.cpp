#include "simhost/services/PlatformFiles.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace simhost {

namespace {

/// Whether it is there and its owner may not write it; then a rename over it would go behind his back.
bool isReadOnly(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    return !error && std::filesystem::exists(status) &&
           (status.permissions() & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
}

#ifdef _WIN32

class OpenFile {
public:
    OpenFile(const std::filesystem::path& file, DWORD access, DWORD disposition)
        : m_handle(CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                               nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~OpenFile() {
        if (isOpen())
            CloseHandle(m_handle);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_handle; }

private:
    HANDLE m_handle;
};

std::string lastProblem() { return std::system_category().message(static_cast<int>(GetLastError())); }

bool isAbsence(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

std::optional<FileStamp> stampOf(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (!GetFileInformationByHandle(handle, &info))
        return std::nullopt;
    const auto joined = [](DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; };
    constexpr std::int64_t ticksTo1970 = 116444736000000000; // of 100 ns, from 1601
    const auto ticks = static_cast<std::int64_t>(
        joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
    return FileStamp{joined(info.nFileSizeHigh, info.nFileSizeLow), (ticks - ticksTo1970) * 100, 0,
                     joined(info.nFileIndexHigh, info.nFileIndexLow)};
}

/// The number of bytes written; fewer than all on an error, which lastProblem() then tells.
std::size_t writeAll(const OpenFile& file, std::string_view bytes) {
    std::size_t total = 0;
    while (total < bytes.size()) {
        const std::string_view rest = bytes.substr(total);
        DWORD written = 0;
        if (!WriteFile(file.get(), rest.data(), static_cast<DWORD>(rest.size()), &written, nullptr))
            break;
        total += written;
    }
    return total;
}

#else

class OpenFile {
public:
    OpenFile(const std::filesystem::path& file, int flags)
        : m_number(::open(file.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~OpenFile() {
        if (isOpen())
            ::close(m_number);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    bool isOpen() const { return m_number >= 0; }
    int get() const { return m_number; }

private:
    int m_number;
};

std::string lastProblem() { return std::system_category().message(errno); }

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1000000000 + time.tv_nsec;
}

timespec modified(const struct stat& info) {
#ifdef __APPLE__
    return info.st_mtimespec;
#else
    return info.st_mtim;
#endif
}

timespec changed(const struct stat& info) {
#ifdef __APPLE__
    return info.st_ctimespec;
#else
    return info.st_ctim;
#endif
}

FileStamp stampFrom(const struct stat& info) {
    return {static_cast<std::uint64_t>(info.st_size), nanoseconds(modified(info)), nanoseconds(changed(info)),
            static_cast<std::uint64_t>(info.st_ino)};
}

/// The number of bytes written; fewer than all on an error, which lastProblem() then tells.
std::size_t writeAll(const OpenFile& file, std::string_view bytes) {
    std::size_t total = 0;
    while (total < bytes.size()) {
        const std::string_view rest = bytes.substr(total);
        const ssize_t written = ::write(file.get(), rest.data(), rest.size());
        if (written < 0 && errno != EINTR)
            break;
        total += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return total;
}

/// Reads to the end or to the limit; empty on a read error, which errno then tells.
std::optional<std::string> readToEnd(const OpenFile& file, std::size_t limit) {
    std::string text;
    std::array<char, 65536> piece{};
    for (;;) {
        const ssize_t count = ::read(file.get(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        text.append(piece.data(), static_cast<std::size_t>(count));
        if (count == 0 || text.size() > limit)
            return text;
    }
}

#endif

/// The last problem, after the piece that a full disk took is removed: it would go on taking room there.
std::string problemWithout(const std::filesystem::path& aside) {
    std::string problem = lastProblem();
    std::error_code ignored;
    std::filesystem::remove(aside, ignored);
    return problem;
}

FileReading unreadable(std::string problem) {
    FileReading reading;
    reading.state = FileReading::State::unreadable;
    reading.problem = std::move(problem);
    return reading;
}

/// A file may grow between its stamp and its last byte, so the length read decides.
FileReading readingOf(std::string text, const FileStamp& stamp, std::size_t maxBytes) {
    FileReading reading;
    reading.stamp = stamp;
    reading.state = text.size() > maxBytes ? FileReading::State::tooLarge : FileReading::State::read;
    if (reading.state == FileReading::State::read)
        reading.text = std::move(text);
    return reading;
}

} // namespace

std::filesystem::path asidePath(const std::filesystem::path& file) {
    std::filesystem::path aside = file;
    aside += ".aside";
    return aside;
}

#ifdef _WIN32

std::optional<FileStamp> fileStamp(const std::filesystem::path& file) {
    const OpenFile open(file, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
    return open.isOpen() ? stampOf(open.get()) : std::nullopt;
}

FileReading readFile(const std::filesystem::path& file, std::size_t maxBytes) {
    const OpenFile open(file, GENERIC_READ, OPEN_EXISTING);
    if (!open.isOpen())
        return isAbsence(GetLastError()) ? FileReading{} : unreadable(lastProblem());
    const auto stamp = stampOf(open.get());
    if (!stamp || GetFileType(open.get()) != FILE_TYPE_DISK)
        return unreadable("It is not a file");
    if (stamp->size > maxBytes)
        return readingOf(std::string(maxBytes + 1, ' '), *stamp, maxBytes);
    std::string text(static_cast<std::size_t>(stamp->size), '\0');
    DWORD count = 0;
    if (!ReadFile(open.get(), text.data(), static_cast<DWORD>(text.size()), &count, nullptr))
        return unreadable(lastProblem());
    text.resize(count);
    return readingOf(std::move(text), *stamp, maxBytes);
}

std::string replaceFile(const std::filesystem::path& file, std::string_view text) {
    if (isReadOnly(file))
        return "It is write-protected";
    const std::filesystem::path aside = asidePath(file);
    bool good = false;
    {
        const OpenFile open(aside, GENERIC_WRITE, CREATE_ALWAYS);
        if (!open.isOpen())
            return lastProblem();
        good = writeAll(open, text) == text.size() && FlushFileBuffers(open.get());
    }
    good =
        good && MoveFileExW(aside.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return good ? std::string() : problemWithout(aside);
}

Appending appendToFile(const std::filesystem::path& file, std::string_view bytes) {
    const OpenFile open(file, FILE_APPEND_DATA, OPEN_ALWAYS);
    const std::size_t written = open.isOpen() ? writeAll(open, bytes) : 0;
    return written == bytes.size() ? Appending{} : Appending{lastProblem(), written};
}

unsigned long processId() { return GetCurrentProcessId(); }

#else

std::optional<FileStamp> fileStamp(const std::filesystem::path& file) {
    struct stat info {};
    return ::stat(file.c_str(), &info) == 0 ? std::optional(stampFrom(info)) : std::nullopt;
}

FileReading readFile(const std::filesystem::path& file, std::size_t maxBytes) {
    // Without O_NONBLOCK the opening of a pipe would wait for its writer.
    const OpenFile open(file, O_RDONLY | O_NONBLOCK);
    if (!open.isOpen())
        return errno == ENOENT || errno == ENOTDIR ? FileReading{} : unreadable(lastProblem());
    struct stat info {};
    if (::fstat(open.get(), &info) != 0)
        return unreadable(lastProblem());
    if (!S_ISREG(info.st_mode))
        return unreadable("It is not a file");
    const FileStamp stamp = stampFrom(info);
    if (stamp.size > maxBytes)
        return readingOf(std::string(maxBytes + 1, ' '), stamp, maxBytes);
    auto text = readToEnd(open, maxBytes);
    return text ? readingOf(std::move(*text), stamp, maxBytes) : unreadable(lastProblem());
}

std::string replaceFile(const std::filesystem::path& file, std::string_view text) {
    if (isReadOnly(file))
        return "It is write-protected";
    const std::filesystem::path aside = asidePath(file);
    struct stat present {};
    const bool keepRights = ::stat(file.c_str(), &present) == 0;
    bool good = false;
    {
        const OpenFile open(aside, O_WRONLY | O_CREAT | O_TRUNC);
        if (!open.isOpen())
            return lastProblem();
        good = writeAll(open, text) == text.size() &&
               (!keepRights || ::fchmod(open.get(), present.st_mode & 07777) == 0) &&
               ::fsync(open.get()) == 0;
    }
    good = good && ::rename(aside.c_str(), file.c_str()) == 0;
    return good ? std::string() : problemWithout(aside);
}

Appending appendToFile(const std::filesystem::path& file, std::string_view bytes) {
    const OpenFile open(file, O_WRONLY | O_CREAT | O_APPEND);
    const std::size_t written = open.isOpen() ? writeAll(open, bytes) : 0;
    return written == bytes.size() ? Appending{} : Appending{lastProblem(), written};
}

unsigned long processId() { return static_cast<unsigned long>(::getpid()); }

#endif

std::int64_t wallClockNs() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

std::string localTimeText() {
    const std::int64_t ms = wallClockNs() / 1000000;
    const auto seconds = static_cast<std::time_t>(ms / 1000);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                  static_cast<int>(ms % 1000));
    return text.data();
}

} // namespace simhost
