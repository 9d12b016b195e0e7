#pragma once
// Mutual exclusion between processes, and between threads that each make a lock of their own.

#include "base/RegularFile.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace ocuva {

/// Holds an exclusive advisory lock on a file from construction to destruction. The system frees the lock of
/// a process that dies. The file is made where needed and stays: removing it would let two holders in.
class FileLock {
public:
    /// Waits for the lock, but not longer than patience; then, or when the name is no regular file or it
    /// cannot be opened, it is not held.
    FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience);

    /// For as long as the object lives, once it is.
    bool held() const { return m_problem.empty(); }

    /// Why it is not held, one clause; empty when it is.
    const std::string& problem() const { return m_problem; }

    /// Whether a living process keeps it, as opposed to one that cannot be had at all.
    bool isBusy() const { return m_busy; }

private:
    RegularFile m_file;
    std::string m_problem;
    bool m_busy = false;
};

} // namespace ocuva
