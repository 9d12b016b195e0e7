#include "hosts/simulated/world/Grains.h"

#include "hosts/simulated/world/Hash.h"

#include <cmath>
#include <utility>

namespace hosts::simulated {
namespace {

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

// Where it lies; what it looks like only matters for the few that show.
Grain placedGrain(const Mosaic& mosaic, std::int64_t column, std::int64_t row, const SampleGrid& grid) {
    Grain grain;
    grain.hash = cellHash(mosaic.seed, column, row);
    Draw draw(grain.hash);
    const auto cell = static_cast<float>(mosaic.cell);
    grain.x = static_cast<float>(static_cast<double>(column) * mosaic.cell - grid.x0) +
              cell * (0.5F + kJitter * draw.centred());
    grain.y = static_cast<float>(static_cast<double>(row) * mosaic.cell - grid.y0) +
              cell * (0.5F + kJitter * draw.centred());
    grain.weight = cell * cell * kWeightSpread * (draw.unit() - 1.0F);
    grain.looks = draw;
    return grain;
}

void giveLooks(const Mosaic& mosaic, Grain& grain) {
    if (grain.hasLooks) {
        return;
    }
    grain.hasLooks = true;
    Draw draw = grain.looks;
    grain.aggregate = draw.unit() < mosaic.aggregatePart;
    const Mineral& kind = mineral(pick(*mosaic.shares, draw.unit()));
    grain.colour = kind.colour * (1.0F + kind.spread * draw.centred());
    grain.texture = kind.texture * draw.between(0.7F, 1.3F);
    giveLamellae(grain, kind, draw);
}

} // namespace

std::vector<Grain> collectGrains(const Mosaic& mosaic, const SampleGrid& grid, const Bounds& places) {
    const auto cells = [&](double start, float least, float greatest) {
        const auto cellOf = [&](float place) {
            return static_cast<std::int64_t>(std::floor((start + static_cast<double>(place)) / mosaic.cell));
        };
        return std::pair{cellOf(least) - 2, cellOf(greatest) + 2}; // no grain farther off can be nearest
    };
    const auto [left, right] = cells(grid.x0, places.lowX, places.highX);
    const auto [bottom, top] = cells(grid.y0, places.lowY, places.highY);
    std::vector<Grain> grains;
    grains.reserve(static_cast<std::size_t>((right - left + 1) * (top - bottom + 1)));
    for (std::int64_t row = bottom; row <= top; ++row) {
        for (std::int64_t column = left; column <= right; ++column) {
            grains.push_back(placedGrain(mosaic, column, row, grid));
        }
    }
    return grains;
}

void giveLooks(const Mosaic& mosaic, const GrainMap& map, std::vector<Grain>& grains) {
    for (const GrainRun& run : map.runs) {
        giveLooks(mosaic, grains[static_cast<std::size_t>(run.owner)]);
        if (run.neighbour != kNoNeighbour) {
            giveLooks(mosaic, grains[static_cast<std::size_t>(run.neighbour)]);
        }
    }
}

} // namespace hosts::simulated
