#pragma once
// Small things on a polished surface: inclusions, pores and scratches.

#include "hosts/simulated/world/Grains.h"
#include "hosts/simulated/world/Minerals.h"
#include "hosts/simulated/world/SampleGrid.h"

#include <cstdint>

namespace hosts::simulated {

/// Cubes, drops and needles of the assemblage's inclusion minerals, then dark pores with a lit rim. Nothing
/// when samples are wider than 8 units, where they would not show.
void addInclusionsAndPores(const SampleGrid& grid, const Assemblage& assemblage, std::uint32_t seed,
                           const Relief& relief, ColourPlanes& out);

/// Fine polishing scratches in a few directions. Nothing when samples are wider than 8 units.
void addScratches(const SampleGrid& grid, std::uint32_t seed, ColourPlanes& out);

} // namespace hosts::simulated
