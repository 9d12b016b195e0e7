#include "hosts/simulated/world/Marks.h"

#include "hosts/simulated/world/Hash.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace hosts::simulated {
namespace {

constexpr float kCoarsestFootprint = 8.0F;
constexpr double kInclusionCell = 36.0; // units; at most one inclusion and one pore in each
constexpr double kPoreCell = 44.0;
constexpr Rgb kPoreColour{24, 21, 19};

// A box with round corners, turned: with corner = half size it is a disc.
struct Shape {
    float x, y;         // relative to the grid's first sample
    float cosine, sine; // of its turn
    float halfLength, halfWidth, corner;
    float reach() const { return halfLength + halfWidth; }
    float reachX() const { return std::abs(cosine) * halfLength + std::abs(sine) * halfWidth; }
    float reachY() const { return std::abs(sine) * halfLength + std::abs(cosine) * halfWidth; }
    // Units inside its outline, negative outside.
    float inside(float px, float py) const {
        const float dx = px - x;
        const float dy = py - y;
        const float u = std::abs(dx * cosine + dy * sine) - (halfLength - corner);
        const float v = std::abs(dy * cosine - dx * sine) - (halfWidth - corner);
        const float overU = std::max(u, 0.0F);
        const float overV = std::max(v, 0.0F);
        return corner - std::sqrt(overU * overU + overV * overV) - std::min(std::max(u, v), 0.0F);
    }
};

void turn(Shape& shape, Draw& draw) {
    const float x = draw.centred();
    const float y = draw.centred() + 0.001F;
    const float length = std::sqrt(x * x + y * y) + 1e-6F;
    shape.cosine = x / length;
    shape.sine = y / length;
}

// Calls paint(sample index, place x, place y) for every sample that a shape can touch.
template <typename Paint>
void overSamples(const SampleGrid& grid, const Shape& shape, float margin, Paint&& paint) {
    const auto range = [margin](float centre, float reach, double step, int count) {
        const auto s = static_cast<float>(step);
        const float a = (centre - reach - margin) / s;
        const float b = (centre + reach + margin) / s;
        const float limit = static_cast<float>(count);
        const float low = std::clamp(std::min(a, b), 0.0F, limit);
        const float high = std::clamp(std::max(a, b) + 1.0F, 0.0F, limit);
        return std::pair{static_cast<int>(low), static_cast<int>(high)};
    };
    const auto [left, right] = range(shape.x, shape.reachX(), grid.stepX, grid.columns);
    const auto [top, bottom] = range(shape.y, shape.reachY(), grid.stepY, grid.rows);
    for (int r = top; r < bottom; ++r) {
        for (int c = left; c < right; ++c) {
            paint(static_cast<std::size_t>(r) * static_cast<std::size_t>(grid.columns) +
                  static_cast<std::size_t>(c));
        }
    }
}

// Calls visit(draw, x, y) with the hash stream and the relative corner of each cell near the grid.
template <typename Visit>
void overCells(const SampleGrid& grid, double cell, std::uint32_t seed, Visit&& visit) {
    const auto cells = [cell](double start, double step, int count) {
        const double end = start + step * (count - 1);
        return std::pair{static_cast<std::int64_t>(std::floor(std::min(start, end) / cell)) - 1,
                         static_cast<std::int64_t>(std::floor(std::max(start, end) / cell)) + 1};
    };
    const auto [left, right] = cells(grid.x0, grid.stepX, grid.columns);
    const auto [bottom, top] = cells(grid.y0, grid.stepY, grid.rows);
    for (std::int64_t row = bottom; row <= top; ++row) {
        for (std::int64_t column = left; column <= right; ++column) {
            Draw draw(cellHash(seed, column, row));
            visit(draw, static_cast<float>(static_cast<double>(column) * cell - grid.x0),
                  static_cast<float>(static_cast<double>(row) * cell - grid.y0));
        }
    }
}

MineralId inclusionMineral(const std::vector<Share>& shares, float chance) {
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

Shape inclusionShape(MineralId id, Draw& draw, float cornerX, float cornerY) {
    const auto cell = static_cast<float>(kInclusionCell);
    Shape shape{};
    shape.x = cornerX + cell * draw.unit();
    shape.y = cornerY + cell * draw.unit();
    turn(shape, draw);
    const float chance = draw.unit();
    const float size = 1.2F + 9.0F * chance * chance * chance; // many small ones, few large
    switch (id) {
    case MineralId::Pyrite: // cubes, cut squarely
        shape.halfLength = size * draw.between(1.0F, 1.3F);
        shape.halfWidth = size;
        shape.corner = 0.12F * size;
        break;
    case MineralId::Hematite: // laths
    case MineralId::Ilmenite:
        shape.halfLength = 2.0F + size * 1.9F;
        shape.halfWidth = 0.5F + size * 0.12F;
        shape.corner = 0.3F;
        break;
    default: // drops
        shape.halfLength = size * draw.between(0.8F, 1.2F);
        shape.halfWidth = size * 0.75F;
        shape.corner = shape.halfWidth * 0.95F;
        break;
    }
    return shape;
}

void addInclusion(const SampleGrid& grid, const Assemblage& assemblage, const Relief& relief, Draw& draw,
                  float cornerX, float cornerY, ColourPlanes& out) {
    const MineralId id = inclusionMineral(assemblage.inclusions, draw.unit());
    const Shape shape = inclusionShape(id, draw, cornerX, cornerY);
    const Mineral& kind = mineral(id);
    const Rgb colour = kind.colour * (1.0F + kind.spread * draw.centred());
    overSamples(grid, shape, 2.0F + relief.footprint, [&](std::size_t i) {
        const float inside =
            shape.inside(relief.straightX[i], relief.straightY[i]) + 0.25F * relief.texture[i];
        if (inside < -1.0F - relief.footprint) {
            return;
        }
        // A hard inclusion stands in relief: a thin shadow lies around it.
        const float shadow = coverage(inside + 0.8F, relief.footprint + 0.8F) * 0.3F;
        out.scale(i, 1.0F - shadow);
        out.cover(i, colour * (1.0F + kind.texture * relief.texture[i]), coverage(inside, relief.footprint));
    });
}

void addPore(const SampleGrid& grid, const Relief& relief, Draw& draw, float cornerX, float cornerY,
             ColourPlanes& out) {
    const auto cell = static_cast<float>(kPoreCell);
    Shape shape{};
    shape.x = cornerX + cell * draw.unit();
    shape.y = cornerY + cell * draw.unit();
    turn(shape, draw);
    const float chance = draw.unit();
    const float size = 0.9F + 7.5F * chance * chance * chance * chance;
    shape.halfLength = size * draw.between(1.0F, 1.6F);
    shape.halfWidth = size;
    shape.corner = size * 0.95F;
    const float rough = 0.22F * size;
    overSamples(grid, shape, 3.0F + relief.footprint + rough, [&](std::size_t i) {
        const float inside =
            shape.inside(relief.straightX[i], relief.straightY[i]) + rough * relief.texture[i];
        if (inside < -1.6F - relief.footprint) {
            return;
        }
        // The rounded rim catches the light on the side away from the lamp's tilt.
        const float side =
            (relief.straightY[i] - shape.y + relief.straightX[i] - shape.x) / (shape.reach() + 1.0F);
        const float rim = coverage(inside + 1.1F, relief.footprint + 1.0F);
        out.scale(i, 1.0F + 0.16F * rim * side);
        const float floorLight = 1.0F + 0.5F * relief.texture[i];
        out.cover(i, kPoreColour * floorLight, coverage(inside, relief.footprint + 0.5F));
    });
}

// A family of parallel scratches; the direction is across them, from whole-number right triangles.
struct ScratchFamily {
    double acrossX, acrossY;
    double spacing; // units between possible scratches
    double length;  // units along, longest
    float depth;
};
constexpr std::array<ScratchFamily, 4> kScratchFamilies{
    {{0.6, 0.8, 47.0, 640.0, 0.16F},
     {5.0 / 13.0, -12.0 / 13.0, 83.0, 900.0, 0.13F},
     {-0.9756097560975610, 0.2195121951219512, 71.0, 420.0, 0.15F},
     {20.0 / 29.0, 21.0 / 29.0, 131.0, 1400.0, 0.22F}}};

struct Scratch {
    double across; // place across the family
    double begin;  // along it
    double end;
    float width;
    float depth;
};

// Rows of the grid, begin and end, that a scratch can pass; somewhat more than it does.
std::pair<int, int> rowsCrossed(const SampleGrid& grid, const ScratchFamily& family, const Scratch& scratch,
                                double reach) {
    const auto rowAt = [&](double x, double across) {
        return ((across - x * family.acrossX) / family.acrossY - grid.y0) / grid.stepY;
    };
    const auto ends = {rowAt(grid.xOf(-1), scratch.across - reach),
                       rowAt(grid.xOf(-1), scratch.across + reach),
                       rowAt(grid.xOf(grid.columns), scratch.across - reach),
                       rowAt(grid.xOf(grid.columns), scratch.across + reach)};
    const double rows = grid.rows;
    return {static_cast<int>(std::clamp(std::min(ends) - 1.0, 0.0, rows)),
            static_cast<int>(std::clamp(std::max(ends) + 2.0, 0.0, rows))};
}

void drawScratch(const SampleGrid& grid, const ScratchFamily& family, const Scratch& scratch,
                 ColourPlanes& out) {
    const float footprint = grid.footprint();
    const float soft = footprint > scratch.width ? footprint : scratch.width;
    const float strength = scratch.depth * std::min(1.0F, scratch.width / footprint);
    const double reach = (static_cast<double>(scratch.width) + 1.5 * static_cast<double>(soft));
    const auto [first, last] = rowsCrossed(grid, family, scratch, reach);
    for (int r = first; r < last; ++r) {
        const double y = grid.yOf(r);
        // Columns where the scratch passes this row.
        const double middle = ((scratch.across - y * family.acrossY) / family.acrossX - grid.x0) / grid.stepX;
        const double half = std::abs(reach / family.acrossX / grid.stepX);
        if (!(middle + half >= 0.0) || !(middle - half <= grid.columns - 1)) {
            continue;
        }
        const int left = std::max(0, static_cast<int>(middle - half));
        const int right = std::min(grid.columns - 1, static_cast<int>(middle + half) + 1);
        for (int c = left; c <= right; ++c) {
            const double x = grid.xOf(c);
            const double along = y * family.acrossX - x * family.acrossY;
            const auto toEnd = static_cast<float>(std::min(along - scratch.begin, scratch.end - along));
            const float taper = std::clamp(toEnd / 60.0F, 0.0F, 1.0F);
            const float off = static_cast<float>(x * family.acrossX + y * family.acrossY - scratch.across);
            const float dark = std::max(0.0F, 1.0F - std::abs(off) / soft);
            const float lit = std::max(0.0F, 1.0F - std::abs(off - soft) / soft);
            out.scale(static_cast<std::size_t>(r) * static_cast<std::size_t>(grid.columns) +
                          static_cast<std::size_t>(c),
                      1.0F + strength * taper * (0.35F * lit - dark));
        }
    }
}

// Beyond this distance across a scratch leaves the surface alone.
double widestReach(const SampleGrid& grid, const Scratch& scratch) {
    const float soft = std::max(grid.footprint(), scratch.width);
    return 2.0 * static_cast<double>(soft) + 2.0 * static_cast<double>(grid.footprint());
}

struct Range {
    double low, high;
};

Range rangeAlong(const SampleGrid& grid, double ax, double ay) {
    Range range{1e300, -1e300};
    for (const int r : {0, grid.rows - 1}) {
        for (const int c : {0, grid.columns - 1}) {
            const double value = grid.xOf(c) * ax + grid.yOf(r) * ay;
            range.low = std::min(range.low, value);
            range.high = std::max(range.high, value);
        }
    }
    return range;
}

void drawFamily(const SampleGrid& grid, const ScratchFamily& family, std::uint32_t seed, ColourPlanes& out) {
    const Range across = rangeAlong(grid, family.acrossX, family.acrossY);
    const Range along = rangeAlong(grid, -family.acrossY, family.acrossX);
    const auto cell = [](double value, double size) {
        return static_cast<std::int64_t>(std::floor(value / size));
    };
    for (auto k = cell(across.low, family.spacing) - 1; k <= cell(across.high, family.spacing) + 1; ++k) {
        for (auto m = cell(along.low, family.length) - 1; m <= cell(along.high, family.length); ++m) {
            Draw draw(cellHash(seed, k, m));
            const float chance = draw.unit();
            Scratch scratch{};
            scratch.depth = family.depth * chance * chance; // most are hardly seen
            if (scratch.depth <= 0.01F) {
                continue;
            }
            scratch.across = (static_cast<double>(k) + static_cast<double>(draw.unit())) * family.spacing;
            scratch.begin = (static_cast<double>(m) + static_cast<double>(draw.unit())) * family.length;
            scratch.end = scratch.begin + family.length * static_cast<double>(draw.between(0.2F, 0.95F));
            scratch.width = draw.between(0.35F, 0.9F);
            const double reach = widestReach(grid, scratch);
            if (scratch.across + reach < across.low || scratch.across - reach > across.high) {
                continue;
            }
            if (scratch.end > along.low && scratch.begin < along.high) {
                drawScratch(grid, family, scratch, out);
            }
        }
    }
}

} // namespace

void addInclusionsAndPores(const SampleGrid& grid, const Assemblage& assemblage, std::uint32_t seed,
                           const Relief& relief, ColourPlanes& out) {
    if (relief.footprint > kCoarsestFootprint) {
        return;
    }
    overCells(grid, kInclusionCell, mix(seed, 11), [&](Draw& draw, float x, float y) {
        if (draw.unit() < assemblage.inclusionDensity) {
            addInclusion(grid, assemblage, relief, draw, x, y, out);
        }
    });
    overCells(grid, kPoreCell, mix(seed, 12), [&](Draw& draw, float x, float y) {
        if (draw.unit() < assemblage.poreDensity) {
            addPore(grid, relief, draw, x, y, out);
        }
    });
}

void addScratches(const SampleGrid& grid, std::uint32_t seed, ColourPlanes& out) {
    if (grid.footprint() > kCoarsestFootprint) {
        return;
    }
    std::uint32_t number = 100;
    for (const ScratchFamily& family : kScratchFamilies) {
        drawFamily(grid, family, mix(seed, number++), out);
    }
}

} // namespace hosts::simulated
