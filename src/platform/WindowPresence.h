#pragma once
// Whether a window is really on the screen. Qt's own state is delayed, and can stay wrong when requests
// cross.

class QWidget;

namespace ocuva {

/// What the screen shows of a window.
enum class WindowPresence {
    Shown,    ///< the window itself; others may cover it
    Iconic,   ///< minimised, or on another desktop
    Hidden,   ///< nothing, not even an icon
    Changing, ///< the window system has not finished with it
};

/// Asks the window system and waits for its answer. If that is not possible, returns Qt's state, which is
/// never Changing.
WindowPresence presenceOf(const QWidget& window);

} // namespace ocuva
