#include "display/CrossGeometry.h"

#include "base/Numbers.h"

#include <algorithm>

namespace ocuva {

std::array<OverlayBar, 4> crossArms(ImagePoint centre, CrossShape shape, ScreenMetrics screen) {
    using enum OverlayBar::Direction;
    const double size = std::max(shape.sizePixels, Long{0});
    const double gap = toLong(size / 16.0);
    const double half = toLong(size / 2.0);
    const double gapX = gap * screen.TwipsPerPixelX;
    const double gapY = gap * screen.TwipsPerPixelY;
    const double halfX = half * screen.TwipsPerPixelX;
    const double halfY = half * screen.TwipsPerPixelY;
    const double x = centre.x;
    const double y = centre.y;
    return {{{Horizontal, y, x - halfX, x - gapX, shape.widthPixels},
             {Horizontal, y, x + gapX, x + halfX, shape.widthPixels},
             {Vertical, x, y - halfY, y - gapY, shape.widthPixels},
             {Vertical, x, y + gapY, y + halfY, shape.widthPixels}}};
}

} // namespace ocuva
