#pragma once
// Smooth noise of a given grain size over a grid of places.

#include "hosts/simulated/world/SampleGrid.h"

#include <cstdint>
#include <vector>

namespace hosts::simulated {

/// Fields of smooth noise over one grid of places.
class LatticeNoise {
public:
    explicit LatticeNoise(const SampleGrid& grid)
        : m_grid(grid) {}

    /// Adds noise of mean 0 and about -amplitude to +amplitude (root mean square about 0.32 of it) to
    /// `values` (at least grid.size() numbers). Its bumps are about `spacing` units wide; when a sample is
    /// wider than half of that the noise fades out and is gone at the full spacing. A pure function of place,
    /// seed and sample size. Cheapest right after another field of the same spacing.
    void add(double spacing, std::uint32_t seed, float amplitude, std::vector<float>& values);

private:
    // Quadratic B-spline through a lattice of random numbers: three neighbours along each axis.
    struct Knots {
        std::int64_t first = 0;          // least lattice number that a place needs
        std::size_t count = 0;           // of lattice numbers
        std::vector<std::int32_t> place; // of the knot before each place, counted from `first`
        std::vector<float> before, at, after;
        void put(double start, double step, int places, double spacing);
    };

    SampleGrid m_grid;
    double m_spacing = 0.0; // of the knots
    Knots m_columns;
    Knots m_rows;
    std::vector<std::uint32_t> m_columnHashes;
    std::vector<float> m_lattice;      // one row
    std::vector<float> m_interpolated; // all rows of the lattice, at the grid's columns
};

} // namespace hosts::simulated
