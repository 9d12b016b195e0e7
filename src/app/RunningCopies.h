#pragma once
// Which copies of the program run for this user on the same data folder.

#include <QString>

#include <memory>

namespace ocuva {

/// Makes this process known as a running copy for as long as the object lives. A copy that was killed is not
/// counted: its entry belongs to a process that is gone. Two copies that start at the same moment see each
/// other in turn, so exactly one of them is the first.
class RunningCopies {
public:
    /// `scope` tells apart what may run side by side: the data folder that the copies work on.
    explicit RunningCopies(const QString& scope);
    ~RunningCopies();
    RunningCopies(const RunningCopies&) = delete;
    RunningCopies& operator=(const RunningCopies&) = delete;

    /// Whether another copy was running when this one began.
    bool anotherWasRunning() const { return m_anotherWasRunning; }

private:
    struct Entry; // a lock file, and on Windows a named mutex of the logon
    std::unique_ptr<Entry> m_ownEntry;
    bool m_anotherWasRunning = false;
};

} // namespace ocuva
