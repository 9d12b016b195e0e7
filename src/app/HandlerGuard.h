#pragma once
// Around every handler of the main window: input is kept away, and an error that leaves the handler is
// reported or logged.

#include "controls/InputGate.h"
#include "hostlink/Host.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace ocuva {

/// One for the life of the main window. User-interface thread.
class HandlerGuard {
public:
    /// Window and log outlive it; `say` shows what the program is busy with.
    HandlerGuard(QWidget& window, TnLog& log, InputGate::Say say)
        : m_window(window)
        , m_log(log)
        , m_gate(std::move(say)) {}

    /// Runs a handler with the input held; an error that leaves it is shown by the general error report.
    void run(const std::function<void()>& handler);
    /// The same for requests of the host: an error goes to the log only. Nobody may be there to answer a
    /// box, and the host's next message must not wait for an answer.
    void runForHost(const std::function<void()>& handler);
    /// Blocks pointer and keys for the life of the returned object, and shows the text unless it is empty.
    std::shared_ptr<void> holdInput(const QString& what = {});

    /// One line in the host's log.
    void log(const QString& line);
    /// The same for an error.
    void logError(const QString& text);
    /// The general error report: the log, and a box while the window is visible.
    void reportError(const QString& text);
    /// The parent of a message box about the operator's last action: the dialog in use, if there is one.
    QWidget& frontWindow() const;

private:
    QWidget& m_window;
    TnLog& m_log;
    InputGate m_gate;
};

} // namespace ocuva
