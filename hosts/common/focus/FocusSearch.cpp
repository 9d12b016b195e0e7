#include "hosts/common/focus/FocusSearch.h"

#include "base/Numbers.h"
#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hosts {

using ocuva::axisX;
using ocuva::axisY;
using ocuva::axisZ;
using ocuva::Long;

namespace {

std::string zText(Long z) { return "Z=" + std::to_string(z); }

std::string scoreText(double score) { return numberText(std::round(score * 10.0) / 10.0); }

} // namespace

FocusSearch::FocusSearch(Stage& stage, Clock& clock, std::function<ocuva::FramePtr()> expose, HostLog& log)
    : m_stage(stage)
    , m_clock(clock)
    , m_expose(std::move(expose))
    , m_log(log) {}

FocusVerdict FocusSearch::run(const FocusPlan& plan) {
    Long began = 0;
    const bool standing = awaitStanding({axisX, axisY, axisZ});
    m_stage.position(axisZ, began);
    if (!standing) {
        m_log.line("autofocus: refused: the stage is moving and does not come to rest");
        return FocusVerdict::refused;
    }
    if (plan.transmittedLight) {
        m_log.line("autofocus: transmitted light is asked for, but there is reflected light only");
    }
    std::vector<FocusSample> samples;
    for (const Long z : heights(plan, began)) {
        if (!moveTo(z)) {
            return giveUp(FocusVerdict::refused, began, "refused: the stage does not go to " + zText(z));
        }
        const ocuva::FramePtr frame = m_expose();
        if (!frame) {
            return giveUp(FocusVerdict::noFrames, began, "no frames: the video board gives none");
        }
        samples.push_back({z, sharpnessOf(*frame, plan.fraction)});
    }
    return settle(focusPeak(samples), began);
}

std::vector<Long> FocusSearch::heights(const FocusPlan& plan, Long middle) const {
    Long lower = 0;
    Long upper = 0;
    m_stage.limits(axisZ, lower, upper);
    const double half = std::max(plan.range, 0) / 2.0;
    const double first = std::max<double>(lower, middle - half);
    const double last = std::min<double>(upper, middle + half);
    std::vector<Long> heights;
    for (int i = 0; i < plan.points; ++i) {
        const double share = plan.points > 1 ? static_cast<double>(i) / (plan.points - 1) : 0.5;
        const Long z = ocuva::toLong(first + share * (last - first));
        if (heights.empty() || z > heights.back()) {
            heights.push_back(z);
        }
    }
    return heights;
}

FocusVerdict FocusSearch::settle(const FocusPeak& peak, Long began) {
    if (peak.kind == FocusPeak::Kind::flat) {
        return giveUp(FocusVerdict::flat, began, "flat: no height is sharper than the others");
    }
    const Long z = ocuva::toLong(peak.z);
    if (!arriveFromBelow(z)) {
        return giveUp(FocusVerdict::refused, began, "refused: the stage does not go to " + zText(z));
    }
    const std::string where =
        zText(z) + " with score " + scoreText(peak.score) + ", began at " + zText(began);
    if (peak.kind == FocusPeak::Kind::inside) {
        m_log.line("autofocus: found at " + where);
        return FocusVerdict::found;
    }
    m_log.line("autofocus: peak at the edge of the range, " + where +
               (isLimit(z) ? "; this is a limit of the stage" : "; search again to go on"));
    return FocusVerdict::edge;
}

FocusVerdict FocusSearch::giveUp(FocusVerdict verdict, Long began, const std::string& why) {
    const bool back = arriveFromBelow(began);
    m_log.line("autofocus: " + why + (back ? "; back at " : "; cannot go back to ") + zText(began));
    return verdict;
}

bool FocusSearch::moveTo(Long z) {
    Long standsAt = 0;
    return m_stage.loadAbsolute(axisZ, z) && m_stage.start(axisZ) && awaitStanding({axisZ}) &&
           m_stage.position(axisZ, standsAt) && standsAt == z;
}

bool FocusSearch::arriveFromBelow(Long z) {
    Long here = 0;
    Long lower = 0;
    Long upper = 0;
    m_stage.position(axisZ, here);
    m_stage.limits(axisZ, lower, upper);
    if (here > z) {
        moveTo(std::max(lower, z - approachUnits));
    }
    return moveTo(z);
}

// Fails when an axis does not answer, or says that it moves and gets nowhere.
bool FocusSearch::awaitStanding(std::initializer_list<Long> axes) {
    constexpr double askAgainMs = 2.0;
    std::vector<Long> before;
    double changedMs = m_clock.nowMs();
    for (;;) {
        bool anyMoves = false;
        std::vector<Long> places;
        for (const Long axis : axes) {
            bool moves = false;
            if (!m_stage.isMoving(axis, moves) || !m_stage.position(axis, places.emplace_back())) {
                return false;
            }
            anyMoves = anyMoves || moves;
        }
        if (!anyMoves) {
            return true;
        }
        if (places != before) {
            before = std::move(places);
            changedMs = m_clock.nowMs();
        } else if (m_clock.nowMs() - changedMs > stallMs) {
            return false;
        }
        m_clock.spend(askAgainMs);
    }
}

bool FocusSearch::isLimit(Long z) const {
    Long lower = 0;
    Long upper = 0;
    m_stage.limits(axisZ, lower, upper);
    return z == lower || z == upper;
}

} // namespace hosts
