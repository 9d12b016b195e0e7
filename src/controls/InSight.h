#pragma once
// What of the main window stays in sight when a dialog opens.

#include "controls/DialogPlace.h"

#include <QWidget>

namespace ocuva {

/// What a control of the main window is to the operator.
enum class InSight {
    Watched, ///< the image, and what one steers by it
    Hint,    ///< says what to do next
};

/// Dialogs open clear of that control. For the life of the control.
void keepInSight(QWidget& control, InSight as);

/// What a dialog of this main window is placed among; `opener` is the window that it opens from, the main
/// window itself or null for none. Nothing but the screen is in the way of a main window that is hidden or
/// minimised.
Surroundings surroundingsOf(const QWidget& mainWindow, const QWidget* opener = nullptr);

/// The outermost window that a window belongs to: its parent's parent's, and so on.
const QWidget& outermost(const QWidget& widget);

} // namespace ocuva
