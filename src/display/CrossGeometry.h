#pragma once
// The four arms of the centre cross.

#include "display/OverlayMapping.h"

#include <array>

namespace ocuva {

/// As it was set, at 1:1 or divided by the zoom.
struct CrossShape {
    Long sizePixels = 0;  ///< from the end of one arm to the end of the opposite one
    Long widthPixels = 0; ///< of each arm
};

/// A place on the initial image, twips.
struct ImagePoint {
    /// From its top left corner.
    ///@{
    Long x = 0;
    Long y = 0;
    ///@}
};

/// Left, right, upper and lower arm. Each begins at the gap from the centre, a sixteenth of the size, and
/// ends at half the size, both rounded half to even to whole pixels; so the empty middle is two gaps wide. A
/// size of 0 or below gives arms without length.
std::array<OverlayBar, 4> crossArms(ImagePoint centre, CrossShape shape, ScreenMetrics screen);

} // namespace ocuva
