#include "base/FileLock.h"

#include <system_error>
#include <thread>

namespace ocuva {

/// Polls: a wait inside the system cannot be limited in time, and a holder stopped in a debugger would
/// block everybody.
FileLock::FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience) {
    std::error_code error;
    m_file = RegularFile::openToLock(file, error);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!error && !m_file.tryLock(error)) {
        if (!error && std::chrono::steady_clock::now() >= end) {
            m_problem = "another process keeps it locked";
            m_busy = true;
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    if (error) {
        m_problem = error.message();
    }
}

} // namespace ocuva
