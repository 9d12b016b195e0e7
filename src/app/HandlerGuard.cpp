#include "app/HandlerGuard.h"

#include "base/Product.h"

#include <QApplication>
#include <QMessageBox>

#include <exception>

namespace ocuva {

void HandlerGuard::run(const std::function<void()>& handler) {
    const InputGate::Hold hold(m_gate);
    try {
        handler();
    } catch (const std::exception& error) {
        reportError(QString::fromLocal8Bit(error.what()));
    }
}

void HandlerGuard::runForHost(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        logError(QString::fromLocal8Bit(error.what()));
    }
}

std::shared_ptr<void> HandlerGuard::holdInput(const QString& what) {
    auto hold = std::make_shared<InputGate::Hold>(m_gate);
    if (!what.isEmpty()) {
        hold->say(what);
    }
    return hold;
}

void HandlerGuard::log(const QString& line) { m_log.TarnPrintfVB((line + u'\n').toLocal8Bit().constData()); }

void HandlerGuard::logError(const QString& text) { log(QObject::tr("Error: %1").arg(text)); }

void HandlerGuard::reportError(const QString& text) {
    logError(text);
    if (m_window.isVisible()) {
        QMessageBox::critical(&frontWindow(), QString::fromLatin1(productTitle), text);
    }
}

QWidget& HandlerGuard::frontWindow() const {
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? *active : m_window;
}

} // namespace ocuva
