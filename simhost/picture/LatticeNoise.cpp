#include "simhost/picture/LatticeNoise.h"

#include "simhost/picture/Hash.h"

#include <algorithm>
#include <cmath>

namespace simhost {
namespace {

// Quadratic B-spline through a lattice of random numbers: three neighbours along each axis.
struct Knots {
    std::vector<std::int64_t> middle;
    std::vector<float> before, at, after;
};

Knots knotsAlong(double start, double step, int count, double spacing) {
    Knots knots;
    for (int i = 0; i < count; ++i) {
        const double place = (start + i * step) / spacing;
        const double nearest = std::floor(place + 0.5);
        const auto t = static_cast<float>(place - nearest);
        knots.middle.push_back(static_cast<std::int64_t>(nearest));
        knots.before.push_back(0.5F * (0.5F - t) * (0.5F - t));
        knots.at.push_back(0.75F - t * t);
        knots.after.push_back(0.5F * (0.5F + t) * (0.5F + t));
    }
    return knots;
}

// One lattice row, interpolated to the grid's columns.
void interpolateRow(const Knots& columns, std::uint32_t seed, std::int64_t latticeRow,
                    std::vector<float>& lattice, float* out) {
    const auto [low, high] = std::minmax(columns.middle.front(), columns.middle.back());
    lattice.clear();
    for (std::int64_t column = low - 1; column <= high + 1; ++column) {
        lattice.push_back(signedFloat(cellHash(seed, column, latticeRow)));
    }
    for (std::size_t c = 0; c < columns.middle.size(); ++c) {
        const float* knot = &lattice[static_cast<std::size_t>(columns.middle[c] - low)];
        out[c] = columns.before[c] * knot[0] + columns.at[c] * knot[1] + columns.after[c] * knot[2];
    }
}

void addWeighted(float* out, const float* a, const float* b, const float* c, float wa, float wb, float wc,
                 std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] += wa * a[i] + wb * b[i] + wc * c[i];
    }
}

} // namespace

void addLatticeNoise(const SampleGrid& grid, double spacing, std::uint32_t seed, float amplitude,
                     std::vector<float>& values) {
    const float fade = std::min(1.0F, 2.0F - 2.0F * grid.footprint() / static_cast<float>(spacing));
    if (fade <= 0.0F) {
        return;
    }
    const Knots columns = knotsAlong(grid.x0, grid.stepX, grid.columns, spacing);
    const Knots rows = knotsAlong(grid.y0, grid.stepY, grid.rows, spacing);
    const auto [low, high] = std::minmax(rows.middle.front(), rows.middle.back());
    const auto width = static_cast<std::size_t>(grid.columns);
    std::vector<float> interpolated(static_cast<std::size_t>(high - low + 3) * width);
    std::vector<float> lattice;
    for (std::int64_t row = low - 1; row <= high + 1; ++row) {
        interpolateRow(columns, seed, row, lattice,
                       &interpolated[static_cast<std::size_t>(row - low + 1) * width]);
    }
    const float scale = amplitude * fade;
    for (std::size_t r = 0; r < rows.middle.size(); ++r) {
        const float* first = &interpolated[static_cast<std::size_t>(rows.middle[r] - low) * width];
        addWeighted(&values[r * width], first, first + width, first + 2 * width, rows.before[r] * scale,
                    rows.at[r] * scale, rows.after[r] * scale, width);
    }
}

} // namespace simhost
