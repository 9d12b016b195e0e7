#include "simhost/mechanics/StageMechanics.h"

#include "base/Numbers.h"

#include <algorithm>
#include <utility>

namespace simhost {

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

StageMechanics::Axis::Axis(AxisSettings axisSettings)
    : settings(sane(axisSettings))
    , motion(static_cast<double>(settings.start)) {}

// Targets are whole units, so the conversion is exact.
Long StageMechanics::Axis::boundFor() const {
    return load ? load->target : static_cast<Long>(motion.target());
}

bool StageMechanics::Axis::startAt(double nowMs) {
    if (!load) {
        return false;
    }
    const Long first = load->via.value_or(load->target);
    motion = MotionProfile(nowMs, motion.stateAt(nowMs), first, motionLimits());
    if (load->via) {
        motion.append(load->target, motionLimits());
    }
    load.reset();
    return true;
}

// The profile of a move to a limit may pass it by a rounding error of its arithmetic.
double StageMechanics::Axis::positionAt(double nowMs) const {
    return std::clamp(motion.stateAt(nowMs).position, static_cast<double>(settings.lower),
                      static_cast<double>(settings.upper));
}

StageMechanics::StageMechanics(Clock& clock, const StageSettings& settings)
    : m_clock(clock)
    , m_axes{Axis(settings.x), Axis(settings.y), Axis(settings.z)} {}

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
    const std::lock_guard lock(m_mutex);
    Axis* const one = find(axis);
    if (one == nullptr || !whole || *whole < one->settings.lower || *whole > one->settings.upper) {
        return false;
    }
    one->load = Load{*whole, std::nullopt};
    return true;
}

bool StageMechanics::loadRelative(Long axis, double distance) {
    const std::optional<Long> whole = wholeUnits(distance);
    const std::lock_guard lock(m_mutex);
    Axis* const one = find(axis);
    if (one == nullptr || !whole) {
        return false;
    }
    const std::int64_t target = std::int64_t{one->boundFor()} + *whole;
    if (target < one->settings.lower || target > one->settings.upper) {
        return false;
    }
    one->load = Load{static_cast<Long>(target), std::nullopt};
    return true;
}

bool StageMechanics::loadBacklash(Long axis) {
    const std::lock_guard lock(m_mutex);
    return forAxes(axis, [](Axis& each) {
        const Long target = each.boundFor();
        const std::int64_t away = std::int64_t{target} - each.settings.backlash;
        const auto via = static_cast<Long>(std::max<std::int64_t>(away, each.settings.lower));
        each.load = Load{target, via};
        return true;
    });
}

bool StageMechanics::start(Long axis) {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    return forAxes(axis, [nowMs](Axis& each) { return each.startAt(nowMs); });
}

bool StageMechanics::position(Long axis, Long& position) const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    const Axis* const one = find(axis);
    if (one == nullptr) {
        return false;
    }
    position = ocuva::toLong(one->positionAt(nowMs));
    return true;
}

bool StageMechanics::isMoving(Long axis, bool& moving) {
    // Before the lock: a virtual clock runs the camera on this thread, and the camera asks for positions.
    if (m_clock.isVirtual()) {
        m_clock.spend(statusReadMs);
    }
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    const Axis* const one = find(axis);
    if (one == nullptr) {
        return false;
    }
    moving = nowMs < one->motion.endMs();
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

StagePoint StageMechanics::exactPosition() const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    return {m_axes[0].positionAt(nowMs), m_axes[1].positionAt(nowMs), m_axes[2].positionAt(nowMs)};
}

double StageMechanics::exactPosition(Long axis) const {
    const double nowMs = m_clock.nowMs();
    const std::lock_guard lock(m_mutex);
    const Axis* const one = find(axis);
    return one == nullptr ? 0.0 : one->positionAt(nowMs);
}

} // namespace simhost
