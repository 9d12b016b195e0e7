#include "simhost/FocusSearch.h"

#include "base/Numbers.h"
#include "simhost/services/Numerals.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace simhost {

using ocuva::axisZ;
using ocuva::Long;

namespace {

// How much sharper the peak must be than the dullest picture, so that noise on a plain surface is no focus.
constexpr double leastPeak = 1.05;

int greyLevel(std::uint32_t pixel) {
    // Luminance in 1/256: 0.299, 0.587, 0.114.
    return static_cast<int>(
        (((pixel >> 16) & 0xffU) * 77U + ((pixel >> 8) & 0xffU) * 150U + (pixel & 0xffU) * 29U) >> 8);
}

// The top of the parabola through three points, of which the middle one is the highest.
double parabolaTop(double z0, double s0, double z1, double s1, double z2, double s2) {
    const double slope01 = (s1 - s0) / (z1 - z0);
    const double slope12 = (s2 - s1) / (z2 - z1);
    const double bend = (slope12 - slope01) / (z2 - z0);
    return bend < 0.0 ? (z0 + z1) / 2.0 - slope01 / (2.0 * bend) : z1;
}

} // namespace

double gradientEnergy(const ocuva::Frame& frame, int fraction) {
    const int part = std::max(fraction, 1);
    const int width = frame.width / part;
    const int height = frame.height / part;
    if (width < 2 || height < 2) {
        return 0.0;
    }
    const int left = (frame.width - width) / 2;
    const int top = (frame.height - height) / 2;
    std::int64_t energy = 0;
    for (int y = top; y < top + height - 1; ++y) {
        const std::uint32_t* const row =
            frame.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(frame.width);
        for (int x = left; x < left + width - 1; ++x) {
            const int here = greyLevel(row[x]);
            const int right = greyLevel(row[x + 1]) - here;
            const int below = greyLevel(row[x + frame.width]) - here;
            energy += right * right + below * below;
        }
    }
    return static_cast<double>(energy) / (static_cast<double>(width - 1) * (height - 1));
}

FocusSearch::FocusSearch(StageMechanics& stage, Clock& clock, std::function<ocuva::FramePtr()> expose,
                         HostLog& log)
    : m_stage(stage)
    , m_clock(clock)
    , m_expose(std::move(expose))
    , m_log(log) {}

bool FocusSearch::run(const FocusPlan& plan) {
    awaitStanding();
    Long began = 0;
    m_stage.position(axisZ, began);
    const std::vector<Sample> samples = measure(positions(plan, began), plan.fraction);
    const auto byS = [](const Sample& a, const Sample& b) { return a.sharpness < b.sharpness; };
    const auto best = std::max_element(samples.begin(), samples.end(), byS);
    const auto worst = std::min_element(samples.begin(), samples.end(), byS);
    const bool inside = samples.size() >= 3 && best != samples.begin() && best != samples.end() - 1;
    if (!inside || best->sharpness < leastPeak * worst->sharpness) {
        moveTo(began);
        m_log.line("autofocus: no peak of sharpness around Z = " + std::to_string(began) + ", Z goes back");
        return false;
    }
    const Sample& before = *(best - 1);
    const Sample& after = *(best + 1);
    const double top =
        parabolaTop(before.z, before.sharpness, best->z, best->sharpness, after.z, after.sharpness);
    const Long peak = ocuva::toLong(std::clamp<double>(top, before.z, after.z));
    const bool reached = moveTo(peak);
    m_log.line("autofocus: sharpest at Z = " + std::to_string(peak) + ", began at " + std::to_string(began));
    return reached;
}

std::vector<Long> FocusSearch::positions(const FocusPlan& plan, Long middle) const {
    Long lower = 0;
    Long upper = 0;
    m_stage.limits(axisZ, lower, upper);
    const double first = std::max<double>(lower, middle - plan.range / 2.0);
    const double last = std::min<double>(upper, middle + plan.range / 2.0);
    std::vector<Long> positions;
    for (int i = 0; i < plan.points; ++i) {
        const double share = plan.points > 1 ? static_cast<double>(i) / (plan.points - 1) : 0.5;
        const Long z = ocuva::toLong(first + share * (last - first));
        if (positions.empty() || z > positions.back()) {
            positions.push_back(z);
        }
    }
    return positions;
}

std::vector<FocusSearch::Sample> FocusSearch::measure(const std::vector<Long>& positions, int fraction) {
    std::vector<Sample> samples;
    for (const Long z : positions) {
        if (moveTo(z)) {
            samples.push_back({z, gradientEnergy(*m_expose(), fraction)});
        }
    }
    return samples;
}

bool FocusSearch::moveTo(Long z) {
    const bool going = m_stage.loadAbsolute(axisZ, z) && m_stage.start(axisZ);
    awaitStanding();
    return going;
}

void FocusSearch::awaitStanding() {
    constexpr double askAgainMs = 2.0;
    bool moving = false;
    while (m_stage.isMoving(axisZ, moving) && moving) {
        m_clock.spend(askAgainMs);
    }
}

} // namespace simhost
