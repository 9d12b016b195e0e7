#include "hosts/simulated/world/Holder.h"

#include "hosts/simulated/world/Engraving.h"
#include "hosts/simulated/world/Hash.h"
#include "hosts/simulated/world/LatticeNoise.h"
#include "hosts/simulated/world/Minerals.h"
#include "hosts/simulated/world/Section.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

constexpr Rgb kEpoxy{74, 66, 57};
constexpr Rgb kRingMetal{196, 197, 199};
constexpr Rgb kGlass{52, 55, 58};
constexpr Rgb kChrome{214, 216, 214};
constexpr Rgb kGap{20, 18, 17};
constexpr double kGapWidth = 7.0;       // glue between mineral and ring, units
constexpr double kTurningPitch = 3.1;   // lathe marks of the ring, units
constexpr double kNumberHeight = 110.0; // of the engraving, units
constexpr double kNumberAbove = 150.0;  // its middle above the mount's centre
constexpr double kNameHeight = 40.0;
constexpr double kNameBelow = 160.0;
constexpr std::size_t kLongestName = 16;

// Turned metal: rings of the tool's marks, and a sheen that follows the angle to the lamp.
Rgb ringColour(float dx, float dy, float radius, std::uint32_t seed, float footprint) {
    const float mark = radius / static_cast<float>(kTurningPitch);
    const auto groove = static_cast<std::int32_t>(mark);
    const float part = mark - static_cast<float>(groove);
    const float soft = part * part * (3.0F - 2.0F * part);
    const float here = signedFloat(mix(seed, static_cast<std::uint32_t>(groove)));
    const float next = signedFloat(mix(seed, static_cast<std::uint32_t>(groove) + 1U));
    const float fade = std::clamp(2.0F - footprint / 2.0F, 0.0F, 1.0F);
    const float turning = (here + (next - here) * soft) * 0.16F * fade;
    const float sheen = (dx * dx - dy * dy) / (radius * radius + 1.0F) * 0.07F;
    return kRingMetal * (1.0F + turning + sheen);
}

// Bands of a round holder from the inside out.
struct Bands {
    double x, y;
    double inner; // radius of what it holds
    double ring;
    double epoxy;
};

// Each band covers all inside its outer edge; painting goes from outside in, `inside` last.
void paintBands(const SampleGrid& grid, const Bands& bands, const ColourPlanes& inside, std::uint32_t seed,
                ColourPlanes& out) {
    const float footprint = grid.footprint();
    std::size_t i = 0;
    for (int r = 0; r < grid.rows; ++r) {
        const auto dy = static_cast<float>(grid.yOf(r) - bands.y);
        for (int c = 0; c < grid.columns; ++c, ++i) {
            const auto dx = static_cast<float>(grid.xOf(c) - bands.x);
            const float radius = std::sqrt(dx * dx + dy * dy);
            const auto covered = [&](double edge) {
                return coverage(static_cast<float>(edge) - radius, footprint);
            };
            out.cover(i, kEpoxy, covered(bands.epoxy));
            out.cover(i, ringColour(dx, dy, radius, seed, footprint), covered(bands.ring));
            out.cover(i, kGap, covered(bands.inner + kGapWidth));
            out.cover(i, inside.at(i), covered(bands.inner));
        }
    }
}

// One of the graticule's two scales: `u` along it, `v` across it, both measured on the picture from its
// middle.
float scaleMark(float u, float v, float footprint) {
    constexpr auto half = static_cast<float>(World::kGraticuleLength / 2);
    constexpr auto pitch = static_cast<float>(World::kGraticulePitch);
    constexpr float halfWidth = 0.8F;
    constexpr float baseLineHalfWidth = 0.5F;
    const float fullness = std::min(1.0F, 2 * halfWidth / footprint);
    const float number = (std::clamp(u, -half, half) + half) / pitch + 0.5F;
    const auto mark = static_cast<std::int32_t>(number);
    const float offset = std::abs(u + half - static_cast<float>(mark) * pitch);
    const bool atCrossing = mark == 49 || mark == 51; // kept clear of the other scale's marks
    const float reach = atCrossing ? 6.0F : mark % 10 == 0 ? 25.0F : mark % 5 == 0 ? 17.0F : 10.0F;
    const float line = coverage(halfWidth - offset, footprint) * coverage(reach - std::abs(v), footprint);
    const float base =
        coverage(baseLineHalfWidth - std::abs(v), footprint) * coverage(half - std::abs(u), footprint) * 0.8F;
    return std::max(line, base) * fullness;
}

void paintScales(const SampleGrid& grid, ColourPlanes& out) {
    std::size_t i = 0;
    for (int r = 0; r < grid.rows; ++r) {
        const auto v = static_cast<float>(World::kGraticuleY - grid.yOf(r));
        for (int c = 0; c < grid.columns; ++c, ++i) {
            const auto u = static_cast<float>(World::kGraticuleX - grid.xOf(c));
            const float part = std::max(scaleMark(u, v, grid.footprint()), scaleMark(v, u, grid.footprint()));
            out.cover(i, kChrome, part);
        }
    }
}

void paintScaleNumbers(const SampleGrid& grid, ColourPlanes& out) {
    for (int hundred = 0; hundred <= 10; ++hundred) {
        if (hundred == 5) {
            continue; // the other scale crosses there
        }
        const double along = hundred * 100.0 - World::kGraticuleLength / 2;
        Engraving label{std::to_string(hundred * 100), 0.0, 0.0, 17.0, kChrome, 0.0F};
        label.x = World::kGraticuleX - along;
        label.y = World::kGraticuleY - 42.0;
        engrave(grid, label, out);
        label.x = World::kGraticuleX - 62.0;
        label.y = World::kGraticuleY - along;
        engrave(grid, label, out);
    }
}

} // namespace

Overlap overlapOf(const SampleGrid& grid, double centreX, double centreY, double radius) {
    const auto [lowX, highX] = std::minmax({grid.x0 - centreX, grid.xOf(grid.columns - 1) - centreX});
    const auto [lowY, highY] = std::minmax({grid.y0 - centreY, grid.yOf(grid.rows - 1) - centreY});
    const double margin = static_cast<double>(grid.footprint());
    const double nearX = std::max({lowX, -highX, 0.0});
    const double nearY = std::max({lowY, -highY, 0.0});
    const double farX = std::max(-lowX, highX) + margin;
    const double farY = std::max(-lowY, highY) + margin;
    if (nearX * nearX + nearY * nearY > (radius + margin) * (radius + margin)) {
        return Overlap::None;
    }
    return farX * farX + farY * farY < radius * radius ? Overlap::Whole : Overlap::Part;
}

void paintMount(const SampleGrid& grid, const Mount& mount, std::uint32_t seed, ColourPlanes& out) {
    const std::uint32_t ownSeed = mix(seed, 1000U + static_cast<std::uint32_t>(mount.number));
    ColourPlanes inside(grid.size());
    if (overlapOf(grid, mount.x, mount.y, World::kMineralRadius) != Overlap::None) {
        paintSection(grid, mountAssemblage(mount.number, mount.name), ownSeed, inside);
        engrave(grid, {std::to_string(mount.number), mount.x, mount.y + kNumberAbove, kNumberHeight}, inside);
        engrave(grid, {mount.name.substr(0, kLongestName), mount.x, mount.y - kNameBelow, kNameHeight},
                inside);
    }
    if (overlapOf(grid, mount.x, mount.y, World::kMineralRadius) == Overlap::Whole) {
        out = std::move(inside);
        return;
    }
    const Bands bands{mount.x, mount.y, World::kMineralRadius, World::kRingRadius, World::kEpoxyRadius};
    paintBands(grid, bands, inside, ownSeed, out);
}

void paintGraticule(const SampleGrid& grid, std::uint32_t seed, ColourPlanes& out) {
    ColourPlanes glass(grid.size());
    // A trace of polish on the glass, far weaker than any rock's texture.
    std::vector<float> haze(grid.size(), 1.0F);
    LatticeNoise(grid).add(2.0, mix(seed, 900), 0.03F, haze);
    for (std::size_t i = 0; i < grid.size(); ++i) {
        glass.set(i, kGlass * haze[i]);
    }
    paintScales(grid, glass);
    paintScaleNumbers(grid, glass);
    const Bands bands{World::kGraticuleX, World::kGraticuleY, World::kGlassRadius,
                      World::kGraticuleRingRadius, World::kGraticuleEpoxyRadius};
    paintBands(grid, bands, glass, mix(seed, 901), out);
}

} // namespace hosts::simulated
