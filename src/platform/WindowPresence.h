#pragma once
// What the window system itself shows of a window. Qt's own idea of it runs late, and can be wrong for good
// when requests cross.

class QWidget;

namespace ocuva {

/// What is on the screen of a window.
enum class WindowPresence {
    Shown,    ///< the window itself; others may cover it
    Iconic,   ///< minimised, or on another desktop
    Hidden,   ///< nothing, not even an icon
    Changing, ///< the window system is still at work on it
};

/// Asks the window system, and waits for its answer. Where that cannot be asked, what Qt believes; that is
/// never Changing.
WindowPresence presenceOf(const QWidget& window);

} // namespace ocuva
