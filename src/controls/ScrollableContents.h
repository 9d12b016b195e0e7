#pragma once
// A dialog whose contents need more room than the screen has.

#include <QSize>
#include <QWidget>

namespace ocuva {

/// Puts the contents of a window into an area with scroll bars when they cannot be made as small as `room`.
/// Focus and order of the controls stay as they are. Does nothing for a window that fits, that has no layout,
/// or whose contents have been put into such an area before.
void scrollWhatDoesNotFit(QWidget& window, QSize room);

} // namespace ocuva
