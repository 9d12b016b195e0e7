#pragma once
// Which copies of the program run for this user on the same data folder.

#include <QString>

#include <chrono>
#include <memory>
#include <vector>

namespace ocuva {

/// Makes this process known as a running copy for as long as the object lives. A copy that was killed is not
/// counted: the system has freed its lock. Two copies that start at the same moment see each other in turn,
/// so exactly one of them is the first.
///
/// Where the system has no names of a logon's own, copies meet in folders that belong to the user alone and
/// that nobody else may write: below the user's runtime folder and in the folder for temporary files. They
/// are known in each of them that can be had, so that copies of sessions with different surroundings find
/// each other too. What is not the user's own folder is not used.
class RunningCopies {
public:
    /// `scope` tells apart what may run side by side: the data folder that the copies work on. Waits for a
    /// copy that is just looking, but no longer than `patience` in each folder.
    explicit RunningCopies(const QString& scope,
                           std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~RunningCopies();
    RunningCopies(const RunningCopies&) = delete;
    RunningCopies& operator=(const RunningCopies&) = delete;

    /// Whether another copy was running when this one began.
    bool anotherWasRunning() const { return m_anotherWasRunning; }

    /// Why nobody knows that this copy runs, nor it of others: a sentence that says what to do. Empty when
    /// all is well.
    const QString& problem() const { return m_problem; }

    /// From now on this copy can be woken.
    void startedUp();

    /// For a copy that only has to wake another one: waits until every other copy has started up, for at most
    /// `patience`. Meanwhile this copy is not counted. False when no other copy is left: this one is then the
    /// first, and starts.
    bool waitUntilOthersAreUp(std::chrono::milliseconds patience);

private:
    struct Entry; // a lock file, and on Windows a named mutex of the logon
    /// What is known of the other copies at one moment.
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
