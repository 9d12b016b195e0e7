#include "platform/WindowPresence.h"

#include <QWidget>

#include <windows.h>

namespace ocuva {

WindowPresence presenceOf(const QWidget& window) {
    const auto handle = reinterpret_cast<HWND>(window.internalWinId());
    // A platform without real windows uses numbers of its own.
    if (handle == nullptr || IsWindow(handle) == FALSE) {
        return window.isVisible() ? (window.isMinimized() ? WindowPresence::Iconic : WindowPresence::Shown)
                                  : WindowPresence::Hidden;
    }
    if (IsWindowVisible(handle) == FALSE) {
        return WindowPresence::Hidden;
    }
    return IsIconic(handle) != FALSE ? WindowPresence::Iconic : WindowPresence::Shown;
}

} // namespace ocuva
