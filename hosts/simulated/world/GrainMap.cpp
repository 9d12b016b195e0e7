#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Grains.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace hosts::simulated {
namespace {

constexpr int kBlock = BlockMask::kBlock;

constexpr float lesser(float a, float b) { return a < b ? a : b; }
constexpr float greater(float a, float b) { return a > b ? a : b; }

// Eight numbers that the compiler keeps in whatever vectors there are.
using Lanes = float __attribute__((vector_size(32)));
using IntLanes = std::int32_t __attribute__((vector_size(32)));
constexpr int kLanes = sizeof(Lanes) / sizeof(float);
static_assert(kSpareSamples >= kLanes && kBlock % kLanes == 0);

// Least and greatest of a block; rows are read in whole vectors, and what lies beyond the last column is held
// to the first number.
struct Limits {
    float low, high;
};
HOSTS_VECTOR_CLONES Limits limitsOf(const float* __restrict values, int pitch, int columns, int rows) {
    Lanes least = Lanes{} + values[0];
    Lanes most = least;
    const IntLanes number{0, 1, 2, 3, 4, 5, 6, 7};
    for (int r = 0; r < rows; ++r) {
        const float* __restrict row = values + static_cast<std::ptrdiff_t>(r) * pitch;
        for (int c = 0; c < columns; c += kLanes) {
            Lanes some;
            std::memcpy(&some, row + c, sizeof some);
            if (columns - c < kLanes) {
                some = number < columns - c ? some : Lanes{} + values[0];
            }
            least = some < least ? some : least;
            most = some > most ? some : most;
        }
    }
    Limits limits{least[0], most[0]};
    for (int k = 1; k < kLanes; ++k) {
        limits = {lesser(limits.low, least[k]), greater(limits.high, most[k])};
    }
    return limits;
}

// The places of some grains in lanes of their own, to look at many at once.
struct Candidates {
    std::vector<std::int32_t> number;
    std::vector<float> x, y, weight;
    std::size_t count() const { return number.size(); }
    void reserve(std::size_t most) {
        number.reserve(most);
        x.reserve(most);
        y.reserve(most);
        weight.reserve(most);
    }
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

Candidates lanesOf(const std::vector<Grain>& grains) {
    Candidates lanes;
    lanes.reserve(grains.size());
    std::int32_t number = 0;
    for (const Grain& grain : grains) {
        lanes.add(number++, grain.x, grain.y, grain.weight);
    }
    return lanes;
}

// Powers of each grain at the nearest and at the farthest place of the bounds.
HOSTS_VECTOR_CLONES void reachOf(const Candidates& grains, const Bounds& bounds, float* __restrict nearest,
                                 float* __restrict farthest) {
    const auto [lowX, highX, lowY, highY] = bounds;
    const float* __restrict x = grains.x.data();
    const float* __restrict y = grains.y.data();
    const float* __restrict weight = grains.weight.data();
    const std::size_t count = grains.count();
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
// others at worst. Returns a power that first and second do not exceed.
float candidatesIn(const Candidates& grains, const Bounds& bounds, Reach& reach, Candidates& candidates) {
    const std::size_t count = grains.count();
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
    return secondWorst;
}

// What was found in one block. A sample's code is its owner's place among the candidates, and sixteen bits
// above it its neighbour's.
struct Block {
    int columns = 0;
    int rows = 0;
    bool skipped = false; // the mask leaves it out
    bool even = false;    // one grain, far from its edges
    std::int32_t owner = 0;
    std::vector<std::int32_t> candidates; // grain numbers
    alignas(sizeof(Lanes)) std::array<std::int32_t, kBlock * kBlock> code;
    alignas(sizeof(Lanes)) std::array<float, kBlock * kBlock> gap;
};

// Finds the candidates that can be nearest somewhere in the bounds, or so near to it that an edge shows;
// with one left the block is even. The difference of two powers is linear, so its least value in the bounds
// is exact; `tolerance` is what the powers are off. The rivals' numbers are their places among the
// candidates.
void findRivals(const Candidates& all, const Bounds& bounds, const EdgeReach& edge, float tolerance,
                Candidates& rivals, Block& block) {
    const float x = 0.5F * (bounds.lowX + bounds.highX);
    const float y = 0.5F * (bounds.lowY + bounds.highY);
    const float halfX = bounds.highX - x;
    const float halfY = bounds.highY - y;
    const auto powerAt = [&](std::size_t i) {
        return (x - all.x[i]) * (x - all.x[i]) + (y - all.y[i]) * (y - all.y[i]) - all.weight[i];
    };
    std::size_t first = 0;
    float least = powerAt(0);
    for (std::size_t i = 1; i < all.count(); ++i) {
        const float power = powerAt(i);
        first = power < least ? i : first;
        least = lesser(least, power);
    }
    block.even = true;
    block.owner = all.number[first];
    rivals.clear();
    for (std::size_t i = 0; i < all.count(); ++i) {
        const float acrossX = all.x[i] - all.x[first];
        const float acrossY = all.y[i] - all.y[first];
        const float behind =
            powerAt(i) - least - 2.0F * (std::abs(acrossX) * halfX + std::abs(acrossY) * halfY) - tolerance;
        if (behind <= edge.gap) {
            rivals.add(static_cast<std::int32_t>(i), all.x[i], all.y[i], all.weight[i]);
            const float apart = std::sqrt(acrossX * acrossX + acrossY * acrossY);
            block.even = block.even && (i == first || behind > edge.gapOf(apart));
        }
    }
}

// The two least powers at each sample. A power carries its grain's place among the candidates in its lowest
// bits, so that plain minimum and maximum keep both in step: all lanes of a vector, no branches.
HOSTS_VECTOR_CLONES void compete(const Candidates& rivals, const float* __restrict x,
                                 const float* __restrict y, int pitch, std::int32_t placeMask, Block& block) {
    const std::int32_t* __restrict place = rivals.number.data();
    const float* __restrict grainX = rivals.x.data();
    const float* __restrict grainY = rivals.y.data();
    const float* __restrict weight = rivals.weight.data();
    const std::size_t count = rivals.count();
    for (int r = 0; r < block.rows; ++r) {
        for (int c = 0; c < block.columns; c += kLanes) {
            const std::ptrdiff_t from = static_cast<std::ptrdiff_t>(r) * pitch + c;
            Lanes px;
            Lanes py;
            std::memcpy(&px, x + from, sizeof px);
            std::memcpy(&py, y + from, sizeof py);
            Lanes best = Lanes{} + std::numeric_limits<float>::max();
            Lanes second = best;
            for (std::size_t i = 0; i < count; ++i) {
                const Lanes dx = px - grainX[i];
                const Lanes dy = py - grainY[i];
                const Lanes power = dx * dx + dy * dy - weight[i];
                IntLanes bits;
                std::memcpy(&bits, &power, sizeof bits);
                bits = (bits & ~placeMask) | place[i];
                Lanes tagged;
                std::memcpy(&tagged, &bits, sizeof tagged);
                const Lanes later = best > tagged ? best : tagged;
                second = second < later ? second : later;
                best = best < tagged ? best : tagged;
            }
            const Lanes gap = second - best;
            IntLanes owner;
            IntLanes neighbour;
            std::memcpy(&owner, &best, sizeof owner);
            std::memcpy(&neighbour, &second, sizeof neighbour);
            const IntLanes code = (owner & placeMask) | ((neighbour & placeMask) << 16);
            std::memcpy(&block.gap[r * kBlock + c], &gap, sizeof gap);
            std::memcpy(&block.code[r * kBlock + c], &code, sizeof code);
        }
    }
}

class Mapper {
public:
    Mapper(const std::vector<Grain>& grains, const Relief& relief, int columns, int rows,
           const EdgeReach& edge)
        : m_relief(relief)
        , m_edge(edge)
        , m_columns(columns)
        , m_rows(rows)
        , m_band(static_cast<std::size_t>((columns + kBlock - 1) / kBlock)) {
        m_inTile.reserve(grains.size());
        candidatesIn(lanesOf(grains), relief.bounds, m_reach, m_inTile);
        m_inBlock.reserve(m_inTile.count());
        m_rivals.reserve(m_inTile.count());
        m_map.gap.resize(relief.x.size());
        m_map.runs.reserve(relief.x.size() / 8);
    }

    GrainMap map(const BlockMask& mask) {
        for (int top = 0; top < m_rows; top += kBlock) {
            int left = 0;
            for (Block& block : m_band) {
                block.columns = std::min(kBlock, m_columns - left);
                block.rows = std::min(kBlock, m_rows - top);
                block.skipped = !mask.wants(left, top);
                if (!block.skipped) {
                    look(left, top, block);
                }
                left += kBlock;
            }
            for (int row = top; row < std::min(top + kBlock, m_rows); ++row) {
                addRuns(row);
            }
        }
        return std::move(m_map);
    }

private:
    void look(int left, int top, Block& block) {
        const Bounds& bounds = m_relief.blocks[(top / kBlock) * m_band.size() + left / kBlock];
        const float farthest = candidatesIn(m_inTile, bounds, m_reach, m_inBlock);
        const std::uint32_t placeMask = std::bit_ceil(static_cast<std::uint32_t>(m_inBlock.count())) - 1U;
        constexpr float ulp = std::numeric_limits<float>::epsilon();
        const float tolerance = 2.0F * ulp * static_cast<float>(placeMask + 16) * farthest;
        findRivals(m_inBlock, bounds, m_edge, tolerance, m_rivals, block);
        if (!block.even) {
            block.candidates = m_inBlock.number;
            const std::size_t first = indexOf(left, top);
            compete(m_rivals, &m_relief.x[first], &m_relief.y[first], m_columns,
                    static_cast<std::int32_t>(placeMask), block);
        }
    }

    // Runs end with the row, and where owner or neighbour changes.
    void addRuns(int row) {
        std::size_t begin = indexOf(0, row);
        for (const Block& block : m_band) {
            if (block.even && !block.skipped) {
                add({begin, begin + static_cast<std::size_t>(block.columns), block.owner, kNoNeighbour});
            } else if (!block.skipped) {
                addRuns(block, row % kBlock, begin);
            }
            begin += static_cast<std::size_t>(block.columns);
        }
    }

    void addRuns(const Block& block, int row, std::size_t begin) {
        const std::int32_t* code = &block.code[static_cast<std::size_t>(row) * kBlock];
        std::copy_n(&block.gap[static_cast<std::size_t>(row) * kBlock], block.columns, &m_map.gap[begin]);
        const auto numberOf = [&](std::int32_t place) {
            return block.candidates[static_cast<std::size_t>(place)];
        };
        for (int c = 0; c < block.columns;) {
            int end = c + 1;
            while (end < block.columns && code[end] == code[c]) {
                ++end;
            }
            const auto first = begin + static_cast<std::size_t>(c);
            add({first, begin + static_cast<std::size_t>(end), numberOf(code[c] & 0xffff),
                 numberOf(code[c] >> 16)});
            c = end;
        }
    }

    void add(const GrainRun& run) {
        GrainRun* last = m_map.runs.empty() ? nullptr : &m_map.runs.back();
        const bool goesOn = last != nullptr && last->end == run.begin && last->owner == run.owner &&
                            last->neighbour == run.neighbour &&
                            run.begin % static_cast<std::size_t>(m_columns) != 0;
        if (goesOn) {
            last->end = run.end;
        } else {
            m_map.runs.push_back(run);
        }
    }

    std::size_t indexOf(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column);
    }

    const Relief& m_relief;
    const EdgeReach& m_edge;
    int m_columns;
    int m_rows;
    Reach m_reach;
    Candidates m_inTile;
    Candidates m_inBlock;
    Candidates m_rivals;
    std::vector<Block> m_band; // one row of blocks
    GrainMap m_map;
};

} // namespace

void findBounds(Relief& relief, int columns, int rows) {
    constexpr float most = std::numeric_limits<float>::max();
    Bounds& whole = relief.bounds = {most, -most, most, -most};
    relief.blocks.clear();
    for (int top = 0; top < rows; top += kBlock) {
        for (int left = 0; left < columns; left += kBlock) {
            const std::size_t first = static_cast<std::size_t>(top) * static_cast<std::size_t>(columns) +
                                      static_cast<std::size_t>(left);
            const int width = std::min(kBlock, columns - left);
            const int height = std::min(kBlock, rows - top);
            const Limits x = limitsOf(&relief.x[first], columns, width, height);
            const Limits y = limitsOf(&relief.y[first], columns, width, height);
            relief.blocks.push_back({x.low, x.high, y.low, y.high});
            whole = {lesser(whole.lowX, x.low), greater(whole.highX, x.high), lesser(whole.lowY, y.low),
                     greater(whole.highY, y.high)};
        }
    }
}

GrainMap mapGrains(const std::vector<Grain>& grains, const Relief& relief, int columns, int rows,
                   const EdgeReach& edge, const BlockMask& mask) {
    return Mapper(grains, relief, columns, rows, edge).map(mask);
}

BlockMask aggregateBlocks(const std::vector<Grain>& grains, const GrainMap& map, const EdgeReach& edge,
                          int columns, int rows) {
    BlockMask mask;
    mask.across = (columns + kBlock - 1) / kBlock;
    mask.wanted.resize(static_cast<std::size_t>(mask.across) *
                       static_cast<std::size_t>((rows + kBlock - 1) / kBlock));
    const auto isAggregate = [&](std::int32_t number) {
        return number != kNoNeighbour && grains[static_cast<std::size_t>(number)].aggregate;
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
                if (map.gap[i] < edge.gap) {
                    mask.wanted[mask.indexOf(static_cast<int>(i - line), row)] = 1;
                }
            }
        }
    }
    return mask;
}

} // namespace hosts::simulated
