#pragma once
// How sharp a picture is, as one number that the camera's noise does not raise.

#include "hostlink/DisplayWindow.h"

namespace hosts {

struct Sharpness {
    double score = 0.0;       ///< squared grey levels; near 0, positive or negative, without detail
    double uncertainty = 0.0; ///< what noise does to the score, one standard deviation or a little more
};

/// Looks at the middle of the frame: 1 / fraction of its width and of its height; 1 or less is the whole.
/// The score is the mean squared difference of luminances two pixels apart less that of neighbours, along
/// rows and columns together. Noise that differs from pixel to pixel counts the same in both and falls out.
/// Both numbers are 0 for a part of fewer than 3 x 3 pixels. Frames are at most 16000 pixels wide.
Sharpness sharpnessOf(const ocuva::Frame& frame, int fraction);

} // namespace hosts
