#pragma once
// Server mode in the main window: the host's messages, the idle clock, sleep and wake.

#include "app/HandlerGuard.h"
#include "app/MainWindowContext.h"
#include "app/SleepingWindow.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace ocuva {

/// What it needs; everything outlives it.
struct ServerControlContext {
    QWidget& window;                  ///< the main window, which owns the timer
    const MainWindowContext& world;   ///< host, flags, journal, length of a minute
    const Settings& settings;         ///< of the idle time
    HandlerGuard& guard;              ///< runs what the host requests
    std::function<bool()> windowIsUp; ///< loaded and not exiting
    std::function<void()> doFocus;    ///< one autofocus; keeps its failures to itself
    std::function<void()> exit;       ///< the exit operation
};

/// One for the life of the main window.
class ServerControl final : private ServerWindow {
public:
    /// No host call is made before start().
    explicit ServerControl(ServerControlContext context);

    /// Creates the notifier, whose messages go to onNotify, and subscribes it.
    void start(const std::function<void(const Notification&)>& onNotify);
    /// A message of the host. An error goes to the log.
    void onNotify(const Notification& notification);
    /// The program ends: clock and window are left alone from now on.
    void stop();
    /// Releases the notifier.
    void end() { m_notifier.reset(); }

    /// The idle clock.
    QTimer* const tServerCheckIdle;

private:
    void applyWindowState(ServerWindow::State state) override;
    void showModeless() override { m_sleeping.bringBack(); }
    void hideWindow() override { m_sleeping.layDown(); }
    void enableIdleTimer(bool on) override;
    void DoFocus() override { m_context.doFocus(); }
    void exitProgram() override { m_context.exit(); }
    void noteWindowState(bool minimised);
    LogLineSurroundings logLineSurroundings();

    ServerControlContext m_context;
    std::unique_ptr<Notifier> m_notifier;
    std::optional<modServer> m_server;
    SleepingWindow m_sleeping;
};

} // namespace ocuva
