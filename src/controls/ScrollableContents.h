#pragma once
// Scroll bars for dialogs whose contents need more room than the screen has.

#include <QSize>
#include <QWidget>

namespace ocuva {

/// Puts the contents of a window into a scroll area if they cannot be made as small as `room`. Focus and
/// order of the controls do not change. Does nothing for a window that fits, has no layout, or has such an
/// area already.
void scrollWhatDoesNotFit(QWidget& window, QSize room);

} // namespace ocuva
