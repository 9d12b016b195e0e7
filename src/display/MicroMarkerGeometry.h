#pragma once
// The scale bar: which length it stands for, and how long it is on the image.

#include "base/Types.h"
#include "display/LengthConversion.h"
#include "video/Magnification.h"

#include <string>

namespace ocuva {

/// A scale bar as it is to be shown.
struct MicroMarker {
    Integer scaleValue = 1; ///< stage units that the bar stands for
    Integer barTwips = 0;   ///< its length on the initial image
};

/// Aims at a quarter of the field that the display's width spans at the initial image's scale; where that bar
/// would not find room in the stretched picture, at a quarter of the picture. Widths in twips.
/// Throws ArithmeticError for a field without width (magnification or field factor 0, after the conversion's
/// log line) and for lengths that leave 16 bits.
MicroMarker microMarker(const Magnification& magnification, const LengthConversion& conversion,
                        Long displayWidth, Long initialWidth);

/// What the label says, in UTF-8: a space, the scale value, a space and the micro sign.
std::string microMarkerText(Integer scaleValue);

} // namespace ocuva
