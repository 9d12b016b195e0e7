#include "simhost/picture/LatticeNoise.h"

#include "simhost/picture/Hash.h"
#include "simhost/picture/VectorClones.h"

#include <algorithm>
#include <cmath>

namespace simhost {
namespace {

// Quadratic B-spline through a lattice of random numbers: three neighbours along each axis.
struct Knots {
    std::vector<std::int64_t> middle;
    std::vector<float> before, at, after;
};

SIMHOST_VECTOR_CLONES Knots knotsAlong(double start, double step, int count, double spacing) {
    const auto size = static_cast<std::size_t>(count);
    Knots knots{std::vector<std::int64_t>(size), std::vector<float>(size), std::vector<float>(size),
                std::vector<float>(size)};
    for (std::size_t i = 0; i < size; ++i) {
        const double place = (start + static_cast<double>(i) * step) / spacing;
        const double nearest = std::floor(place + 0.5);
        const auto t = static_cast<float>(place - nearest);
        knots.middle[i] = static_cast<std::int64_t>(nearest);
        knots.before[i] = 0.5F * (0.5F - t) * (0.5F - t);
        knots.at[i] = 0.75F - t * t;
        knots.after[i] = 0.5F * (0.5F + t) * (0.5F + t);
    }
    return knots;
}

// The first half of cellHash for each lattice column, the same in every row.
std::vector<std::uint32_t> hashColumns(std::uint32_t seed, std::int64_t first, std::size_t count) {
    std::vector<std::uint32_t> hashes(count);
    for (std::size_t i = 0; i < count; ++i) {
        hashes[i] = mix(seed, static_cast<std::uint32_t>(first + static_cast<std::int64_t>(i)));
    }
    return hashes;
}

SIMHOST_VECTOR_CLONES void drawLattice(const std::uint32_t* __restrict columnHashes, std::int64_t latticeRow,
                                       float* __restrict lattice, std::size_t count) {
    const auto row = static_cast<std::uint32_t>(latticeRow);
    for (std::size_t i = 0; i < count; ++i) {
        // The upper bits as a signed number, which vectors turn into floats at once.
        const auto upper = static_cast<std::int32_t>(mix(columnHashes[i], row) >> 8);
        lattice[i] = static_cast<float>(upper) * (1.0F / 16777216.0F) * 2.0F - 1.0F;
    }
}

// One lattice row, interpolated to the grid's columns; `first` is the column of lattice[1].
SIMHOST_VECTOR_CLONES void interpolateRow(const Knots& columns, std::int64_t first,
                                          const float* __restrict lattice, float* __restrict out) {
    const std::size_t count = columns.middle.size();
    const std::int64_t* __restrict middle = columns.middle.data();
    const float* __restrict before = columns.before.data();
    const float* __restrict at = columns.at.data();
    const float* __restrict after = columns.after.data();
    for (std::size_t c = 0; c < count; ++c) {
        const float* knot = lattice + (middle[c] - first);
        out[c] = before[c] * knot[0] + at[c] * knot[1] + after[c] * knot[2];
    }
}

SIMHOST_VECTOR_CLONES void addWeighted(float* out, const float* a, const float* b, const float* c, float wa,
                                       float wb, float wc, std::size_t count) {
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
    const auto [left, right] = std::minmax(columns.middle.front(), columns.middle.back());
    const std::vector<std::uint32_t> columnHashes =
        hashColumns(seed, left - 1, static_cast<std::size_t>(right - left + 3));
    std::vector<float> lattice(columnHashes.size());
    for (std::int64_t row = low - 1; row <= high + 1; ++row) {
        drawLattice(columnHashes.data(), row, lattice.data(), lattice.size());
        interpolateRow(columns, left, lattice.data(),
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
