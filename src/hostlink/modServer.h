#pragma once
// Server mode: the switches of the command line, waking a running copy, the host's messages, and the idle
// countdown of a sleeping server.
//
//   awake                           --- OCUVA_SLEEP --->   sleeping
//   (window shown or not yet                               (window minimised and hidden,
//   shown, countdown stopped)      <--- OCUVA_WAKEUP ---    countdown running)

#include "base/Types.h"
#include "hostlink/Host.h"
#include "journal/JournalEntry.h"

#include <functional>
#include <string_view>

namespace ocuva {

/// The process-wide flags; one object, owned by the composition root.
struct ProcessFlags {
    /// The copy runs for the host: no splash window, main window hidden at the start. An autofocus request
    /// of the host sets it too.
    bool serverMode = false;
    bool clientMode = false;      ///< may run while another copy is running
    bool sleeping = false;        ///< between a sleep message and the next wake-up message
    bool startupFinished = false; ///< set by the last step of the start
};

/// Scans the command line (the words after the program's name) and sets server and client mode. Only
/// "-server" or "-client" as the first word counts, in any letter case. The collected text is not cleared
/// between words: a second word is compared joined to the first, so "-ser ver" is "-server". Everything else
/// is ignored.
void scanCommandLine(std::string_view commandLine, ProcessFlags& flags);

/// Wakes the running copy, unless this process was started for the host.
void wakeRunningCopy(const ProcessFlags& flags, TnOcuva& ocuva);

/// What the host's messages do to the main window.
class ServerWindow {
public:
    /// The window states that sleep and wake-up set.
    enum class State { normal = 0, minimised = 1 };

    virtual ~ServerWindow() = default;
    /// Applies at once if the window is shown, otherwise when it is shown next.
    virtual void applyWindowState(State state) = 0;
    /// Shows the window without waiting for it.
    virtual void showModeless() = 0;
    /// Hides the window; the program continues.
    virtual void hideWindow() = 0;
    /// While on, calls modServer::idleTick every idleTickMs.
    virtual void enableIdleTimer(bool on) = 0;
    /// Runs one autofocus to its end. Throws nothing.
    virtual void DoFocus() = 0;
    /// The same as the menu's Exit.
    virtual void exitProgram() = 0;
};

/// Surroundings of modServer. Without these functions the program counts as not under development and as
/// having a window, and cannot show messages.
struct LogLineSurroundings {
    /// Whether the program runs inside its development environment; it then writes no lines to the host's
    /// log.
    std::function<bool()> isDevelopmentEnvironment = {};
    /// Whether there is a window, shown or hidden.
    std::function<bool()> anyWindowIsLoaded = {};
    /// Shows a message box; style is TARN_BOX_....
    std::function<void(const char* text, const char* title, TarnLong style)> showMessage = {};
    /// Receives each request of the host before it is carried out.
    JournalSink journal = {};
};

/// Carries out the host's messages and ends a copy that sleeps too long. Runs on the thread that delivers
/// the messages.
class modServer {
public:
    /// Period of the idle countdown.
    static constexpr int idleTickMs = 60000;

    /// readIdleCount returns the idle minutes from the settings, or its argument if the key is missing.
    modServer(ProcessFlags& flags, TnLog& log, Notifier& notifier, ServerWindow& window,
              std::function<Long(Long)> readIdleCount, LogLineSurroundings surroundings = {});

    /// Handles a message by its exact identifier; unknown ones are ignored.
    void onNotify(const Notification& notification);

    /// One minute of the idle countdown. The count is tested before it is decreased, so a countdown from N
    /// ends the program after N + 1 minutes.
    void idleTick();

    /// The running countdown, in minutes.
    Long ServerIdleCount() const { return m_serverIdleCount; }

    /// Writes one line to the host's log, unless the program runs in its development environment. Without a
    /// loaded window this cannot be determined; a message then says so first.
    void logLine(const char* text);

private:
    void isAlive();
    void autofocus();
    void wakeUp();
    void sleep();
    void startIdleCountdown(Long count);
    void stopIdleCountdown();

    ProcessFlags& m_flags;
    TnLog& m_log;
    Notifier& m_notifier;
    ServerWindow& m_window;
    std::function<Long(Long)> m_readIdleCount;
    LogLineSurroundings m_surroundings;
    Long m_configuredIdleCount = 0; // loaded from the settings on each autofocus request of a sleeping server
    Long m_serverIdleCount = 0;
};

} // namespace ocuva
