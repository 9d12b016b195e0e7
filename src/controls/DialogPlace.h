#pragma once
// The place where a dialog opens: on the main window's screen, clear of the areas that the operator
// watches and uses.

#include <QList>
#include <QRect>
#include <QSize>

namespace ocuva {

/// What a dialog is placed among. All rectangles are in screen coordinates.
struct Surroundings {
    QRect screen;         ///< the working area of the main window's screen
    QRect mainWindow;     ///< with its frame; empty when it is not shown
    QList<QRect> watched; ///< the image and the Z panel
    QRect hint;           ///< the status bar, which says what to do next
    QList<QRect> dialogs; ///< the others that are open
};

/// The largest rectangles of the screen that none of the others touches; they overlap each other.
QList<QRect> freeRectangles(const QRect& screen, const QList<QRect>& taken);

/// The place for a dialog of that size, including its frame. Outside the main window if there is room, and
/// clear of the other dialogs if possible: to its right, then left, below, above, with aligned upper
/// (left) edges. Otherwise over the main window, but clear of image, Z panel and status bar; otherwise
/// clear of image and Z panel. With a valid `smallest` the dialog is made smaller, down to that size,
/// before it covers more. If all of this fails, the place that covers nothing of the status bar and least
/// of image and Z panel. Always entirely on the screen.
QRect dialogPlace(const Surroundings& around, QSize size, QSize smallest = {});

/// Whether a dialog there is on the screen and covers neither image nor Z panel nor status bar.
bool isClear(const QRect& dialog, const Surroundings& around);

/// The dialog's rectangle, moved clear of the status bar by the shortest distance; unchanged if it does
/// not cover the status bar or there is no such place.
QRect clearOfHint(const QRect& dialog, const Surroundings& around);

} // namespace ocuva
