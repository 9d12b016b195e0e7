#include "platform/Desktop.h"
#include "platform/SystemWindow.h"

namespace ocuva {

namespace {

LONG_PTR moduleInstance(HWND window) { return GetWindowLongPtrA(window, GWLP_HINSTANCE); }

} // namespace

void bringWindowToTop(QWidget& window) {
    window.raise();
    if (const HWND handle = systemWindow(window.internalWinId()); handle != nullptr) {
        BringWindowToTop(handle);
    }
}

bool runsInDevelopmentEnvironment(quintptr window) {
    const HWND first = systemWindow(window);
    const HWND environment = FindWindowA("ThunderMain", nullptr);
    return first != nullptr && environment != nullptr && moduleInstance(environment) == moduleInstance(first);
}

bool anyMouseButtonIsDown() {
    for (const int button : {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON}) {
        if (GetAsyncKeyState(button) < 0) {
            return true;
        }
    }
    return false;
}

FrozenDrawing::FrozenDrawing(QWidget& widget)
    : m_widget(widget) {
    m_widget.setUpdatesEnabled(false);
    // Only one window can be locked at a time; another program's lock is not waited for.
    const HWND handle = systemWindow(m_widget.window()->internalWinId());
    m_systemIsLocked =
        handle != nullptr && IsWindowVisible(handle) != FALSE && LockWindowUpdate(handle) != FALSE;
}

FrozenDrawing::~FrozenDrawing() {
    if (m_systemIsLocked) {
        LockWindowUpdate(nullptr);
    }
    m_widget.setUpdatesEnabled(true);
}

} // namespace ocuva
