#include "display/MicroMarkerGeometry.h"

#include "base/Numbers.h"
#include "display/NiceNumber.h"

namespace ocuva {

namespace {

constexpr double targetFraction = 1.0 / 4.0;
// The ends of the bar and its label need some room.
constexpr double largestFraction = 0.9;

MicroMarker markerOver(Long fieldWidth, Long frameWidth) {
    const Integer scaleValue = nearScaleValue(toInteger(fieldWidth * targetFraction));
    return {scaleValue, toInteger(checkedDivide(static_cast<double>(scaleValue) * frameWidth, fieldWidth))};
}

} // namespace

MicroMarker microMarker(const Magnification& magnification, const LengthConversion& conversion,
                        Long displayWidth, Long initialWidth) {
    const auto fieldOver = [&](Long width) {
        return conversion.frameToStage(magnification.magnification, magnification.x100,
                                       {width, initialWidth});
    };
    const MicroMarker marker = markerOver(fieldOver(displayWidth), displayWidth);
    if (marker.barTwips <= largestFraction * initialWidth) {
        return marker;
    }
    return markerOver(fieldOver(initialWidth), initialWidth);
}

std::string microMarkerText(Integer scaleValue) { return " " + std::to_string(scaleValue) + " \u00b5"; }

} // namespace ocuva
