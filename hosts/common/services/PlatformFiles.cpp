#include "hosts/common/services/PlatformFiles.h"

#include "base/AsideFile.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace hosts {

namespace {

#ifdef _WIN32

std::uint64_t joined(DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; }

/// Of what the system says about an open file, and about a name.
template <class About> FileStamp stampFrom(const About& info) {
    constexpr std::int64_t ticksTo1970 = 116444736000000000; // of 100 ns, from 1601
    const auto ticks = static_cast<std::int64_t>(
        joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
    return {joined(info.nFileSizeHigh, info.nFileSizeLow), (ticks - ticksTo1970) * 100, 0,
            joined(info.ftCreationTime.dwHighDateTime, info.ftCreationTime.dwLowDateTime)};
}

std::optional<FileStamp> stampOf(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION info{};
    return GetFileInformationByHandle(handle, &info) ? std::optional(stampFrom(info)) : std::nullopt;
}

std::optional<FileStamp> stampOf(const ocuva::RegularFile& file) {
    return stampOf(reinterpret_cast<HANDLE>(_get_osfhandle(file.descriptor())));
}

#else

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

std::optional<FileStamp> stampOf(const ocuva::RegularFile& file) {
    struct stat info {};
    return ::fstat(file.descriptor(), &info) == 0 ? std::optional(stampFrom(info)) : std::nullopt;
}

#endif

bool isAbsence(const std::error_code& error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
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

FileReading readFile(const std::filesystem::path& file, std::size_t maxBytes) {
    std::error_code error;
    const ocuva::RegularFile open = ocuva::RegularFile::openToRead(file, error);
    if (!open.isOpen())
        return isAbsence(error) ? FileReading{} : unreadable(error.message());
    const auto stamp = stampOf(open);
    if (!stamp)
        return unreadable("It is not a file");
    if (stamp->size > maxBytes)
        return readingOf(std::string(maxBytes + 1, ' '), *stamp, maxBytes);
    auto text = open.readAll(maxBytes, error);
    if (!text && error != make_error_code(ocuva::FileRefusal::tooLarge))
        return unreadable(error.message());
    return readingOf(text ? std::move(*text) : std::string(maxBytes + 1, ' '), *stamp, maxBytes);
}

std::string replaceFile(const std::filesystem::path& file, std::string_view text) {
    const std::error_code error = ocuva::replaceFile(file, text);
    return error ? error.message() : std::string();
}

#ifdef _WIN32

// A store is looked at before each value that is read, and opening a file takes many times as long as asking
// for its name. Only what a link leads to has to be opened.
std::optional<FileStamp> fileStamp(const std::filesystem::path& file) {
    WIN32_FILE_ATTRIBUTE_DATA info{};
    if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &info))
        return std::nullopt;
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return stampFrom(info);
    const HANDLE handle = CreateFileW(file.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const auto stamp = stampOf(handle);
    CloseHandle(handle);
    return stamp;
}

unsigned long processId() { return GetCurrentProcessId(); }

#else

std::optional<FileStamp> fileStamp(const std::filesystem::path& file) {
    struct stat info {};
    return ::stat(file.c_str(), &info) == 0 ? std::optional(stampFrom(info)) : std::nullopt;
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

} // namespace hosts
