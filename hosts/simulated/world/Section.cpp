#include "hosts/simulated/world/Section.h"

#include "hosts/simulated/world/Grains.h"
#include "hosts/simulated/world/Hash.h"
#include "hosts/simulated/world/LatticeNoise.h"
#include "hosts/simulated/world/Marks.h"

#include <algorithm>

namespace hosts::simulated {
namespace {

// With samples this wide, grains cannot be distinguished, and finding them would take forever.
constexpr float kMosaicFootprint = 48.0F;
constexpr float kFineMosaicFootprint = 12.0F;

// Straight mosaic edges are bent by noise: a long swing and a short ripple, units.
constexpr double kSwingSpacing = 42.0;
constexpr float kSwing = 26.0F;
constexpr double kRippleSpacing = 7.0;
constexpr float kRipple = 2.6F;

Rgb meanColour(const std::vector<Share>& shares) {
    Rgb sum;
    float total = 0.0F;
    for (const Share& share : shares) {
        const Rgb colour = mineral(share.mineral).colour * share.weight;
        sum = {sum.r + colour.r, sum.g + colour.g, sum.b + colour.b};
        total += share.weight;
    }
    return sum * (1.0F / total);
}

void fill(ColourPlanes& out, Rgb colour) {
    std::fill(out.r.begin(), out.r.end(), colour.r);
    std::fill(out.g.begin(), out.g.end(), colour.g);
    std::fill(out.b.begin(), out.b.end(), colour.b);
}

Relief reliefOf(const SampleGrid& grid, std::uint32_t seed) {
    Relief relief;
    relief.footprint = grid.footprint();
    const std::size_t size = grid.size() + kSpareSamples;
    relief.x.resize(size);
    relief.y.resize(size);
    relief.texture.resize(size);
    std::size_t i = 0;
    for (int r = 0; r < grid.rows; ++r) {
        for (int c = 0; c < grid.columns; ++c, ++i) {
            relief.x[i] = static_cast<float>(c * grid.stepX);
            relief.y[i] = static_cast<float>(r * grid.stepY);
        }
    }
    relief.straightX = relief.x;
    relief.straightY = relief.y;
    LatticeNoise noise(grid);
    noise.add(kSwingSpacing, mix(seed, 1), kSwing, relief.x);
    noise.add(kSwingSpacing, mix(seed, 2), kSwing, relief.y);
    noise.add(kRippleSpacing, mix(seed, 3), kRipple, relief.x);
    noise.add(kRippleSpacing, mix(seed, 4), kRipple, relief.y);
    findBounds(relief, grid.columns, grid.rows);
    // Fine pitting for the focus at every magnification, cloudiness above it.
    noise.add(0.6, mix(seed, 8), 0.8F, relief.texture);
    noise.add(1.6, mix(seed, 5), 1.0F, relief.texture);
    noise.add(5.5, mix(seed, 6), 0.7F, relief.texture);
    noise.add(24.0, mix(seed, 7), 0.6F, relief.texture);
    return relief;
}

void paintAggregates(const SampleGrid& grid, const Assemblage& assemblage, std::uint32_t seed,
                     const Relief& relief, const BlockMask& mask, ColourPlanes& out) {
    if (relief.footprint > kFineMosaicFootprint) {
        fill(out, meanColour(assemblage.fine));
        return;
    }
    const Mosaic mosaic{assemblage.fineCell, mix(seed, 21), &assemblage.fine, 0.0F};
    const EdgeReach edge(mosaic.cell, relief.footprint);
    std::vector<Grain> grains = collectGrains(mosaic, grid, relief.bounds);
    const GrainMap map = mapGrains(grains, relief, grid.columns, grid.rows, edge, mask);
    giveLooks(mosaic, map, grains);
    shadeGrains(grains, map, relief, edge, nullptr, out);
}

} // namespace

void paintSection(const SampleGrid& grid, const Assemblage& assemblage, std::uint32_t seed,
                  ColourPlanes& out) {
    if (grid.footprint() > kMosaicFootprint) {
        fill(out,
             mixed(meanColour(assemblage.coarse), meanColour(assemblage.fine), assemblage.aggregatePart));
        return;
    }
    const Relief relief = reliefOf(grid, seed);
    const Mosaic mosaic{assemblage.coarseCell, mix(seed, 20), &assemblage.coarse, assemblage.aggregatePart};
    const EdgeReach edge(mosaic.cell, relief.footprint);
    std::vector<Grain> grains = collectGrains(mosaic, grid, relief.bounds);
    const GrainMap map = mapGrains(grains, relief, grid.columns, grid.rows, edge);
    giveLooks(mosaic, map, grains);
    const BlockMask mask = aggregateBlocks(grains, map, edge, grid.columns, grid.rows);
    if (std::find(mask.wanted.begin(), mask.wanted.end(), 1) != mask.wanted.end()) {
        ColourPlanes aggregates(grid.size());
        paintAggregates(grid, assemblage, seed, relief, mask, aggregates);
        shadeGrains(grains, map, relief, edge, &aggregates, out);
    } else {
        shadeGrains(grains, map, relief, edge, nullptr, out);
    }
    addInclusionsAndPores(grid, assemblage, seed, relief, out);
    addScratches(grid, seed, out);
}

} // namespace hosts::simulated
