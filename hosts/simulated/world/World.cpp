#include "hosts/simulated/world/World.h"

#include "hosts/simulated/world/Holder.h"
#include "hosts/simulated/world/Minerals.h"
#include "hosts/simulated/world/Section.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hosts::simulated {
namespace {

constexpr double kPointSize = 0.25; // units; colourAt sees a sample of this size

constexpr double kFarthest = 1e12; // keeps lattice numbers within 64 bits with room to spare

double held(double value) { return std::isfinite(value) ? std::clamp(value, -kFarthest, kFarthest) : 0.0; }

} // namespace

World::World(std::uint32_t seed, std::vector<Mount> mounts)
    : m_seed(seed)
    , m_mounts(std::move(mounts)) {}

Rgb World::colourAt(double x, double y) const {
    return paint({held(x), held(y), -kPointSize, -kPointSize, 1, 1}).at(0);
}

ColourPlanes World::paint(const SampleGrid& grid) const {
    ColourPlanes out(grid.size());
    const auto holds = [&](const Mount& mount) {
        return overlapOf(grid, mount.x, mount.y, kEpoxyRadius) == Overlap::Whole;
    };
    const bool covered = std::any_of(m_mounts.begin(), m_mounts.end(), holds) ||
                         overlapOf(grid, kGraticuleX, kGraticuleY, kGraticuleEpoxyRadius) == Overlap::Whole;
    if (!covered) {
        paintSection(grid, sectionAssemblage(), m_seed, out);
    }
    for (const Mount& mount : m_mounts) {
        if (overlapOf(grid, mount.x, mount.y, kEpoxyRadius) != Overlap::None) {
            paintMount(grid, mount, m_seed, out);
        }
    }
    if (overlapOf(grid, kGraticuleX, kGraticuleY, kGraticuleEpoxyRadius) != Overlap::None) {
        paintGraticule(grid, m_seed, out);
    }
    return out;
}

} // namespace hosts::simulated
