#include "app/SleepingWindow.h"

#include <QWidget>

#include <utility>

namespace ocuva {

SleepingWindow::SleepingWindow(QWidget& window, std::function<void(bool minimised)> applyState,
                               std::function<void()> givenUp)
    : m_window(window)
    , m_applyState(std::move(applyState))
    , m_givenUp(std::move(givenUp))
    , m_onScreen(*this) {
    m_clock.start();
    m_timer.setInterval(WindowOnScreen::tickMs);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { m_onScreen.tick(); });
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
