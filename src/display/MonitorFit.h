#pragma once
// At which scale the picture is shown, and which window shows it in the camera's proportions within a screen.

#include "base/Types.h"
#include "display/MonitorSizing.h"
#include "display/OverlayMapping.h"

#include <optional>
#include <string>

namespace ocuva {

/// How many pixels of the picture one pixel of the screen shows along each axis.
struct ShownScale {
    double x = 0.0;         ///< across
    double y = 0.0;         ///< down
    bool stretched = false; ///< the two differ by more than a pixel of the display

    bool operator==(const ShownScale&) const = default;
};

/// The scale of a picture of that size on a display of that size; nothing when either has no pixels.
std::optional<ShownScale> shownScale(PixelSize picture, PixelSize display);

/// "1:2" for 2, "1.5:1" for a picture enlarged by 1.5; at most two decimals.
std::string scaleText(double pixelsOfThePicture);

/// The divisor by which the board may reduce the image without losing visible detail: that of the zoom, or
/// 1 if the image is shown larger than that.
Integer neededReduction(PixelSize picture, PixelSize display, Integer zoomDivisor);

/// Whether this can be the size of an image: both lengths from 1 to 32767 pixels.
bool isPlausiblePicture(PixelSize picture);

/// A window and what its size depends on; all in pixels of the screen, but the picture.
struct WindowToFit {
    PixelSize picture; ///< of the camera, in its own pixels
    PixelSize window;  ///< as it is
    PixelSize around;  ///< the window's parts around the display
    PixelSize largest; ///< the largest window that the screen has room for
    PixelSize before;  ///< the display before the operator resized the window
};

/// The size at which the window shows the picture in its true proportions: the axis along which the display
/// changed more keeps its length and the other follows, and both are reduced until the window fits the
/// screen. A picture that no camera has, or that is more than 20 times as long as wide, has no proportions to
/// keep; the window is only brought to the screen's size then.
PixelSize fittedWindow(const WindowToFit& fit);

} // namespace ocuva
