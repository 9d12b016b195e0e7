#pragma once
// Windows as the system knows them. Only on Windows.

#include <QWidget>

#include <windows.h>

namespace ocuva {

/// Null unless the system knows it as a window of this process: one that is not made yet, or on a platform
/// without real windows, whose numbers can be those of another program's.
inline HWND systemWindow(WId id) {
    const auto window = reinterpret_cast<HWND>(id);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId() ? window : nullptr;
}

} // namespace ocuva
