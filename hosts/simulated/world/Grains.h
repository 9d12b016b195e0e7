#pragma once
// The mosaic of grains: the grain at each place, the distance of its edge, and the shading of grains.

#include "hosts/simulated/world/Hash.h"
#include "hosts/simulated/world/Minerals.h"
#include "hosts/simulated/world/SampleGrid.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace hosts::simulated {

/// One grain. Places are relative to the first sample of the grid that it was collected for. What it looks
/// like is known only after giveLooks.
struct Grain {
    float x = 0.0F;
    float y = 0.0F;
    float weight = 0.0F; ///< square units, <= 0; grains of greater weight push their neighbours' edges away
    std::uint32_t hash = 0;
    Draw looks{0}; ///< decides all that follows
    bool hasLooks = false;
    Rgb colour;
    float texture = 0.0F;
    float lamellaX = 0.0F; ///< direction across the lamellae, divided by their pitch
    float lamellaY = 0.0F;
    float lamellaContrast = 0.0F; ///< 0: no lamellae
    bool aggregate = false;       ///< made of fine grains instead
};

/// One mosaic of grains.
struct Mosaic {
    double cell; ///< mean distance of grains, units
    std::uint32_t seed;
    const std::vector<Share>* shares;
    float aggregatePart;
};

/// Least and greatest of some places.
struct Bounds {
    float lowX, highX, lowY, highY;
};

/// Every grain that can show at places within the bounds, relative to the grid's first sample; without looks.
std::vector<Grain> collectGrains(const Mosaic& mosaic, const SampleGrid& grid, const Bounds& places);

inline constexpr std::int32_t kNoNeighbour = -1;

/// Samples of one row that lie in one grain with one nearest neighbour: [begin, end).
struct GrainRun {
    std::size_t begin;
    std::size_t end;
    std::int32_t owner;
    std::int32_t neighbour; ///< kNoNeighbour: too far from any edge to show it
};

/// The grain at each sample and its nearest neighbour.
struct GrainMap {
    std::vector<GrainRun> runs; ///< in the samples' order
    std::vector<float> gap;     ///< difference of their powers, square units, >= 0; 0 on the boundary. Only
                                ///< where there is a neighbour
};

/// Samples that somebody wants to know about, by squares of kBlock x kBlock samples; the others are left out.
struct BlockMask {
    static constexpr int kBlock = 16;
    int across = 0;
    std::vector<char> wanted; ///< row by row; empty: all
    std::size_t indexOf(int column, int row) const {
        return static_cast<std::size_t>(row / kBlock) * static_cast<std::size_t>(across) +
               static_cast<std::size_t>(column / kBlock);
    }
    bool wants(int column, int row) const { return wanted.empty() || wanted[indexOf(column, row)] != 0; }
};

/// What is known of each sample besides its grain; spare samples lie behind the last.
struct Relief {
    std::vector<float> x, y;                 ///< relative places, gently bent: grain boundaries wander
    std::vector<float> straightX, straightY; ///< the same, not bent: crystals and twins are straight
    std::vector<float> texture;              ///< fine texture, about -1 to 1
    float footprint = 1.0F;
    Bounds bounds{};            ///< of x and y
    std::vector<Bounds> blocks; ///< the same of each block of BlockMask
};

/// Fills in the bounds from x and y.
void findBounds(Relief& relief, int columns, int rows);

/// How far from a boundary its edge can be seen.
struct EdgeReach {
    float width; ///< of the etched line, units
    float gap;   ///< greatest difference of powers: neighbours are at most some three cells apart
    EdgeReach(double cell, float footprint);
    /// In a power mosaic the distance to the common edge is the difference of powers over this, `apart` being
    /// the distance of the two grains: exact, and linear up to the edge.
    static float gapPerUnit(float apart) { return 2.0F * apart + 1e-3F; }
    /// Greatest difference of powers for grains that far apart.
    float gapOf(float apart) const { return std::min(gap, gapPerUnit(apart) * width); }
};

/// Finds the grains at the relief's bent places. Needs at least two grains. Blocks that the mask leaves out
/// have no runs.
GrainMap mapGrains(const std::vector<Grain>& grains, const Relief& relief, int columns, int rows,
                   const EdgeReach& edge, const BlockMask& mask = {});

/// Gives their looks to the grains that the map shows.
void giveLooks(const Mosaic& mosaic, const GrainMap& map, std::vector<Grain>& grains);

/// The blocks in which a mosaic of fine grains shows through aggregates.
BlockMask aggregateBlocks(const std::vector<Grain>& grains, const GrainMap& map, const EdgeReach& edge,
                          int columns, int rows);

/// Paints the runs of a map; all grains it shows must have their looks. `aggregates`, when given, is what
/// shows where a grain is an aggregate. May write over what lies behind a run.
void shadeGrains(const std::vector<Grain>& grains, const GrainMap& map, const Relief& relief,
                 const EdgeReach& edge, const ColourPlanes* aggregates, ColourPlanes& out);

} // namespace hosts::simulated
