#pragma once
// Everything under the simulated microscope: an endless polished section, standards in round mounts, and a
// graticule of known pitch. README.md next to this file lists places, sizes and colours.

#include "hosts/simulated/world/SampleGrid.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hosts::simulated {

/// A round standard in the holder.
struct Mount {
    double x = 0.0; ///< stage position that brings its centre under the image centre
    double y = 0.0;
    int number = 1;   ///< engraved above the centre
    std::string name; ///< engraved below the centre; a mineral's name in it decides the look
};

/// A pure function of place and seed, equal on every machine. May be used from any thread.
class World {
public:
    // Radii around a mount's centre, units.
    static constexpr double kMineralRadius = 1700.0; ///< the polished standard
    static constexpr double kRingRadius = 1800.0;    ///< outer edge of the metal ring
    static constexpr double kEpoxyRadius = 2200.0;   ///< outer edge of the epoxy

    // The graticule: a cross of two scales, lines every 10 units, longer every 50 and 100, numbered every
    // 100.
    static constexpr double kGraticuleX = 0.0;
    static constexpr double kGraticuleY = 9000.0;
    static constexpr double kGraticuleLength = 1000.0;
    static constexpr double kGraticulePitch = 10.0;
    static constexpr double kGlassRadius = 640.0;
    static constexpr double kGraticuleRingRadius = 700.0;
    static constexpr double kGraticuleEpoxyRadius = 900.0;

    World(std::uint32_t seed, std::vector<Mount> mounts);

    /// The true colour at a place, in grey levels before optics and noise. Places are limited to +-1e12;
    /// numbers that are not finite count as 0.
    Rgb colourAt(double x, double y) const;

    /// The colours of a grid of places: what colourAt gives, softened to the size of the samples. Places must
    /// be within +-1e12.
    ColourPlanes paint(const SampleGrid& grid) const;

    std::uint32_t seed() const { return m_seed; }
    const std::vector<Mount>& mounts() const { return m_mounts; }

private:
    std::uint32_t m_seed;
    std::vector<Mount> m_mounts;
};

} // namespace hosts::simulated
