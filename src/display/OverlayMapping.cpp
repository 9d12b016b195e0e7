#include "display/OverlayMapping.h"

#include "base/Numbers.h"

#include <algorithm>

namespace ocuva {

namespace {

double ratio(int pixels, Long twips, double twipsPerPixel) {
    return twips >= 1 ? pixels / static_cast<double>(twips) : 1.0 / twipsPerPixel;
}

struct Span {
    int begin = 0;
    int length = 0;
};

// Cut off while it is still a float: a bar may be longer than any number of pixels.
Span cut(double begin, double end, int limit) {
    const Long first = toLong(std::clamp(begin, 0.0, static_cast<double>(limit)));
    const Long last = toLong(std::clamp(end, 0.0, static_cast<double>(limit)));
    return {first, last - first};
}

Span across(double middle, Long width, int limit) {
    const double whole = std::max(width, Long{1});
    // The first edge is rounded and the second follows from it, so that every bar is equally thick.
    const double begin = toLong(std::clamp(middle - whole / 2.0, -2.0 * limit - whole, 2.0 * limit + whole));
    return cut(begin, begin + whole, limit);
}

} // namespace

OverlayMapping::OverlayMapping(Long initialWidthTwips, Long initialHeightTwips, PixelSize display,
                               ScreenMetrics screen)
    : m_display(display)
    , m_pixelsPerTwipX(ratio(display.width, initialWidthTwips, screen.TwipsPerPixelX))
    , m_pixelsPerTwipY(ratio(display.height, initialHeightTwips, screen.TwipsPerPixelY)) {}

std::optional<PixelRect> OverlayMapping::toDisplay(const OverlayBar& bar) const {
    PixelRect rect;
    if (bar.direction == OverlayBar::Direction::Horizontal) {
        const Span along = cut(pixelsX(bar.from), pixelsX(bar.to), m_display.width);
        const Span thick = across(pixelsY(bar.at), bar.widthPixels, m_display.height);
        rect = {along.begin, thick.begin, along.length, thick.length};
    } else {
        const Span along = cut(pixelsY(bar.from), pixelsY(bar.to), m_display.height);
        const Span thick = across(pixelsX(bar.at), bar.widthPixels, m_display.width);
        rect = {thick.begin, along.begin, thick.length, along.length};
    }
    if (rect.width <= 0 || rect.height <= 0) {
        return std::nullopt;
    }
    return rect;
}

} // namespace ocuva
