#include "simhost/picture/Grains.h"

#include "simhost/picture/Hash.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace simhost {
namespace {

constexpr int kBlock = 16;             // samples; grains are culled per block
constexpr float kJitter = 0.46F;       // of a cell; below one half no two grains can coincide
constexpr float kWeightSpread = 0.20F; // of a cell squared
// Boundaries are etched a little by polishing: a dark line about this wide, fainter where the hash says so.
constexpr float kBoundaryWidth = 1.1F;
constexpr float kBoundaryDepth = 0.42F;

MineralId pick(const std::vector<Share>& shares, float chance) {
    float total = 0.0F;
    for (const Share& share : shares) {
        total += share.weight;
    }
    float rest = chance * total;
    for (const Share& share : shares) {
        rest -= share.weight;
        if (rest < 0.0F) {
            return share.mineral;
        }
    }
    return shares.back().mineral;
}

void giveLamellae(Grain& grain, const Mineral& kind, Draw& draw) {
    if (draw.unit() >= kind.twinnedPart) {
        return;
    }
    // A direction without trigonometry: a point of the square, brought to length 1.
    const float x = draw.centred();
    const float y = draw.centred() + 0.001F;
    const float length = std::sqrt(x * x + y * y) + 1e-6F;
    const float pitch = kind.twinPitch * draw.between(0.6F, 1.7F);
    grain.lamellaX = x / length / pitch;
    grain.lamellaY = y / length / pitch;
    grain.lamellaContrast = kind.twinContrast * draw.between(0.6F, 1.1F);
}

Grain makeGrain(const Mosaic& mosaic, std::int64_t column, std::int64_t row, const SampleGrid& grid) {
    Grain grain;
    grain.hash = cellHash(mosaic.seed, column, row);
    Draw draw(grain.hash);
    const auto cell = static_cast<float>(mosaic.cell);
    grain.x = static_cast<float>(static_cast<double>(column) * mosaic.cell - grid.x0) +
              cell * (0.5F + kJitter * draw.centred());
    grain.y = static_cast<float>(static_cast<double>(row) * mosaic.cell - grid.y0) +
              cell * (0.5F + kJitter * draw.centred());
    grain.weight = cell * cell * kWeightSpread * (draw.unit() - 1.0F);
    grain.aggregate = draw.unit() < mosaic.aggregatePart;
    const Mineral& kind = mineral(pick(*mosaic.shares, draw.unit()));
    grain.colour = kind.colour * (1.0F + kind.spread * draw.centred());
    grain.texture = kind.texture * draw.between(0.7F, 1.3F);
    giveLamellae(grain, kind, draw);
    return grain;
}

constexpr float kNoGap = 3e38F;

float boundaryWidth(float footprint) { return kBoundaryWidth + 0.5F * footprint; }

// Neighbours are at most some three cells apart, so where powers differ by more no edge is near.
float nearGap(const Mosaic& mosaic, float footprint) {
    return 6.0F * static_cast<float>(mosaic.cell) * boundaryWidth(footprint);
}

struct Bounds {
    float lowX, highX, lowY, highY;
};

// One block's samples, and for each the two least powers. A power carries its grain's place among the
// candidates in its lowest bits, so that plain minimum and maximum keep both in step: all lanes of a vector,
// no branches.
struct Block {
    int columns = 0;
    int rows = 0;
    std::array<float, kBlock * kBlock> x;
    std::array<float, kBlock * kBlock> y;
    std::array<float, kBlock * kBlock> best;
    std::array<float, kBlock * kBlock> second;
    int size() const { return columns * rows; }
    std::size_t indexOf(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }
};

constexpr float lesser(float a, float b) { return a < b ? a : b; }
constexpr float greater(float a, float b) { return a > b ? a : b; }

Bounds boundsOf(const Block& block) {
    // Column by column first: independent lanes.
    const auto size = static_cast<std::size_t>(block.size());
    const auto width = static_cast<std::size_t>(block.columns);
    std::array<float, kBlock> lowX{};
    std::array<float, kBlock> highX{};
    std::array<float, kBlock> lowY{};
    std::array<float, kBlock> highY{};
    std::copy_n(block.x.begin(), width, lowX.begin());
    std::copy_n(block.x.begin(), width, highX.begin());
    std::copy_n(block.y.begin(), width, lowY.begin());
    std::copy_n(block.y.begin(), width, highY.begin());
    for (std::size_t line = width; line < size; line += width) {
        for (std::size_t c = 0; c < width; ++c) {
            lowX[c] = lesser(lowX[c], block.x[line + c]);
            highX[c] = greater(highX[c], block.x[line + c]);
            lowY[c] = lesser(lowY[c], block.y[line + c]);
            highY[c] = greater(highY[c], block.y[line + c]);
        }
    }
    return {*std::min_element(lowX.begin(), lowX.begin() + width),
            *std::max_element(highX.begin(), highX.begin() + width),
            *std::min_element(lowY.begin(), lowY.begin() + width),
            *std::max_element(highY.begin(), highY.begin() + width)};
}

// Grains that can be first or second anywhere in the bounds: those not farther at best than two others at
// worst.
void candidatesIn(const std::vector<Grain>& grains, const Bounds& bounds,
                  std::vector<std::int32_t>& candidates, std::vector<float>& nearest) {
    float worst = 3e38F;
    float secondWorst = 3e38F;
    nearest.resize(grains.size());
    for (std::size_t i = 0; i < grains.size(); ++i) {
        const Grain& grain = grains[i];
        const float farX = std::max(bounds.highX - grain.x, grain.x - bounds.lowX);
        const float farY = std::max(bounds.highY - grain.y, grain.y - bounds.lowY);
        const float nearX = std::max({bounds.lowX - grain.x, grain.x - bounds.highX, 0.0F});
        const float nearY = std::max({bounds.lowY - grain.y, grain.y - bounds.highY, 0.0F});
        nearest[i] = nearX * nearX + nearY * nearY - grain.weight;
        const float farthest = farX * farX + farY * farY - grain.weight;
        secondWorst = std::min(secondWorst, std::max(farthest, worst));
        worst = std::min(worst, farthest);
    }
    candidates.clear();
    for (std::size_t i = 0; i < grains.size(); ++i) {
        if (nearest[i] <= secondWorst) {
            candidates.push_back(static_cast<std::int32_t>(i));
        }
    }
}

void compete(Block& block, const Grain& grain, std::uint32_t place, std::uint32_t placeMask) {
    const int size = block.size();
    const float gx = grain.x;
    const float gy = grain.y;
    const float weight = grain.weight;
    const float* __restrict x = block.x.data();
    const float* __restrict y = block.y.data();
    float* __restrict best = block.best.data();
    float* __restrict second = block.second.data();
    for (int i = 0; i < size; ++i) {
        const float dx = x[i] - gx;
        const float dy = y[i] - gy;
        const float power = dx * dx + dy * dy - weight;
        const auto tagged = std::bit_cast<float>((std::bit_cast<std::uint32_t>(power) & ~placeMask) | place);
        const float first = best[i];
        second[i] = lesser(second[i], greater(first, tagged));
        best[i] = lesser(first, tagged);
    }
}

// Returns the mask of the bits that hold a candidate's place.
std::uint32_t settle(Block& block, const std::vector<Grain>& grains,
                     const std::vector<std::int32_t>& candidates) {
    const std::uint32_t placeMask = std::bit_ceil(static_cast<std::uint32_t>(candidates.size())) - 1U;
    block.best.fill(kNoGap);
    block.second.fill(kNoGap);
    std::uint32_t place = 0;
    for (const std::int32_t number : candidates) {
        compete(block, grains[static_cast<std::size_t>(number)], place++, placeMask);
    }
    return placeMask;
}

void store(const Block& block, const std::vector<std::int32_t>& candidates, std::uint32_t placeMask,
           GrainMap& map, std::size_t first, int columns) {
    const auto grainOf = [&](float tagged) {
        return candidates[std::bit_cast<std::uint32_t>(tagged) & placeMask];
    };
    for (int r = 0; r < block.rows; ++r) {
        const std::size_t line = first + static_cast<std::size_t>(r) * static_cast<std::size_t>(columns);
        for (int c = 0; c < block.columns; ++c) {
            const std::size_t from = block.indexOf(c, r);
            const std::size_t to = line + static_cast<std::size_t>(c);
            map.owner[to] = grainOf(block.best[from]);
            map.neighbour[to] = grainOf(block.second[from]);
            map.gap[to] = block.second[from] - block.best[from];
        }
    }
}

void mapBlock(const std::vector<Grain>& grains, const std::vector<float>& qx, const std::vector<float>& qy,
              int columns, std::size_t first, Block& block, GrainMap& map) {
    for (int r = 0; r < block.rows; ++r) {
        const std::size_t line = first + static_cast<std::size_t>(r) * static_cast<std::size_t>(columns);
        std::copy_n(&qx[line], block.columns, &block.x[r * block.columns]);
        std::copy_n(&qy[line], block.columns, &block.y[r * block.columns]);
    }
    std::vector<std::int32_t> candidates;
    std::vector<float> nearest;
    candidatesIn(grains, boundsOf(block), candidates, nearest);
    const std::uint32_t placeMask = settle(block, grains, candidates);
    store(block, candidates, placeMask, map, first, columns);
}

// Light and dark stripes of uneven width with soft flanks, counted from the grain's own place so that they do
// not depend on the grid.
float lamella(const Grain& grain, float x, float y, float footprint) {
    const float across = (x - grain.x) * grain.lamellaX + (y - grain.y) * grain.lamellaY + 64.0F;
    const auto number = static_cast<std::int32_t>(across);
    const float phase = across - static_cast<float>(number);
    const float width = 0.12F + 0.33F * unitFloat(mix(grain.hash + static_cast<std::uint32_t>(number)));
    const float slope = std::abs(grain.lamellaX) + std::abs(grain.lamellaY); // about 1 / pitch
    const float soft = 0.05F + 0.7F * footprint * slope;
    const float offset = phase < 0.5F ? 0.5F - phase : phase - 0.5F; // 0 in the middle of a light stripe
    const float part = coverage(width - offset, soft);
    const float fade = soft > 0.6F ? 0.0F : 1.0F;
    return 1.0F + grain.lamellaContrast * fade * (part - 0.57F);
}

class Shader {
public:
    Shader(const std::vector<Grain>& grains, const Relief& relief, const ColourPlanes* aggregates)
        : m_grains(grains)
        , m_relief(relief)
        , m_aggregates(aggregates) {}

    Rgb colour(std::int32_t number, std::size_t at) const {
        const Grain& grain = m_grains[static_cast<std::size_t>(number)];
        if (grain.aggregate && m_aggregates != nullptr) {
            return m_aggregates->at(at);
        }
        float light = 1.0F + grain.texture * m_relief.texture[at];
        if (grain.lamellaContrast > 0.0F) {
            light *= lamella(grain, m_relief.straightX[at], m_relief.straightY[at], m_relief.footprint);
        }
        return grain.colour * light;
    }

    // Runs of one grain away from its edge: plain multiplication, the bulk of every picture.
    void run(std::int32_t number, std::size_t begin, std::size_t end, ColourPlanes& out) const {
        const Grain& grain = m_grains[static_cast<std::size_t>(number)];
        if (grain.aggregate && m_aggregates != nullptr) {
            std::copy(&m_aggregates->r[begin], &m_aggregates->r[begin] + (end - begin), &out.r[begin]);
            std::copy(&m_aggregates->g[begin], &m_aggregates->g[begin] + (end - begin), &out.g[begin]);
            std::copy(&m_aggregates->b[begin], &m_aggregates->b[begin] + (end - begin), &out.b[begin]);
            return;
        }
        const float* texture = m_relief.texture.data();
        const Rgb base = grain.colour;
        const float strength = grain.texture;
        for (std::size_t i = begin; i < end; ++i) {
            const float light = 1.0F + strength * texture[i];
            out.r[i] = base.r * light;
            out.g[i] = base.g * light;
            out.b[i] = base.b * light;
        }
        if (grain.lamellaContrast > 0.0F) {
            for (std::size_t i = begin; i < end; ++i) {
                const float light =
                    lamella(grain, m_relief.straightX[i], m_relief.straightY[i], m_relief.footprint);
                out.r[i] *= light;
                out.g[i] *= light;
                out.b[i] *= light;
            }
        }
    }

    // At an edge the two grains share the sample, and the etched boundary darkens both.
    void edge(std::int32_t owner, std::int32_t neighbour, float gap, std::size_t at,
              ColourPlanes& out) const {
        const Grain& a = m_grains[static_cast<std::size_t>(owner)];
        const Grain& b = m_grains[static_cast<std::size_t>(neighbour)];
        // In a power mosaic the distance to the common edge is the difference of powers over twice the
        // distance of the two grains: exact, and linear up to the edge.
        const float apart2 = (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
        const float width = boundaryWidth(m_relief.footprint);
        if (gap * gap >= 4.0F * apart2 * width * width) {
            return;
        }
        const float distance = gap / (2.0F * std::sqrt(apart2) + 1e-3F);
        const std::uint32_t pair = a.hash ^ b.hash;
        const float part = distance < width ? 1.0F - distance / width : 0.0F;
        // The line is wider than it is when a sample is coarse, so it is fainter in proportion.
        const float depth =
            kBoundaryDepth * (0.25F + 0.75F * unitFloat(mix(pair))) * (kBoundaryWidth / width);
        const Rgb own = colour(owner, at);
        const float cover = coverage(distance, m_relief.footprint);
        const Rgb blend = cover < 1.0F ? mixed(colour(neighbour, at), own, cover) : own;
        out.set(at, blend * (1.0F - depth * part));
    }

private:
    const std::vector<Grain>& m_grains;
    const Relief& m_relief;
    const ColourPlanes* m_aggregates;
};

} // namespace

std::vector<Grain> collectGrains(const Mosaic& mosaic, const SampleGrid& grid, float reach) {
    const auto cells = [&](double start, double step, int count) {
        const double end = start + step * (count - 1);
        const auto low = static_cast<std::int64_t>(std::floor((std::min(start, end) - reach) / mosaic.cell));
        const auto high = static_cast<std::int64_t>(std::floor((std::max(start, end) + reach) / mosaic.cell));
        return std::pair{low - 2, high + 2}; // no grain farther off can be nearest
    };
    const auto [left, right] = cells(grid.x0, grid.stepX, grid.columns);
    const auto [bottom, top] = cells(grid.y0, grid.stepY, grid.rows);
    std::vector<Grain> grains;
    grains.reserve(static_cast<std::size_t>((right - left + 1) * (top - bottom + 1)));
    for (std::int64_t row = bottom; row <= top; ++row) {
        for (std::int64_t column = left; column <= right; ++column) {
            grains.push_back(makeGrain(mosaic, column, row, grid));
        }
    }
    return grains;
}

GrainMap mapGrains(const std::vector<Grain>& grains, const std::vector<float>& qx,
                   const std::vector<float>& qy, int columns, int rows, const BlockMask& mask) {
    GrainMap map;
    map.owner.resize(qx.size());
    map.neighbour.resize(qx.size());
    map.gap.resize(qx.size(), kNoGap);
    Block block;
    for (int top = 0; top < rows; top += kBlock) {
        for (int left = 0; left < columns; left += kBlock) {
            if (!mask.wants(left, top)) {
                continue;
            }
            block.columns = std::min(kBlock, columns - left);
            block.rows = std::min(kBlock, rows - top);
            const auto first = static_cast<std::size_t>(top) * static_cast<std::size_t>(columns) +
                               static_cast<std::size_t>(left);
            mapBlock(grains, qx, qy, columns, first, block, map);
        }
    }
    return map;
}

BlockMask aggregateBlocks(const Mosaic& mosaic, const std::vector<Grain>& grains, const GrainMap& map,
                          float footprint, int columns, int rows) {
    BlockMask mask;
    mask.across = (columns + kBlock - 1) / kBlock;
    mask.wanted.resize(static_cast<std::size_t>(mask.across) *
                       static_cast<std::size_t>((rows + kBlock - 1) / kBlock));
    const float limit = nearGap(mosaic, footprint);
    const auto isAggregate = [&](std::int32_t number) {
        return grains[static_cast<std::size_t>(number)].aggregate;
    };
    std::size_t i = 0;
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c, ++i) {
            if (isAggregate(map.owner[i]) || (map.gap[i] < limit && isAggregate(map.neighbour[i]))) {
                mask.wanted[mask.indexOf(c, r)] = 1;
            }
        }
    }
    return mask;
}

void shadeGrains(const Mosaic& mosaic, const std::vector<Grain>& grains, const GrainMap& map,
                 const Relief& relief, const ColourPlanes* aggregates, ColourPlanes& out) {
    const Shader shader(grains, relief, aggregates);
    const float limit = nearGap(mosaic, relief.footprint);
    const std::size_t size = map.owner.size();
    for (std::size_t begin = 0; begin < size;) {
        const std::int32_t owner = map.owner[begin];
        std::size_t end = begin + 1;
        while (end < size && map.owner[end] == owner) {
            ++end;
        }
        shader.run(owner, begin, end, out);
        for (std::size_t i = begin; i < end; ++i) {
            if (map.gap[i] < limit) {
                shader.edge(owner, map.neighbour[i], map.gap[i], i, out);
            }
        }
        begin = end;
    }
}

} // namespace simhost
