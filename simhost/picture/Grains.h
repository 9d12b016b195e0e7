#pragma once
// The mosaic of grains: which grain lies at each place, how far its edge is, and how grains are shaded.

#include "simhost/picture/Minerals.h"
#include "simhost/picture/SampleGrid.h"

#include <cstdint>
#include <vector>

namespace simhost {

/// One grain. Places are relative to the first sample of the grid that it was collected for.
struct Grain {
    float x = 0.0F;
    float y = 0.0F;
    float weight = 0.0F; ///< square units, <= 0; grains of greater weight push their neighbours' edges away
    Rgb colour;
    float texture = 0.0F;
    float lamellaX = 0.0F; ///< direction across the lamellae, divided by their pitch
    float lamellaY = 0.0F;
    float lamellaContrast = 0.0F; ///< 0: no lamellae
    bool aggregate = false;       ///< made of fine grains instead
    std::uint32_t hash = 0;
};

/// One mosaic of grains.
struct Mosaic {
    double cell; ///< mean distance of grains, units
    std::uint32_t seed;
    const std::vector<Share>* shares;
    float aggregatePart;
};

/// Every grain that can show at places (qx, qy), relative to the grid's first sample.
std::vector<Grain> collectGrains(const Mosaic& mosaic, const SampleGrid& grid, const std::vector<float>& qx,
                                 const std::vector<float>& qy);

/// Samples of one row that lie in one grain with one nearest neighbour: [begin, end).
struct GrainRun {
    std::size_t begin;
    std::size_t end;
    std::int32_t owner;
    std::int32_t neighbour;
};

/// The grain at each sample and its nearest neighbour.
struct GrainMap {
    std::vector<GrainRun> runs; ///< all samples in order
    std::vector<std::int32_t> owner;
    std::vector<std::int32_t> neighbour;
    std::vector<float> gap; ///< difference of their powers, square units, >= 0; 0 on the boundary
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

/// Finds the grains at places (qx, qy), relative as above and row by row with `columns` to a row. Needs at
/// least two grains. Samples left out by the mask belong to grain 0.
GrainMap mapGrains(const std::vector<Grain>& grains, const std::vector<float>& qx,
                   const std::vector<float>& qy, int columns, int rows, const BlockMask& mask = {});

/// What shading needs to know of each sample besides its grain; spare samples lie behind all but x and y.
struct Relief {
    std::vector<float> x, y;                 ///< relative places, gently bent: grain boundaries wander
    std::vector<float> straightX, straightY; ///< the same, not bent: crystals and twins are straight
    std::vector<float> texture;              ///< fine texture, about -1 to 1
    float footprint = 1.0F;
};

/// Edges lie only where the gap is below this: neighbours are at most some three cells apart.
float nearGap(double cell, float footprint);

/// The blocks in which a mosaic of fine grains shows through aggregates.
BlockMask aggregateBlocks(const Mosaic& mosaic, const std::vector<Grain>& grains, const GrainMap& map,
                          float footprint, int columns, int rows);

/// Paints a mosaic, but for the blocks that the mask leaves out. `aggregates`, when given, is what shows
/// where a grain is an aggregate.
void shadeGrains(const Mosaic& mosaic, const std::vector<Grain>& grains, const GrainMap& map,
                 const Relief& relief, const ColourPlanes* aggregates, ColourPlanes& out);

} // namespace simhost
