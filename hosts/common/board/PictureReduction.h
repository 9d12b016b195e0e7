#pragma once
// The smaller picture that a zoomed-out display shows.

#include "hostlink/DisplayWindow.h"

namespace hosts {

inline constexpr int greatestReduction = 16;

/// Size of a picture of that many pixels after a reduction; rows and columns that fill no whole block fall
/// away.
inline int reducedLength(int pixels, int reduction) { return pixels / reduction; }

/// The reduction for a window, limited so that a dense screen shows all the detail it can. zoom is -n for
/// a picture reduced n times; any other number counts as -1.
int displayReduction(ocuva::Long zoom, bool fullSize, double devicePixelRatio);

/// Writes into `small`, which has the reduced size, the mean of each block of reduction x reduction pixels,
/// rounded half up in each colour. reduction: 1 to greatestReduction.
void reduce(const ocuva::Frame& full, int reduction, ocuva::Frame& small);

} // namespace hosts
