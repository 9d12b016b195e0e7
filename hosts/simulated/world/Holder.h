#pragma once
// Round things set into the section: mounts with ring and epoxy, and the graticule.

#include "hosts/simulated/world/World.h"

namespace hosts::simulated {

/// How a grid lies to a circle.
enum class Overlap : std::uint8_t { None, Part, Whole };
Overlap overlapOf(const SampleGrid& grid, double centreX, double centreY, double radius);

/// Paints a mount over `out` out to its epoxy's edge.
void paintMount(const SampleGrid& grid, const Mount& mount, std::uint32_t seed, ColourPlanes& out);

/// Paints the graticule over `out` out to its epoxy's edge.
void paintGraticule(const SampleGrid& grid, std::uint32_t seed, ColourPlanes& out);

} // namespace hosts::simulated
