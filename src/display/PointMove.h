#pragma once
// Converts a click on the image to the stage move that brings the clicked point to the reference point.
// Pure arithmetic; the main window makes the moves.

#include "base/Types.h"
#include "display/LengthConversion.h"
#include "settings/Settings.h"
#include "video/Magnification.h"

namespace ocuva {

/// A click on the display, all lengths in twips.
struct ClickOnImage {
    /// From the display's top left corner.
    ///@{
    Single x = 0.0F;
    Single y = 0.0F;
    ///@}
    FramePair reference; ///< where the clicked point should arrive: the centre of the display
    FramePair fullFrame; ///< width and height of the whole display
};

/// The relative moves for a click, in stage units. A click right of (below) the reference moves X (Y) down,
/// unless the view options invert the axis. A conversion that fails gives a move of 0 on its axis; an offset
/// or a sign change that leaves 32 bits throws ArithmeticError.
StagePair moveToPoint(const ClickOnImage& click, const Magnification& magnification, const ViewOptions& view,
                      const LengthConversion& conversion);

} // namespace ocuva
