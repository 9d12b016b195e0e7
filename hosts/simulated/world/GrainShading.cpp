#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Grains.h"
#include "hosts/simulated/world/Hash.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

// Boundaries are etched a little by polishing: a dark line about this wide, fainter where the hash says so.
constexpr float kBoundaryWidth = 1.1F;
constexpr float kBoundaryDepth = 0.42F;

// Light and dark stripes of uneven width with soft flanks, counted from the grain's own place so that they do
// not depend on the grid.
struct Lamellae {
    float x, y, acrossX, acrossY, soft, contrast;
    std::uint32_t hash;

    Lamellae(const Grain& grain, float footprint)
        : x(grain.x)
        , y(grain.y)
        , acrossX(grain.lamellaX)
        , acrossY(grain.lamellaY)
        , soft(0.05F + 0.7F * footprint * (std::abs(grain.lamellaX) + std::abs(grain.lamellaY))) // of a pitch
        , contrast(soft > 0.6F ? 0.0F : grain.lamellaContrast)
        , hash(grain.hash) {}

    float light(float px, float py) const {
        const float across = (px - x) * acrossX + (py - y) * acrossY + 64.0F;
        const auto number = static_cast<std::int32_t>(across);
        const float phase = across - static_cast<float>(number);
        // The upper bits as a signed number, which vectors turn into floats at once.
        const auto chance = static_cast<std::int32_t>(mix(hash + static_cast<std::uint32_t>(number)) >> 8);
        const float width = 0.12F + 0.33F * (static_cast<float>(chance) * (1.0F / 16777216.0F));
        const float offset = phase < 0.5F ? 0.5F - phase : phase - 0.5F; // 0 in the middle of a light stripe
        return 1.0F + contrast * (coverage(width - offset, soft) - 0.57F);
    }
};

constexpr std::size_t inWholeVectors(std::size_t count) {
    return (count + kSpareSamples - 1) & ~(kSpareSamples - 1);
}

struct Planes {
    float* __restrict r;
    float* __restrict g;
    float* __restrict b;
};

HOSTS_VECTOR_CLONES void lightPlain(Rgb base, float strength, const float* __restrict texture, Planes out,
                                    std::size_t count) {
    float* __restrict r = out.r;
    float* __restrict g = out.g;
    float* __restrict b = out.b;
    count = inWholeVectors(count);
    for (std::size_t i = 0; i < count; ++i) {
        const float light = 1.0F + strength * texture[i];
        r[i] = base.r * light;
        g[i] = base.g * light;
        b[i] = base.b * light;
    }
}

HOSTS_VECTOR_CLONES void lightLamellae(const Lamellae& lamellae, const float* __restrict x,
                                       const float* __restrict y, Planes out, std::size_t count) {
    const Lamellae own = lamellae;
    count = inWholeVectors(count);
    float* __restrict r = out.r;
    float* __restrict g = out.g;
    float* __restrict b = out.b;
    for (std::size_t i = 0; i < count; ++i) {
        const float light = own.light(x[i], y[i]);
        r[i] *= light;
        g[i] *= light;
        b[i] *= light;
    }
}

class Shader {
public:
    Shader(const std::vector<Grain>& grains, const Relief& relief, const EdgeReach& reach,
           const ColourPlanes* aggregates)
        : m_grains(grains)
        , m_relief(relief)
        , m_aggregates(aggregates)
        , m_reach(reach) {}

    // Writes somewhat beyond the end, where the next run comes or the spare samples lie: runs are short, and
    // whole vectors much faster than single samples. As if there were no edges: plain multiplication, the
    // bulk of every picture.
    void fill(std::int32_t number, std::size_t begin, std::size_t end, ColourPlanes& out) const {
        const Grain& grain = m_grains[static_cast<std::size_t>(number)];
        const std::size_t count = inWholeVectors(end - begin);
        if (grain.aggregate && m_aggregates != nullptr) {
            std::copy_n(&m_aggregates->r[begin], count, &out.r[begin]);
            std::copy_n(&m_aggregates->g[begin], count, &out.g[begin]);
            std::copy_n(&m_aggregates->b[begin], count, &out.b[begin]);
            return;
        }
        const Planes planes{&out.r[begin], &out.g[begin], &out.b[begin]};
        lightPlain(grain.colour, grain.texture, &m_relief.texture[begin], planes, count);
        if (grain.lamellaContrast > 0.0F) {
            lightLamellae(Lamellae(grain, m_relief.footprint), &m_relief.straightX[begin],
                          &m_relief.straightY[begin], planes, count);
        }
    }

    // At an edge the two grains share the sample, and the etched boundary darkens both.
    void edge(const GrainRun& run, const std::vector<float>& gaps, ColourPlanes& out) const {
        const auto isNear = [&](float gap) { return gap < m_reach.gap; };
        if (run.neighbour == kNoNeighbour ||
            std::none_of(&gaps[run.begin], &gaps[run.begin] + (run.end - run.begin), isNear)) {
            return;
        }
        const Grain& a = m_grains[static_cast<std::size_t>(run.owner)];
        const Grain& b = m_grains[static_cast<std::size_t>(run.neighbour)];
        const float apart = std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y));
        const float perUnit = EdgeReach::gapPerUnit(apart);
        const float widest = m_reach.gapOf(apart);
        // The line is wider than it is when a sample is coarse, so it is fainter in proportion.
        const float depth = kBoundaryDepth * (0.25F + 0.75F * unitFloat(mix(a.hash ^ b.hash))) *
                            (kBoundaryWidth / m_reach.width);
        for (std::size_t i = run.begin; i < run.end; ++i) {
            if (gaps[i] >= widest) {
                continue;
            }
            const float distance = gaps[i] / perUnit;
            const float cover = coverage(distance, m_relief.footprint);
            const Rgb own = out.at(i);
            const Rgb blend = cover < 1.0F ? mixed(colour(b, i), own, cover) : own;
            out.set(i, blend * (1.0F - depth * (1.0F - distance / m_reach.width)));
        }
    }

private:
    Rgb colour(const Grain& grain, std::size_t at) const {
        if (grain.aggregate && m_aggregates != nullptr) {
            return m_aggregates->at(at);
        }
        float light = 1.0F + grain.texture * m_relief.texture[at];
        if (grain.lamellaContrast > 0.0F) {
            light *=
                Lamellae(grain, m_relief.footprint).light(m_relief.straightX[at], m_relief.straightY[at]);
        }
        return grain.colour * light;
    }

    const std::vector<Grain>& m_grains;
    const Relief& m_relief;
    const ColourPlanes* m_aggregates;
    const EdgeReach& m_reach;
};

} // namespace

EdgeReach::EdgeReach(double cell, float footprint)
    : width(kBoundaryWidth + 0.5F * footprint)
    , gap(6.0F * static_cast<float>(cell) * width) {}

void shadeGrains(const std::vector<Grain>& grains, const GrainMap& map, const Relief& relief,
                 const EdgeReach& edge, const ColourPlanes* aggregates, ColourPlanes& out) {
    const Shader shader(grains, relief, edge, aggregates);
    for (auto run = map.runs.begin(); run != map.runs.end();) {
        // One grain's neighbours change along a row, its colour does not.
        auto next = run + 1;
        while (next != map.runs.end() && next->owner == run->owner && next->begin == (next - 1)->end) {
            ++next;
        }
        shader.fill(run->owner, run->begin, (next - 1)->end, out);
        for (; run != next; ++run) {
            shader.edge(*run, map.gap, out);
        }
    }
}

} // namespace hosts::simulated
