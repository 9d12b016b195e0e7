#pragma once
// The colours that icons are drawn with, taken from a palette so that they read on light and dark alike.

#include <QColor>
#include <QPalette>

namespace ocuva {

enum class IconLook {
    Normal,
    Hot,      ///< under the pointer: livelier
    Disabled, ///< greyed, still legible
    Selected  ///< on the palette's highlight, in lists
};

/// One colour for each part of a drawing.
struct IconInk {
    QColor line;       ///< outlines
    QColor body;       ///< faint filling of outlined shapes (translucent)
    QColor accent;     ///< the part of the motif that shows the button's function
    QColor accentBody; ///< filling of shapes whose function is active (translucent)
    QColor unlit;      ///< a lamp that is off
    QColor lit;        ///< a lamp that is on
    QColor glow;       ///< the halo of a lamp that is on (translucent)
};

/// The ink for icons on the palette's button (Selected: highlight) background.
IconInk inkFor(const QPalette& palette, IconLook look);

} // namespace ocuva
