#pragma once
// A polished section without end: grains, aggregates, inclusions, pores and scratches of one assemblage.

#include "hosts/simulated/world/Minerals.h"
#include "hosts/simulated/world/SampleGrid.h"

#include <cstdint>

namespace hosts::simulated {

/// Paints the section at every sample; a pure function of place, seed, assemblage and sample size. Samples
/// wider than 48 units get the assemblage's mean colour.
void paintSection(const SampleGrid& grid, const Assemblage& assemblage, std::uint32_t seed,
                  ColourPlanes& out);

} // namespace hosts::simulated
