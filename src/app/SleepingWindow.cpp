#include "app/SleepingWindow.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace ocuva {

namespace {

/// A window manager minimises a window's dialogs with it, and may leave them so when the window comes back.
void restoreDialogs(const QWidget& main) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != &main && window->isVisible() && window->isMinimized()) {
            window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        }
    }
}

} // namespace

SleepingWindow::SleepingWindow(QWidget& window, std::function<void(bool minimised)> applyState,
                               std::function<void()> givenUp)
    : m_window(window)
    , m_applyState(std::move(applyState))
    , m_givenUp(std::move(givenUp))
    , m_onScreen(*this) {
    m_clock.start();
    m_timer.setInterval(WindowOnScreen::tickMs);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
}

void SleepingWindow::tick() {
    m_onScreen.tick();
    if (m_window.isVisible() && !m_window.isMinimized()) {
        restoreDialogs(m_window);
    }
}

WindowPresence SleepingWindow::look() const { return presenceOf(m_window); }

void SleepingWindow::show() {
    m_applyState(m_minimised);
    m_window.show();
    m_resting.bringBack();
    m_window.raise();
    m_window.activateWindow();
}

void SleepingWindow::hide() {
    m_applyState(m_minimised);
    m_resting.layDown(m_window);
    m_window.hide();
}

void SleepingWindow::setMapped(bool mapped) { m_window.setVisible(mapped); }

void SleepingWindow::enableTimer(bool on) {
    if (!on) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_timer.start();
    }
}

} // namespace ocuva
