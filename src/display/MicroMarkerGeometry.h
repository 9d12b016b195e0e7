#pragma once
// The scale bar: the length that it represents, and its length on the image.

#include "base/Types.h"
#include "display/LengthConversion.h"
#include "video/Magnification.h"

#include <string>

namespace ocuva {

/// A scale bar as it is to be shown.
struct MicroMarker {
    Integer scaleValue = 1; ///< length that the bar represents, stage units
    Integer barTwips = 0;   ///< its length on the initial image
};

/// Aims at a quarter of the field across the display's width at the initial image's scale or, if that bar
/// does not fit into the stretched image, at a quarter of the image. Widths in twips. Throws
/// ArithmeticError for a field without width (magnification or field factor 0, after the conversion's log
/// line) and for lengths that exceed 16 bits.
MicroMarker microMarker(const Magnification& magnification, const LengthConversion& conversion,
                        Long displayWidth, Long initialWidth);

/// The label's text in UTF-8: a space, the scale value, a space and the micro sign.
std::string microMarkerText(Integer scaleValue);

} // namespace ocuva
