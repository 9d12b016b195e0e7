#include "simhost/picture/LatticeNoise.h"

#include "simhost/picture/Hash.h"
#include "simhost/picture/VectorClones.h"

#include <algorithm>
#include <cmath>

namespace simhost {
namespace {

// Quadratic B-spline through a lattice of random numbers: three neighbours along each axis.
struct Knots {
    std::int64_t first = 0;          // least lattice number that a place needs
    std::size_t count = 0;           // of lattice numbers
    std::vector<std::int32_t> place; // of the knot before each place, counted from `first`
    std::vector<float> before, at, after;
};

SIMHOST_VECTOR_CLONES Knots knotsAlong(double start, double step, int count, double spacing) {
    const auto size = static_cast<std::size_t>(count);
    const auto knotAt = [&](int i) {
        return static_cast<std::int64_t>(std::floor((start + i * step) / spacing + 0.5));
    };
    const auto [low, high] = std::minmax({knotAt(0), knotAt(count - 1)});
    Knots knots{low - 1,
                static_cast<std::size_t>(high - low + 3),
                std::vector<std::int32_t>(size),
                std::vector<float>(size),
                std::vector<float>(size),
                std::vector<float>(size)};
    for (std::size_t i = 0; i < size; ++i) {
        const double place = (start + static_cast<double>(i) * step) / spacing;
        const double nearest = std::floor(place + 0.5);
        const auto t = static_cast<float>(place - nearest);
        knots.place[i] = static_cast<std::int32_t>(nearest - static_cast<double>(low));
        knots.before[i] = 0.5F * (0.5F - t) * (0.5F - t);
        knots.at[i] = 0.75F - t * t;
        knots.after[i] = 0.5F * (0.5F + t) * (0.5F + t);
    }
    return knots;
}

// The first half of cellHash for each lattice column, the same in every row.
std::vector<std::uint32_t> hashColumns(std::uint32_t seed, const Knots& columns) {
    std::vector<std::uint32_t> hashes(columns.count);
    for (std::size_t i = 0; i < columns.count; ++i) {
        hashes[i] = mix(seed, static_cast<std::uint32_t>(columns.first + static_cast<std::int64_t>(i)));
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

// One lattice row, interpolated to the grid's columns.
SIMHOST_VECTOR_CLONES void interpolateRow(const Knots& columns, const float* __restrict lattice,
                                          float* __restrict out) {
    const std::size_t count = columns.place.size();
    const std::int32_t* __restrict place = columns.place.data();
    const float* __restrict before = columns.before.data();
    const float* __restrict at = columns.at.data();
    const float* __restrict after = columns.after.data();
    for (std::size_t c = 0; c < count; ++c) {
        out[c] =
            before[c] * lattice[place[c]] + at[c] * lattice[place[c] + 1] + after[c] * lattice[place[c] + 2];
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
    const auto width = static_cast<std::size_t>(grid.columns);
    std::vector<float> interpolated(rows.count * width);
    const std::vector<std::uint32_t> columnHashes = hashColumns(seed, columns);
    std::vector<float> lattice(columns.count);
    for (std::size_t row = 0; row < rows.count; ++row) {
        drawLattice(columnHashes.data(), rows.first + static_cast<std::int64_t>(row), lattice.data(),
                    lattice.size());
        interpolateRow(columns, lattice.data(), &interpolated[row * width]);
    }
    const float scale = amplitude * fade;
    for (std::size_t r = 0; r < rows.place.size(); ++r) {
        const float* first = &interpolated[static_cast<std::size_t>(rows.place[r]) * width];
        addWeighted(&values[r * width], first, first + width, first + 2 * width, rows.before[r] * scale,
                    rows.at[r] * scale, rows.after[r] * scale, width);
    }
}

} // namespace simhost
