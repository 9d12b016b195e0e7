#pragma once
// How one axis gets from here to there: constant acceleration, cruise at full speed, constant braking. A
// profile is a pure function of time and never changes once planned.

#include <vector>

namespace hosts::simulated {

/// What an axis can do; both above 0.
struct MotionLimits {
    double speed = 0.0;        ///< stage units per second
    double acceleration = 0.0; ///< stage units per second squared
};

/// Position and speed of an axis.
struct MotionState {
    double position = 0.0; ///< stage units
    double velocity = 0.0; ///< stage units per second
};

/// Times in milliseconds of the clock.
class MotionProfile {
public:
    /// An axis at rest.
    explicit MotionProfile(double position);

    /// Plans the way from a state at a time to a stop at the target. Position and velocity are continuous. An
    /// axis that is too fast to stop at the target, or going the other way, brakes to a stop first and turns
    /// back.
    MotionProfile(double startMs, MotionState start, double target, MotionLimits limits);

    /// Adds a further way, gone when the one before has stopped.
    void append(double target, MotionLimits limits);

    /// Before the beginning, the state that it began with.
    MotionState stateAt(double timeMs) const;

    /// Where something is at a time that the axis pushes along with play: it was at `carried` when the
    /// profile began, and stays within [axis, axis + play]. So going up pushes it, going down first takes up
    /// the play.
    double carriedAt(double timeMs, double carried, double play) const;
    /// The time from which the axis is at rest.
    double endMs() const { return m_endMs; }
    /// The position at which it stops.
    double target() const { return m_target; }

private:
    struct Segment {
        double startMs;
        MotionState start;
        double acceleration; ///< signed
    };
    void addSegment(double acceleration, double seconds);
    void approach(double target, MotionLimits limits);

    std::vector<Segment> m_segments;
    MotionState m_last;   ///< at m_endMs, while planning
    double m_endMs = 0.0; ///< milliseconds of the clock
    double m_target = 0.0;
};

} // namespace hosts::simulated
