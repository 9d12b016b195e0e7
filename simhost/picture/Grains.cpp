#include "simhost/picture/Grains.h"

#include "simhost/picture/Hash.h"
#include "simhost/picture/VectorClones.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace simhost {
namespace {

constexpr int kBlock = 16;             // samples; grains are culled per block
constexpr float kJitter = 0.46F;       // of a cell; below one half no two grains can coincide
constexpr float kWeightSpread = 0.20F; // of a cell squared

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

// Eight numbers that the compiler keeps in whatever vectors there are.
using Lanes = float __attribute__((vector_size(32)));

// Least and greatest of many numbers.
SIMHOST_VECTOR_CLONES void limitsOf(const float* __restrict values, std::size_t count, float& low,
                                    float& high) {
    constexpr std::size_t width = sizeof(Lanes) / sizeof(float);
    low = values[0];
    high = values[0];
    std::size_t i = 0;
    if (count >= width) {
        Lanes least;
        std::memcpy(&least, values, sizeof least);
        Lanes most = least;
        for (; i + width <= count; i += width) {
            Lanes some;
            std::memcpy(&some, values + i, sizeof some);
            least = some < least ? some : least;
            most = some > most ? some : most;
        }
        for (std::size_t k = 0; k < width; ++k) {
            low = lesser(low, least[k]);
            high = greater(high, most[k]);
        }
    }
    for (; i < count; ++i) {
        low = lesser(low, values[i]);
        high = greater(high, values[i]);
    }
}

Bounds boundsOf(const float* x, const float* y, std::size_t count) {
    Bounds bounds{};
    limitsOf(x, count, bounds.lowX, bounds.highX);
    limitsOf(y, count, bounds.lowY, bounds.highY);
    return bounds;
}

// The places of some grains in lanes of their own, to look at many at once.
struct Candidates {
    std::vector<std::int32_t> number;
    std::vector<float> x, y, weight;
    void clear() {
        number.clear();
        x.clear();
        y.clear();
        weight.clear();
    }
    void add(std::int32_t grainNumber, float grainX, float grainY, float grainWeight) {
        number.push_back(grainNumber);
        x.push_back(grainX);
        y.push_back(grainY);
        weight.push_back(grainWeight);
    }
};

// Powers of each grain at the nearest and at the farthest place of the bounds.
SIMHOST_VECTOR_CLONES void reachOf(const Candidates& grains, const Bounds& bounds, float* __restrict nearest,
                                   float* __restrict farthest) {
    const auto [lowX, highX, lowY, highY] = bounds;
    const float* __restrict x = grains.x.data();
    const float* __restrict y = grains.y.data();
    const float* __restrict weight = grains.weight.data();
    const std::size_t count = grains.number.size();
    for (std::size_t i = 0; i < count; ++i) {
        const float farX = greater(highX - x[i], x[i] - lowX);
        const float farY = greater(highY - y[i], y[i] - lowY);
        const float nearX = greater(greater(lowX - x[i], x[i] - highX), 0.0F);
        const float nearY = greater(greater(lowY - y[i], y[i] - highY), 0.0F);
        nearest[i] = nearX * nearX + nearY * nearY - weight[i];
        farthest[i] = farX * farX + farY * farY - weight[i];
    }
}

// Room for the work on one tile.
struct Reach {
    std::vector<float> nearest, farthest;
};

// Of these grains those that can be first or second anywhere in the bounds: not farther at best than two
// others at worst.
void candidatesIn(const Candidates& grains, const Bounds& bounds, Reach& reach, Candidates& candidates) {
    const std::size_t count = grains.number.size();
    reach.nearest.resize(count);
    reach.farthest.resize(count);
    reachOf(grains, bounds, reach.nearest.data(), reach.farthest.data());
    float worst = 3e38F;
    float secondWorst = 3e38F;
    for (const float farthest : reach.farthest) {
        secondWorst = lesser(secondWorst, greater(farthest, worst));
        worst = lesser(worst, farthest);
    }
    candidates.clear();
    for (std::size_t i = 0; i < count; ++i) {
        if (reach.nearest[i] <= secondWorst) {
            candidates.add(grains.number[i], grains.x[i], grains.y[i], grains.weight[i]);
        }
    }
}

SIMHOST_VECTOR_CLONES void compete(Block& block, float gx, float gy, float weight, std::uint32_t place,
                                   std::uint32_t placeMask) {
    const int size = block.size();
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
std::uint32_t settle(Block& block, const Candidates& candidates) {
    const std::size_t count = candidates.number.size();
    const std::uint32_t placeMask = std::bit_ceil(static_cast<std::uint32_t>(count)) - 1U;
    block.best.fill(kNoGap);
    block.second.fill(kNoGap);
    for (std::size_t i = 0; i < count; ++i) {
        compete(block, candidates.x[i], candidates.y[i], candidates.weight[i], static_cast<std::uint32_t>(i),
                placeMask);
    }
    return placeMask;
}

SIMHOST_VECTOR_CLONES void store(const Block& block, const std::int32_t* __restrict candidates,
                                 std::int32_t placeMask, GrainMap& map, std::size_t first, int columns) {
    for (int r = 0; r < block.rows; ++r) {
        const std::size_t line = first + static_cast<std::size_t>(r) * static_cast<std::size_t>(columns);
        const float* __restrict best = &block.best[block.indexOf(0, r)];
        const float* __restrict second = &block.second[block.indexOf(0, r)];
        std::int32_t* __restrict owner = &map.owner[line];
        std::int32_t* __restrict neighbour = &map.neighbour[line];
        float* __restrict gap = &map.gap[line];
        for (int c = 0; c < block.columns; ++c) {
            owner[c] = candidates[std::bit_cast<std::int32_t>(best[c]) & placeMask];
            neighbour[c] = candidates[std::bit_cast<std::int32_t>(second[c]) & placeMask];
            gap[c] = second[c] - best[c];
        }
    }
}

void load(const std::vector<float>& qx, const std::vector<float>& qy, int columns, std::size_t first,
          Block& block) {
    for (int r = 0; r < block.rows; ++r) {
        const std::size_t line = first + static_cast<std::size_t>(r) * static_cast<std::size_t>(columns);
        std::copy_n(&qx[line], block.columns, &block.x[r * block.columns]);
        std::copy_n(&qy[line], block.columns, &block.y[r * block.columns]);
    }
}

Candidates lanesOf(const std::vector<Grain>& grains) {
    Candidates lanes;
    std::int32_t number = 0;
    for (const Grain& grain : grains) {
        lanes.add(number++, grain.x, grain.y, grain.weight);
    }
    return lanes;
}

// 1 where a sample differs from the one before it in owner or neighbour.
SIMHOST_VECTOR_CLONES void markChanges(const GrainMap& map, std::uint8_t* __restrict changes) {
    const std::size_t size = map.owner.size();
    const std::int32_t* __restrict owner = map.owner.data();
    const std::int32_t* __restrict neighbour = map.neighbour.data();
    for (std::size_t i = 1; i < size; ++i) {
        const std::int32_t differs = (owner[i] ^ owner[i - 1]) | (neighbour[i] ^ neighbour[i - 1]);
        changes[i] = differs != 0 ? 1 : 0;
    }
}

// Runs end with the row, and where owner or neighbour changes.
void findRuns(GrainMap& map, int columns) {
    const auto width = static_cast<std::size_t>(columns);
    const std::size_t size = map.owner.size();
    std::vector<std::uint8_t> changes(size + 1);
    markChanges(map, changes.data());
    for (std::size_t line = 0; line <= size; line += width) {
        changes[line] = 1;
    }
    map.runs.reserve(size / 8);
    for (std::size_t begin = 0; begin < size;) {
        const void* next = std::memchr(&changes[begin + 1], 1, size - begin);
        const auto end = static_cast<std::size_t>(static_cast<const std::uint8_t*>(next) - changes.data());
        map.runs.push_back({begin, end, map.owner[begin], map.neighbour[begin]});
        begin = end;
    }
}

} // namespace

std::vector<Grain> collectGrains(const Mosaic& mosaic, const SampleGrid& grid, const std::vector<float>& qx,
                                 const std::vector<float>& qy) {
    const auto cells = [&](double start, float least, float greatest) {
        const auto cellOf = [&](float place) {
            return static_cast<std::int64_t>(std::floor((start + static_cast<double>(place)) / mosaic.cell));
        };
        return std::pair{cellOf(least) - 2, cellOf(greatest) + 2}; // no grain farther off can be nearest
    };
    const Bounds bounds = boundsOf(qx.data(), qy.data(), qx.size());
    const auto [left, right] = cells(grid.x0, bounds.lowX, bounds.highX);
    const auto [bottom, top] = cells(grid.y0, bounds.lowY, bounds.highY);
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
    Reach reach;
    Candidates inBlock;
    const Candidates lanes = lanesOf(grains);
    for (int top = 0; top < rows; top += kBlock) {
        for (int left = 0; left < columns; left += kBlock) {
            if (!mask.wants(left, top)) {
                continue;
            }
            block.columns = std::min(kBlock, columns - left);
            block.rows = std::min(kBlock, rows - top);
            const auto first = static_cast<std::size_t>(top) * static_cast<std::size_t>(columns) +
                               static_cast<std::size_t>(left);
            load(qx, qy, columns, first, block);
            candidatesIn(lanes,
                         boundsOf(block.x.data(), block.y.data(), static_cast<std::size_t>(block.size())),
                         reach, inBlock);
            const std::uint32_t placeMask = settle(block, inBlock);
            store(block, inBlock.number.data(), static_cast<std::int32_t>(placeMask), map, first, columns);
        }
    }
    findRuns(map, columns);
    return map;
}

BlockMask aggregateBlocks(const Mosaic& mosaic, const std::vector<Grain>& grains, const GrainMap& map,
                          float footprint, int columns, int rows) {
    BlockMask mask;
    mask.across = (columns + kBlock - 1) / kBlock;
    mask.wanted.resize(static_cast<std::size_t>(mask.across) *
                       static_cast<std::size_t>((rows + kBlock - 1) / kBlock));
    const float limit = nearGap(mosaic.cell, footprint);
    const auto isAggregate = [&](std::int32_t number) {
        return grains[static_cast<std::size_t>(number)].aggregate;
    };
    for (const GrainRun& run : map.runs) {
        const auto row = static_cast<int>(run.begin / static_cast<std::size_t>(columns));
        const std::size_t line = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns);
        if (isAggregate(run.owner)) {
            const std::size_t first = mask.indexOf(static_cast<int>(run.begin - line), row);
            const std::size_t last = mask.indexOf(static_cast<int>(run.end - 1 - line), row);
            std::fill(&mask.wanted[first], &mask.wanted[last] + 1, char{1});
        } else if (isAggregate(run.neighbour)) {
            for (std::size_t i = run.begin; i < run.end; ++i) {
                if (map.gap[i] < limit) {
                    mask.wanted[mask.indexOf(static_cast<int>(i - line), row)] = 1;
                }
            }
        }
    }
    return mask;
}

} // namespace simhost
