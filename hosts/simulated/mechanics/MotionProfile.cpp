#include "hosts/simulated/mechanics/MotionProfile.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {

namespace {

MotionState moved(MotionState from, double acceleration, double seconds) {
    return {from.position + (from.velocity + acceleration * seconds / 2.0) * seconds,
            from.velocity + acceleration * seconds};
}

} // namespace

MotionProfile::MotionProfile(double position)
    : m_last{position, 0.0}
    , m_target(position) {}

MotionProfile::MotionProfile(double startMs, MotionState start, double target, MotionLimits limits)
    : m_last(start)
    , m_endMs(startMs) {
    approach(target, limits);
}

void MotionProfile::append(double target, MotionLimits limits) { approach(target, limits); }

void MotionProfile::approach(double target, MotionLimits limits) {
    m_target = target;
    const double stopSeconds = std::abs(m_last.velocity) / limits.acceleration;
    const double stopAt = m_last.position + m_last.velocity * stopSeconds / 2.0;
    const double ahead = target - stopAt;
    if (ahead * m_last.velocity < 0.0) {
        addSegment(-std::copysign(limits.acceleration, m_last.velocity), stopSeconds);
        m_last = {stopAt, 0.0};
    }
    const double direction = target < m_last.position ? -1.0 : 1.0;
    const double distance = std::abs(target - m_last.position);
    const double entrySpeed = std::abs(m_last.velocity);
    // The peak of a triangle over the distance, cut off at full speed.
    const double triangle = std::sqrt(limits.acceleration * distance + entrySpeed * entrySpeed / 2.0);
    const double peak = std::max(std::min(triangle, limits.speed), entrySpeed);
    const double ramps = (2.0 * peak * peak - entrySpeed * entrySpeed) / (2.0 * limits.acceleration);
    addSegment(direction * limits.acceleration, (peak - entrySpeed) / limits.acceleration);
    addSegment(0.0, peak > 0.0 ? (distance - ramps) / peak : 0.0);
    addSegment(-direction * limits.acceleration, peak / limits.acceleration);
    m_last = {target, 0.0};
}

void MotionProfile::addSegment(double acceleration, double seconds) {
    if (seconds <= 0.0) {
        return;
    }
    m_segments.push_back({m_endMs, m_last, acceleration});
    m_last = moved(m_last, acceleration, seconds);
    m_endMs += seconds * 1000.0;
}

MotionState MotionProfile::stateAt(double timeMs) const {
    if (m_segments.empty() || timeMs >= m_endMs) {
        return {m_target, 0.0};
    }
    const auto after =
        std::upper_bound(m_segments.begin() + 1, m_segments.end(), timeMs,
                         [](double time, const Segment& segment) { return time < segment.startMs; });
    const Segment& segment = *(after - 1);
    return moved(segment.start, segment.acceleration, std::max(timeMs - segment.startMs, 0.0) / 1000.0);
}

// Within a segment the axis moves in one direction only, so only the starts of segments and the current
// position matter.
double MotionProfile::carriedAt(double timeMs, double carried, double play) const {
    for (const Segment& segment : m_segments) {
        if (segment.startMs >= timeMs) {
            break;
        }
        carried = std::clamp(carried, segment.start.position, segment.start.position + play);
    }
    const double axis = stateAt(timeMs).position;
    return std::clamp(carried, axis, axis + play);
}

} // namespace hosts::simulated
