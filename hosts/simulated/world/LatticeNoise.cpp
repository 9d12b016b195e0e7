#include "hosts/simulated/world/LatticeNoise.h"

#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Hash.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

HOSTS_VECTOR_CLONES void drawLattice(const std::uint32_t* __restrict columnHashes, std::int64_t latticeRow,
                                     float* __restrict lattice, std::size_t count) {
    const auto row = static_cast<std::uint32_t>(latticeRow);
    for (std::size_t i = 0; i < count; ++i) {
        // The upper bits as a signed number, which vectors turn into floats at once.
        const auto upper = static_cast<std::int32_t>(mix(columnHashes[i], row) >> 8);
        lattice[i] = static_cast<float>(upper) * (1.0F / 16777216.0F) * 2.0F - 1.0F;
    }
}

// One lattice row, interpolated to the grid's columns.
HOSTS_VECTOR_CLONES void interpolateRow(const std::int32_t* __restrict place, const float* __restrict before,
                                        const float* __restrict at, const float* __restrict after,
                                        const float* __restrict lattice, float* __restrict out,
                                        std::size_t count) {
    for (std::size_t c = 0; c < count; ++c) {
        out[c] =
            before[c] * lattice[place[c]] + at[c] * lattice[place[c] + 1] + after[c] * lattice[place[c] + 2];
    }
}

HOSTS_VECTOR_CLONES void addWeighted(float* out, const float* a, const float* b, const float* c, float wa,
                                     float wb, float wc, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] += wa * a[i] + wb * b[i] + wc * c[i];
    }
}

HOSTS_VECTOR_CLONES void weighPlaces(double start, double step, double spacing, std::int64_t low,
                                     std::int32_t* __restrict place, float* __restrict before,
                                     float* __restrict at, float* __restrict after, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const double where = (start + static_cast<double>(i) * step) / spacing;
        const double nearest = std::floor(where + 0.5);
        const auto t = static_cast<float>(where - nearest);
        place[i] = static_cast<std::int32_t>(nearest - static_cast<double>(low));
        before[i] = 0.5F * (0.5F - t) * (0.5F - t);
        at[i] = 0.75F - t * t;
        after[i] = 0.5F * (0.5F + t) * (0.5F + t);
    }
}

} // namespace

void LatticeNoise::Knots::put(double start, double step, int places, double spacing) {
    const auto knotAt = [&](int i) {
        return static_cast<std::int64_t>(std::floor((start + i * step) / spacing + 0.5));
    };
    const auto [low, high] = std::minmax({knotAt(0), knotAt(places - 1)});
    first = low - 1;
    count = static_cast<std::size_t>(high - low + 3);
    const auto size = static_cast<std::size_t>(places);
    place.resize(size);
    before.resize(size);
    at.resize(size);
    after.resize(size);
    weighPlaces(start, step, spacing, low, place.data(), before.data(), at.data(), after.data(), size);
}

void LatticeNoise::add(double spacing, std::uint32_t seed, float amplitude, std::vector<float>& values) {
    const float fade = std::min(1.0F, 2.0F - 2.0F * m_grid.footprint() / static_cast<float>(spacing));
    if (fade <= 0.0F) {
        return;
    }
    if (spacing != m_spacing) {
        m_spacing = spacing;
        m_columns.put(m_grid.x0, m_grid.stepX, m_grid.columns, spacing);
        m_rows.put(m_grid.y0, m_grid.stepY, m_grid.rows, spacing);
    }
    const auto width = static_cast<std::size_t>(m_grid.columns);
    m_interpolated.resize(std::max(m_interpolated.size(), m_rows.count * width));
    m_lattice.resize(m_columns.count);
    // The first half of cellHash for each lattice column is the same in every row.
    m_columnHashes.resize(m_columns.count);
    for (std::size_t i = 0; i < m_columns.count; ++i) {
        const std::int64_t column = m_columns.first + static_cast<std::int64_t>(i);
        m_columnHashes[i] = mix(seed, static_cast<std::uint32_t>(column));
    }
    for (std::size_t row = 0; row < m_rows.count; ++row) {
        drawLattice(m_columnHashes.data(), m_rows.first + static_cast<std::int64_t>(row), m_lattice.data(),
                    m_lattice.size());
        interpolateRow(m_columns.place.data(), m_columns.before.data(), m_columns.at.data(),
                       m_columns.after.data(), m_lattice.data(), &m_interpolated[row * width], width);
    }
    const float scale = amplitude * fade;
    for (std::size_t r = 0; r < m_rows.place.size(); ++r) {
        const float* first = &m_interpolated[static_cast<std::size_t>(m_rows.place[r]) * width];
        addWeighted(&values[r * width], first, first + width, first + 2 * width, m_rows.before[r] * scale,
                    m_rows.at[r] * scale, m_rows.after[r] * scale, width);
    }
}

} // namespace hosts::simulated
