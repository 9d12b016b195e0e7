#pragma once
// What the window system reports when the user moves or sizes a window.

#include "controls/WindowPlace.h"

#include <QTest>
#include <QWindow>

namespace ocuva {

/// Waits until what happens to a shown window counts as the user's doing.
inline void waitUntilSettled() { QTest::qWait(WindowPlace::settleMs + 50); }

/// Drags a shown window, or its edges, so that pos() and size() become those of the rectangle.
inline void dragWindow(const QWidget& window, const QRect& to) {
    waitUntilSettled();
    const QMargins frame = window.windowHandle()->frameMargins();
    window.windowHandle()->setGeometry(to.translated(frame.left(), frame.top()));
    QCoreApplication::processEvents();
}

} // namespace ocuva
