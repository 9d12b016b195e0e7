#pragma once
// What the program asks the window system for beside Qt. Only Windows has these; elsewhere Qt alone does the
// same, as far as it can be had.

#include <QtGlobal>

class QWidget;

namespace ocuva {

/// Brings a window that is shown in front of all others.
void bringWindowToTop(QWidget& window);

/// Whether the program runs inside the environment that it is developed in: the top window of class
/// "ThunderMain" belongs to the same module instance as `window`, the program's first one. Never where there
/// are no window classes.
bool runsInDevelopmentEnvironment(quintptr window);

/// Whether any button of the mouse is held down, wherever the pointer is: also while the window system moves
/// or sizes a window for the operator, of which the program hears nothing else.
bool anyMouseButtonIsDown();

/// Freezes the drawing of a widget, for the time that it is filled.
class FrozenDrawing {
public:
    /// For as long as it lives; the widget outlives it.
    explicit FrozenDrawing(QWidget& widget);
    ~FrozenDrawing();
    FrozenDrawing(const FrozenDrawing&) = delete;
    FrozenDrawing& operator=(const FrozenDrawing&) = delete;

private:
    QWidget& m_widget;
    [[maybe_unused]] bool m_systemIsLocked = false; // on Windows
};

} // namespace ocuva
