#pragma once
// Server mode: what the command line asks for, waking the copy that already runs, the host's messages, and
// the idle clock of a sleeping server.
//
//   awake (window shown, or not shown yet; countdown stopped)  <-- OCUVA_WAKEUP --  sleeping (window
//   minimised and
//                                                              -- OCUVA_SLEEP -->   hidden, countdown
//                                                              running)

#include "base/Types.h"
#include "hostlink/Host.h"
#include "journal/JournalEntry.h"

#include <functional>
#include <string_view>

namespace ocuva {

/// The process-wide flags; one object, owned by the composition root.
struct ProcessFlags {
    bool serverMode =
        false; ///< runs for the host: no splash, window hidden at start; an autofocus request sets it too
    bool clientMode = false;      ///< may run beside a copy that is already running
    bool sleeping = false;        ///< between a sleep message and the next wake message
    bool startupFinished = false; ///< the very last step of the start sets it
};

/// Scans the command line (the words after the program's name) and sets server and client mode. Only
/// "-server" or
/// "-client" as the first word counts, in any letter case: the text collected is not emptied between words,
/// so a second word is compared run together with the first, and "-ser ver" is "-server". Everything else is
/// ignored.
void scanCommandLine(std::string_view commandLine, ProcessFlags& flags);

/// Tells the copy that already runs to show itself, unless this process was started for the host.
void wakeRunningCopy(const ProcessFlags& flags, TnOcuva& ocuva);

/// What the host's messages do to the main window.
class ServerWindow {
public:
    /// The states that falling asleep and waking ask for.
    enum class State { normal = 0, minimised = 1 };

    virtual ~ServerWindow() = default;
    /// What the window is when it is shown next, or at once where it is shown.
    virtual void applyWindowState(State state) = 0;
    /// The program goes on meanwhile.
    virtual void showModeless() = 0;
    /// The program goes on without it.
    virtual void hideWindow() = 0;
    /// While on, modServer::idleTick is called once in idleTickMs.
    virtual void enableIdleTimer(bool on) = 0;
    /// One autofocus, to its end. Keeps its failures to itself.
    virtual void DoFocus() = 0;
    /// The same as the menu's Exit.
    virtual void exitProgram() = 0;
};

/// What a log line depends on beside its text. Functions that are not given mean a program that is not being
/// developed, has a window, and can show nothing.
struct LogLineSurroundings {
    /// Whether the program runs inside the environment that it is developed in; its lines then stay out of
    /// the host's log.
    std::function<bool()> isDevelopmentEnvironment = {};
    /// Whether there is a window, shown or hidden.
    std::function<bool()> anyWindowIsLoaded = {};
    /// Shows a message box; style is TARN_BOX_....
    std::function<void(const char* text, const char* title, TarnLong style)> showMessage = {};
    /// Told of each request of the host before it is done.
    JournalSink journal = {};
};

/// What the host's messages do, and the end of a copy that sleeps too long. On the thread of the messages.
class modServer {
public:
    /// Period of the idle clock.
    static constexpr int idleTickMs = 60000;

    /// readIdleCount gives the idle minutes of the settings, its argument standing in for an absent key.
    modServer(ProcessFlags& flags, TnLog& log, Notifier& notifier, ServerWindow& window,
              std::function<Long(Long)> readIdleCount, LogLineSurroundings surroundings = {});

    /// Dispatches a message on its identifier, compared exactly; unknown ones are ignored.
    void onNotify(const Notification& notification);

    /// One minute of the idle clock. The count is tested before it is decreased, so a countdown from N ends
    /// the program after N + 1 minutes.
    void idleTick();

    /// The running countdown, in minutes.
    Long ServerIdleCount() const { return m_serverIdleCount; }

    /// Writes one line to the host's log, unless the program runs in its development environment. Without any
    /// loaded window that cannot be found out: a message says so first.
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
