#include "display/GridGeometry.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace ocuva {

namespace {

// One direction of the grid; all lengths but the width in twips.
struct Ruling {
    OverlayBar::Direction direction;
    double centre;
    double pitch;
    double pixelsPerTwip;
    double end;    // of the display, across the bars
    double length; // of the bars
};

void rule(const Ruling& ruling, Long widthPixels, const OverlayMapping& mapping,
          std::vector<PixelRect>& bars) {
    const Long halfPitch = toLong(std::floor(ruling.pitch * ruling.pixelsPerTwip / 2.0));
    const Long width = std::clamp(widthPixels, Long{1}, std::max(halfPitch, Long{1}));
    const double halfBar = width / 2.0 / ruling.pixelsPerTwip;
    // Counted, not added up, so that no error grows from bar to bar.
    const double first = std::ceil((-halfBar - ruling.centre) / ruling.pitch - 0.5);
    for (double n = first;; ++n) {
        const double at = ruling.centre + (n + 0.5) * ruling.pitch;
        if (at - halfBar >= ruling.end) {
            return;
        }
        if (const auto rect = mapping.toDisplay({ruling.direction, at, 0.0, ruling.length, width})) {
            bars.push_back(*rect);
        }
    }
}

} // namespace

GridBars gridBars(ImagePoint centre, const GridShape& shape, const OverlayMapping& mapping,
                  ScreenMetrics screen) {
    using enum OverlayBar::Direction;
    const double perTwipX = mapping.pixelsX(1.0);
    const double perTwipY = mapping.pixelsY(1.0);
    const double pitchX = shape.pitchXPixels * screen.TwipsPerPixelX;
    const double pitchY = shape.pitchYPixels * screen.TwipsPerPixelY;
    const double smallestPitch = std::min(pitchX * perTwipX, pitchY * perTwipY);
    if (smallestPitch < smallestGridPitchPixels) {
        return {};
    }
    const double width = mapping.display().width / perTwipX;
    const double height = mapping.display().height / perTwipY;
    GridBars grid{{}, smallestPitch >= smallestOutlinedPitchPixels};
    rule({Vertical, static_cast<double>(centre.x), pitchX, perTwipX, width, height}, shape.widthPixels,
         mapping, grid.bars);
    rule({Horizontal, static_cast<double>(centre.y), pitchY, perTwipY, height, width}, shape.widthPixels,
         mapping, grid.bars);
    return grid;
}

} // namespace ocuva
