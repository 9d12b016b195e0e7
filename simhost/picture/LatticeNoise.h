#pragma once
// Smooth noise of a given grain size over a grid of places.

#include "simhost/picture/SampleGrid.h"

#include <cstdint>
#include <vector>

namespace simhost {

/// Adds noise of mean 0 and about -amplitude to +amplitude (root mean square about 0.32 of it) to
/// `values` (grid.size() numbers). Its bumps are about `spacing` units wide; when a sample is wider than half
/// of that the noise fades out and is gone at the full spacing. A pure function of place, seed and sample
/// size.
void addLatticeNoise(const SampleGrid& grid, double spacing, std::uint32_t seed, float amplitude,
                     std::vector<float>& values);

} // namespace simhost
