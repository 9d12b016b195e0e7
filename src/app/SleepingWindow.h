#pragma once
// The main window as sleep and wake see it.

#include "controls/RestingWindows.h"
#include "controls/WindowOnScreen.h"

#include <QElapsedTimer>
#include <QTimer>

#include <cstdint>
#include <functional>

class QWidget;

namespace ocuva {

/// Hides the main window with the program's other windows and brings them back, and ensures that the
/// window system does it (WindowOnScreen). A window that comes back is in front of the others and has the
/// focus. User-interface thread.
class SleepingWindow final : private WindowHands {
public:
    /// The window outlives it. `applyState` sets the normal or minimised state. `givenUp` is called if the
    /// window system has not carried out a request.
    SleepingWindow(QWidget& window, std::function<void(bool minimised)> applyState,
                   std::function<void()> givenUp);

    /// The state that the next show or hide gives the window.
    void setMinimised(bool minimised) { m_minimised = minimised; }
    /// The newest of the two counts.
    ///@{
    void bringBack() { m_onScreen.request(true); }
    void layDown() { m_onScreen.request(false); }
    ///@}
    /// From now on the window is left alone.
    void letGo() { m_onScreen.letGo(); }

private:
    void tick();
    WindowPresence look() const override;
    void show() override;
    void hide() override;
    void setMapped(bool mapped) override;
    void enableTimer(bool on) override;
    std::int64_t nowMs() const override { return m_clock.elapsed(); }
    void givenUp() override { m_givenUp(); }

    QWidget& m_window;
    std::function<void(bool)> m_applyState;
    std::function<void()> m_givenUp;
    RestingWindows m_resting;
    QElapsedTimer m_clock;
    QTimer m_timer;
    WindowOnScreen m_onScreen;
    bool m_minimised = false;
};

} // namespace ocuva
