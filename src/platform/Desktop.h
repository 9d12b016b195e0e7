#pragma once
// Functions of the window system that Qt does not offer. Only Windows has them; elsewhere Qt does the same
// as far as possible.

#include <QtGlobal>

class QWidget;

namespace ocuva {

/// Brings a visible window in front of all others.
void bringWindowToTop(QWidget& window);

/// Whether the program runs inside its development environment: the top window of class "ThunderMain"
/// belongs to the same module instance as `window`, the program's first window. Always false where there
/// are no window classes.
bool runsInDevelopmentEnvironment(quintptr window);

/// Whether any mouse button is held down, wherever the pointer is. This includes the time in which the
/// window system moves or resizes a window for the operator, which the program cannot notice otherwise.
bool anyMouseButtonIsDown();

/// Suspends the drawing of a widget while it is filled.
class FrozenDrawing {
public:
    /// For the life of this object; the widget outlives it.
    explicit FrozenDrawing(QWidget& widget);
    ~FrozenDrawing();
    FrozenDrawing(const FrozenDrawing&) = delete;
    FrozenDrawing& operator=(const FrozenDrawing&) = delete;

private:
    QWidget& m_widget;
    [[maybe_unused]] bool m_systemIsLocked = false; // on Windows
};

} // namespace ocuva
