#include "app/ErrorEdge.h"

#include "base/Product.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <exception>

namespace ocuva {

int startOrExplain(const std::function<int()>& start, const std::function<void(const std::string&)>& refuse) {
    try {
        return start();
    } catch (const std::exception& error) {
        refuse(QCoreApplication::translate(
                   "ErrorEdge", "%1 cannot start because of an unexpected error: %2. Start it again; "
                                "if that fails too, see \"Files\" in the manual for the files to send.")
                   .arg(QString::fromLatin1(productTitle), QString::fromLocal8Bit(error.what()))
                   .toLocal8Bit()
                   .toStdString());
        return exitStartFailed;
    }
}

bool EventErrors::deliver(const std::function<bool()>& handler) {
    try {
        return handler();
    } catch (const std::exception& error) {
        remember(QString::fromLocal8Bit(error.what()));
        return false;
    }
}

void EventErrors::remember(const QString& text) {
    if (!m_reported.insert(text).second) {
        return;
    }
    if (!m_report) {
        std::fprintf(stderr, "%s: %s\n", productTitle, text.toLocal8Bit().constData());
        return;
    }
    // Later: a message box within an unfinished paint event could not be painted.
    QTimer::singleShot(0, qApp, [this, text] {
        if (m_report) {
            m_report(text);
        }
    });
}

bool Application::notify(QObject* receiver, QEvent* event) {
    return m_errors.deliver([&] { return QApplication::notify(receiver, event); });
}

} // namespace ocuva
