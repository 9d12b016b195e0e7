#pragma once
// The start of the program, in its order.

#include "app/frmOcuva.h"
#include "app/frmSplash.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ocuva {

/// What the start needs of the world; everything outlives it.
struct StartContext {
    /// What stands behind the seam.
    ///@{
    Host& host;
    DisplayWindows& displayWindows;
    Automation& automation;
    ///@}
    std::string commandLine;                    ///< the words after the program's name, as they were typed
    std::function<bool()> anotherCopyIsRunning; ///< asked once, after the command line has been scanned
    QString windowTitle;                        ///< says so when the host is simulated
    std::function<void()> endProcess;           ///< the last step of the exit operation
    int minuteMs = modServer::idleTickMs;       ///< a minute of the idle clock, in milliseconds on the wall
    JournalSink journal = {};                   ///< told what is done to the instrument
    ReportSurroundings report = {};             ///< what a packed report tells of the start
    /// Called before another copy is woken: waits until it can be. False when none is left, so that this one
    /// starts; without this function it can be woken at once.
    std::function<bool()> otherCopyIsUp = {};
    /// Called when the start is complete: this copy can be woken from now on.
    std::function<void()> startedUp = {};
};

/// Owns the windows. User-interface thread.
class modInter {
public:
    /// Nothing is shown and no host call is made before Main.
    explicit modInter(const StartContext& context);
    ~modInter();

    /// Starts the program. False when this copy has nothing to do, because another one runs: the process ends
    /// at once.
    bool Main();

    /// There once Main has returned true; the flags before, too.
    ///@{
    const ProcessFlags& flags() const { return m_flags; }
    frmOcuva& mainWindow() { return *m_frmOcuva; }
    frmSplash& splash() { return *m_frmSplash; }
    ///@}

private:
    /// Whether another copy is there to go on instead of this one; woken already where it has to be.
    bool leaveItToAnotherCopy();

    StartContext m_context;
    ProcessFlags m_flags;
    std::optional<frmSplash> m_frmSplash;
    std::unique_ptr<frmOcuva> m_frmOcuva;
};

} // namespace ocuva
