#include "base/FileLock.h"

#include <system_error>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace ocuva {

namespace {

enum class Attempt { got, busy, failed };

/// Asks again and again: a wait inside the system could not be given an end, and a holder that was stopped in
/// a debugger would hang everybody.
template <typename Try> std::string acquire(Try attempt, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const Attempt result = attempt();
        if (result == Attempt::got)
            return {};
        if (result == Attempt::failed)
            return "it cannot be locked";
        if (std::chrono::steady_clock::now() >= end)
            return "another process keeps it locked";
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace

#ifdef _WIN32

FileLock::FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience)
    : m_handle(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                           nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    if (m_handle == INVALID_HANDLE_VALUE) {
        m_problem = std::system_category().message(static_cast<int>(GetLastError()));
        return;
    }
    m_problem = acquire(
        [this] {
            OVERLAPPED from{};
            if (LockFileEx(m_handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &from))
                return Attempt::got;
            const DWORD error = GetLastError();
            return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? Attempt::busy
                                                                              : Attempt::failed;
        },
        patience);
}

FileLock::~FileLock() {
    if (m_handle == INVALID_HANDLE_VALUE)
        return;
    OVERLAPPED from{};
    if (held())
        UnlockFileEx(m_handle, 0, 1, 0, &from);
    CloseHandle(m_handle);
}

#else

FileLock::FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience)
    : m_number(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (m_number < 0) {
        m_problem = std::system_category().message(errno);
        return;
    }
    m_problem = acquire(
        [this] {
            if (::flock(m_number, LOCK_EX | LOCK_NB) == 0)
                return Attempt::got;
            return errno == EWOULDBLOCK || errno == EINTR ? Attempt::busy : Attempt::failed;
        },
        patience);
}

FileLock::~FileLock() {
    if (m_number >= 0)
        ::close(m_number);
}

#endif

} // namespace ocuva
