#pragma once
// Where a dialog opens: on the screen of the main window, clear of what the operator watches and works with.

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

/// The place for a dialog of that size, its frame included. Outside the main window where there is room,
/// clear of the other dialogs if possible: at its right, else at its left, below or above, their upper (left)
/// edges in line. Else over the main window, but clear of image, Z panel and status bar; else clear of image
/// and Z panel. With a valid `smallest` the dialog is made smaller, down to that size, before it covers more.
/// Where all of this fails, the place that covers nothing of the status bar and least of image and Z panel.
/// Always wholly on the screen.
QRect dialogPlace(const Surroundings& around, QSize size, QSize smallest = {});

/// Whether a dialog there lies on the screen and covers neither image nor Z panel nor status bar.
bool isClear(const QRect& dialog, const Surroundings& around);

/// The same dialog clear of the status bar, moved by the least distance; unchanged where it does not cover
/// it, or where there is no such place.
QRect clearOfHint(const QRect& dialog, const Surroundings& around);

} // namespace ocuva
