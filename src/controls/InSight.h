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

/// What a dialog of this main window is placed among, before it is on the screen itself. Nothing but the
/// screen counts while the main window is hidden or minimised.
Surroundings surroundingsOf(const QWidget& mainWindow);

/// The outermost window that a window belongs to: its parent's parent's, and so on.
const QWidget& outermost(const QWidget& widget);

} // namespace ocuva
