#include "platform/SystemWindow.h"
#include "platform/WindowPresence.h"

namespace ocuva {

WindowPresence presenceOf(const QWidget& window) {
    const HWND handle = systemWindow(window.internalWinId());
    if (handle == nullptr) {
        return window.isVisible() ? (window.isMinimized() ? WindowPresence::Iconic : WindowPresence::Shown)
                                  : WindowPresence::Hidden;
    }
    if (IsWindowVisible(handle) == FALSE) {
        return WindowPresence::Hidden;
    }
    return IsIconic(handle) != FALSE ? WindowPresence::Iconic : WindowPresence::Shown;
}

} // namespace ocuva
