#pragma once
// Mutual exclusion between processes, and between threads that each create a lock object.

#include "base/RegularFile.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace ocuva {

/// Holds an exclusive advisory lock on a file from construction to destruction. The system releases the
/// lock of a process that ends. The file is created if necessary and stays: removing it could admit two
/// holders.
class FileLock {
public:
    /// Waits for the lock at most for `patience`. The lock is not held if this time runs out, or if the
    /// file is not regular or cannot be opened.
    FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience);

    /// If true, it stays true for the life of the object.
    bool held() const { return m_problem.empty(); }

    /// The reason why it is not held, as a clause; empty if it is held.
    const std::string& problem() const { return m_problem; }

    /// Whether a running process holds it; false if the lock cannot be obtained at all.
    bool isBusy() const { return m_busy; }

private:
    RegularFile m_file;
    std::string m_problem;
    bool m_busy = false;
};

} // namespace ocuva
