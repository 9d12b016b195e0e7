#include "display/TwipsGeometry.h"

#include "base/Numbers.h"

#include <algorithm>

namespace ocuva {

namespace {

// Widgets cannot be larger than this, and a size that could not be shown anyway must not become an overflow.
int boundedPixels(Long twips, double twipsPerPixel) {
    return std::clamp(toLong(twips / twipsPerPixel), -Long{QWIDGETSIZE_MAX}, Long{QWIDGETSIZE_MAX});
}

} // namespace

ScreenMetrics screenMetrics() { return {}; }

int pixelsX(Long twips) { return boundedPixels(twips, screenMetrics().TwipsPerPixelX); }
int pixelsY(Long twips) { return boundedPixels(twips, screenMetrics().TwipsPerPixelY); }

QRect toPixels(const TwipsRect& rect) {
    return {pixelsX(rect.left), pixelsY(rect.top), pixelsX(rect.width), pixelsY(rect.height)};
}

Long twipsX(int pixels) { return toLong(pixels * screenMetrics().TwipsPerPixelX); }
Long twipsY(int pixels) { return toLong(pixels * screenMetrics().TwipsPerPixelY); }

TwipsRect toTwips(const QRect& rect) {
    return {twipsX(rect.x()), twipsY(rect.y()), twipsX(rect.width()), twipsY(rect.height())};
}

QPointF toTwips(const QPointF& pixels) {
    const ScreenMetrics screen = screenMetrics();
    return {pixels.x() * screen.TwipsPerPixelX, pixels.y() * screen.TwipsPerPixelY};
}

} // namespace ocuva
