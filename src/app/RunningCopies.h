#pragma once
// Which copies of the program run for this user on the same data folder.

#include <QString>

#include <chrono>
#include <memory>
#include <vector>

namespace ocuva {

/// Registers this process as a running copy for the life of the object. A copy that was killed does not
/// count: the system has released its lock. Two copies that start at the same moment see each other in
/// turn, so exactly one of them is the first.
///
/// Where the system has no names per logon session, copies find each other in folders that belong to the
/// user and that nobody else may write: below the user's runtime folder and in the temporary folder. They
/// register in each usable one, so that copies of different sessions find each other too. A folder that is
/// not the user's own is not used.
class RunningCopies {
public:
    /// `scope` separates copies that may run at the same time: the data folder that they use. Waits for a
    /// copy that is just checking, at most for `patience` in each folder.
    explicit RunningCopies(const QString& scope,
                           std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~RunningCopies();
    RunningCopies(const RunningCopies&) = delete;
    RunningCopies& operator=(const RunningCopies&) = delete;

    /// Whether another copy was running when this one began.
    bool anotherWasRunning() const { return m_anotherWasRunning; }

    /// Why copies cannot find each other: a sentence that says what to do. Empty if they can.
    const QString& problem() const { return m_problem; }

    /// From now on this copy can be woken.
    void startedUp();

    /// For a copy that only has to wake another one: waits until every other copy has started up, for at most
    /// `patience`. Meanwhile this copy is not counted. False when no other copy is left: this one is then the
    /// first, and starts.
    bool waitUntilOthersAreUp(std::chrono::milliseconds patience);

private:
    struct Entry; // a lock file, and on Windows a named mutex of the logon
    /// The state of the other copies at one moment.
    struct Others {
        bool run = false;
        bool start = false; // one of them has not started up yet
    };
    enum class Enter { Always, IfAlone };
    /// Looks for the other copies and makes this one known, both at one moment.
    Others look(Enter enter);
    void leave();

    QString m_scope;
    std::chrono::milliseconds m_patience;
    QString m_problem;
    std::vector<std::unique_ptr<Entry>> m_ownEntry;
    std::vector<std::unique_ptr<Entry>> m_ownStart; // until this copy has started up
    bool m_anotherWasRunning = false;
};

} // namespace ocuva
