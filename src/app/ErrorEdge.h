#pragma once
// The outermost places at which an exception can arrive: the start, and an event's handler.

#include <QApplication>
#include <QString>

#include <functional>
#include <set>
#include <string>

namespace ocuva {

/// Exit code of a start that ended with an error for which there is no other code.
inline constexpr int exitStartFailed = 6;

/// Runs the start and returns its exit code. If an exception leaves it, refuse gets a sentence for the
/// operator, and the exit code is exitStartFailed.
int startOrExplain(const std::function<int()>& start, const std::function<void(const std::string&)>& refuse);

/// Keeps exceptions out of Qt's event loop, which cannot pass them on. Lives as long as the application object.
class EventErrors {
public:
    /// Gets the text of an error, once for each text: an error in a timer or in painting would come back for
    /// ever. Called outside of the handler that failed.
    using Report = std::function<void(const QString&)>;

    /// Until then errors go to standard error.
    void setReport(Report report) { m_report = std::move(report); }

    /// Runs the handler and returns its result; false if an exception leaves it.
    bool deliver(const std::function<bool()>& handler);

private:
    void remember(const QString& text);

    Report m_report;
    std::set<QString> m_reported;
};

/// The application object of the program.
class Application final : public QApplication {
public:
    /// As QApplication.
    Application(int& argc, char** argv)
        : QApplication(argc, argv) {}

    /// Where errors of event handlers are reported.
    EventErrors& eventErrors() { return m_errors; }

    /// As QApplication, but an exception that leaves the receiver ends here.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    EventErrors m_errors;
};

} // namespace ocuva
