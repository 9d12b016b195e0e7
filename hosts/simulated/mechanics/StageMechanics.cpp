#include "hosts/simulated/mechanics/StageMechanics.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace hosts::simulated {

using ocuva::Long;

namespace {

AxisSettings sane(AxisSettings settings) {
    if (settings.lower > settings.upper) {
        std::swap(settings.lower, settings.upper);
    }
    // Written so that NaN fails too.
    if (!(settings.speed > 0.0)) {
        settings.speed = 1.0;
    }
    if (!(settings.acceleration > 0.0)) {
        settings.acceleration = 1.0;
    }
    settings.start = std::clamp(settings.start, settings.lower, settings.upper);
    settings.backlash = std::max(settings.backlash, 0);
    return settings;
}

std::optional<Long> wholeUnits(double value) {
    try {
        return ocuva::toLong(value);
    } catch (const ocuva::ArithmeticError&) {
        return std::nullopt;
    }
}

} // namespace

StageMechanics::Axis::Axis(AxisSettings axisSettings, AxisWear axisWear)
    : settings(sane(axisSettings))
    , wear(axisWear)
    , motion(static_cast<double>(settings.start))
    , carried(static_cast<double>(settings.start)) {}

// Targets are whole units, so the conversion is exact.
Long StageMechanics::Axis::boundFor() const {
    return load ? load->target : static_cast<Long>(motion.target());
}

bool StageMechanics::Axis::startAt(double nowMs, std::optional<Stall> stall) {
    if (!load) {
        return false;
    }
    go(nowMs, *load, stall);
    load.reset();
    return true;
}

void StageMechanics::Axis::go(double nowMs, const Load& to, std::optional<Stall> stall) {
    Long from = ocuva::toLong(positionAt(nowMs));
    double way = stall ? std::floor(stall->after) : std::numeric_limits<double>::infinity();
    bool stalled = false;
    const auto reached = [&](Long target) {
        const double distance = std::abs(static_cast<double>(target) - from);
        stalled = distance > way;
        from = stalled ? static_cast<Long>(from + std::copysign(way, target < from ? -1.0 : 1.0)) : target;
        way -= stalled ? 0.0 : distance;
        return static_cast<double>(from);
    };
    carried = carriedAt(nowMs);
    const MotionState state = motion.stateAt(nowMs);
    motion = MotionProfile(nowMs, state, reached(to.via.value_or(to.target)), motionLimits());
    if (to.via && !stalled) {
        motion.append(reached(to.target), motionLimits());
    }
    busyUntilMs = motion.endMs() + (stalled ? stall->timeoutMs : 0.0);
    hasMoved = hasMoved || motion.endMs() > nowMs;
}

// The profile of a move to a limit may pass it by a rounding error of its arithmetic.
double StageMechanics::Axis::positionAt(double nowMs) const {
    return std::clamp(motion.stateAt(nowMs).position, static_cast<double>(settings.lower),
                      static_cast<double>(settings.upper));
}

StageMechanics::StageMechanics(Clock& clock, const StageSettings& settings, const StageWear& wear,
                               DeviceFaultsSource faults)
    : m_clock(clock)
    , m_wear(wear)
    , m_faults(std::move(faults))
    , m_beganMs(clock.nowMs())
    , m_axes{Axis(settings.x, wear.axes[0]), Axis(settings.y, wear.axes[1]), Axis(settings.z, wear.axes[2])}
    , m_otherControllerDueMs(m_beganMs + wear.otherControllerPeriodMs) {}

const StageMechanics::Axis* StageMechanics::find(Long axis) const {
    return axis >= ocuva::axisX && axis <= ocuva::axisZ ? &m_axes[static_cast<std::size_t>(axis - 1)]
                                                        : nullptr;
}

StageMechanics::Axis* StageMechanics::find(Long axis) {
    return const_cast<Axis*>(std::as_const(*this).find(axis));
}

template <typename Action> bool StageMechanics::forAxes(Long axis, Action action) {
    if (axis != ocuva::axisAll) {
        Axis* const one = find(axis);
        return one != nullptr && action(*one);
    }
    bool any = false;
    for (Axis& each : m_axes) {
        any = action(each) || any;
    }
    return any;
}

bool StageMechanics::loadAbsolute(Long axis, double target) {
    const std::optional<Long> whole = wholeUnits(target);
    const bool refuses = isRefusing();
    const std::lock_guard lock(m_mutex);
    Axis* const one = find(axis);
    if (refuses || one == nullptr || !whole || *whole < one->settings.lower || *whole > one->settings.upper) {
        return false;
    }
    one->load = Load{*whole, std::nullopt};
    return true;
}

bool StageMechanics::loadRelative(Long axis, double distance) {
    const std::optional<Long> whole = wholeUnits(distance);
    const bool refuses = isRefusing();
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    Axis* const one = find(axis);
    if (refuses || one == nullptr || !whole) {
        return false;
    }
    // Relative to its current position, not to its target: the program has computed the distance from a
    // position just read or a picture just shown.
    const std::int64_t target = std::int64_t{ocuva::toLong(one->positionAt(nowMs))} + *whole;
    if (target < one->settings.lower || target > one->settings.upper) {
        return false;
    }
    one->load = Load{static_cast<Long>(target), std::nullopt};
    return true;
}

bool StageMechanics::loadBacklash(Long axis) {
    const bool refuses = isRefusing();
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    return !refuses && forAxes(axis, [](Axis& each) {
        const Long target = each.boundFor();
        const std::int64_t away = std::int64_t{target} - each.settings.backlash;
        const auto via = static_cast<Long>(std::max<std::int64_t>(away, each.settings.lower));
        each.load = Load{target, via};
        return true;
    });
}

bool StageMechanics::start(Long axis) {
    const StageFault fault = present(m_faults).stage;
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    return fault != StageFault::refusing && forAxes(axis, [&](Axis& each) {
               const auto index = static_cast<std::size_t>(&each - m_axes.data());
               return each.startAt(nowMs, stallOf(index, fault));
           });
}

std::optional<StageMechanics::Stall> StageMechanics::stallOf(std::size_t index, StageFault fault) const {
    const bool stalls = fault == StageFault::stalling || m_wear.stallAxis == static_cast<Long>(index) + 1;
    return stalls ? std::optional(Stall{m_wear.stallAfter, m_wear.stallTimeoutMs}) : std::nullopt;
}

void StageMechanics::catchUp(double nowMs) const {
    if (!(m_wear.otherControllerAmplitude > 0.0)) {
        return;
    }
    Axis& x = m_axes[0];
    for (; m_otherControllerDueMs <= nowMs; m_otherControllerDueMs += m_wear.otherControllerPeriodMs) {
        const double amplitude = m_wear.otherControllerAmplitude;
        const double target = x.motion.target() + (m_otherControllerGoesUp ? amplitude : -amplitude);
        const auto whole = ocuva::toLong(std::clamp<double>(target, static_cast<double>(x.settings.lower),
                                                            static_cast<double>(x.settings.upper)));
        x.go(m_otherControllerDueMs, Load{whole, std::nullopt}, std::nullopt);
        m_otherControllerGoesUp = !m_otherControllerGoesUp;
    }
}

bool StageMechanics::position(Long axis, Long& position) const {
    const DeviceFaults faults = present(m_faults);
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    const Axis* const one = find(axis);
    if (one == nullptr) {
        return false;
    }
    const double lie = faults.stage == StageFault::lying ? faults.stageLie : 0.0;
    position = ocuva::toLong(one->positionAt(nowMs) + lie);
    return true;
}

bool StageMechanics::isMoving(Long axis, bool& moving) {
    // Before the lock: a virtual clock runs the camera on this thread, and the camera reads positions.
    if (m_clock.isVirtual()) {
        m_clock.spend(statusReadMs);
    }
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    const Axis* const one = find(axis);
    if (one == nullptr) {
        return false;
    }
    moving = nowMs < one->busyUntilMs;
    return true;
}

bool StageMechanics::limits(Long axis, Long& lower, Long& upper) const {
    const Axis* const one = find(axis);
    if (one == nullptr) {
        return false;
    }
    lower = one->settings.lower;
    upper = one->settings.upper;
    return true;
}

ocuva::ExactStagePosition StageMechanics::exactPosition() const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    return {m_axes[0].positionAt(nowMs), m_axes[1].positionAt(nowMs), m_axes[2].positionAt(nowMs)};
}

double StageMechanics::exactPosition(Long axis) const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    const Axis* const one = find(axis);
    return one == nullptr ? 0.0 : one->positionAt(nowMs);
}

ocuva::ExactStagePosition StageMechanics::truePosition() const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    catchUp(nowMs);
    return {trueAt(0, nowMs), trueAt(1, nowMs), trueAt(2, nowMs)};
}

double StageMechanics::trueAt(std::size_t index, double nowMs) const {
    constexpr double msPerMinute = 60000.0;
    constexpr double decays = 3.0; // 5 percent are left after the settling time
    const Axis& axis = m_axes[index];
    const double stoppedMs = nowMs - axis.motion.endMs();
    double swing = 0.0;
    if (axis.hasMoved && stoppedMs > 0.0) {
        swing = m_wear.settlingAmplitude * std::exp(-decays * stoppedMs / m_wear.settlingMs) *
                std::sin(2.0 * std::numbers::pi * settlingHz * stoppedMs / 1000.0);
    }
    const double drift = axis.wear.driftPerMinute * (nowMs - m_beganMs) / msPerMinute;
    return axis.carriedAt(nowMs) + swing + drift;
}

} // namespace hosts::simulated
