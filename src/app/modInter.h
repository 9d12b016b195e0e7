#pragma once
// The start of the program, in its order.

#include "app/frmOcuva.h"
#include "app/frmSplash.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ocuva {

/// The surroundings of the start; everything outlives it.
struct StartContext {
    /// The host.
    ///@{
    Host& host;
    DisplayWindows& displayWindows;
    Automation& automation;
    ///@}
    std::string commandLine;                    ///< the words after the program's name, as they were typed
    std::function<bool()> anotherCopyIsRunning; ///< called once, after the command line has been scanned
    QString windowTitle;                        ///< says so when the host is simulated
    std::function<void()> endProcess;           ///< the last step of the exit operation
    int minuteMs = modServer::idleTickMs;       ///< a minute of the idle clock, in milliseconds on the wall
    JournalSink journal = {};                   ///< receives the actions on the instrument
    ReportSurroundings report = {};             ///< for a packed report, from the start of the program
    /// Called before another copy is woken: waits until that is possible. False if no copy is left, so
    /// that this one starts; without this function a copy can be woken at once.
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

    /// Starts the program. False if this copy has nothing to do because another one is running: the
    /// process then ends.
    bool Main();

    /// There once Main has returned true; the flags before, too.
    ///@{
    const ProcessFlags& flags() const { return m_flags; }
    frmOcuva& mainWindow() { return *m_frmOcuva; }
    frmSplash& splash() { return *m_frmSplash; }
    ///@}

private:
    /// Whether another copy takes over; it has been woken if necessary.
    bool leaveItToAnotherCopy();

    StartContext m_context;
    ProcessFlags m_flags;
    std::optional<frmSplash> m_frmSplash;
    std::unique_ptr<frmOcuva> m_frmOcuva;
};

} // namespace ocuva
