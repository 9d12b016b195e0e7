#pragma once
// The bars of the grid.

#include "display/CrossGeometry.h"
#include "display/OverlayMapping.h"

#include <vector>

namespace ocuva {

/// As it was set, at 1:1 or divided by the zoom.
struct GridShape {
    Long pitchXPixels = 0; ///< between the middle lines of neighbouring vertical bars
    Long pitchYPixels = 0; ///< of horizontal bars
    Long widthPixels = 0;  ///< of each bar
};

/// Pitch on the display below which the bars would fill the picture; no grid is shown then.
inline constexpr double smallestGridPitchPixels = 2.0;
/// Pitch on the display below which bars with an outline would hide more of the picture than they leave.
inline constexpr double smallestOutlinedPitchPixels = 8.0;

/// A grid on the display.
struct GridBars {
    std::vector<PixelRect> bars; ///< in pixels of the display
    bool roomForOutline = false; ///< the pitches are at least smallestOutlinedPitchPixels
};

/// The bars from edge to edge of the display, first the vertical ones from left to right, then the
/// horizontal ones from top to bottom. They are half a pitch to either side of the centre, then one pitch
/// apart, so the centre is the middle of a cell. A bar is at most half its pitch wide. Empty if a pitch is
/// too small to be shown.
GridBars gridBars(ImagePoint centre, const GridShape& shape, const OverlayMapping& mapping,
                  ScreenMetrics screen);

} // namespace ocuva
