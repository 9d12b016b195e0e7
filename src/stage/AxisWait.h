#pragma once
// Waiting for a move of all axes without holding the window up.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

/// Waits for X, Y and Z in turn: an axis is waited for while its status is 1. Driven by a timer, so that the
/// picture goes on living; an axis that says it moves and stays where it is ends the wait.
class AxisWait {
public:
    /// Arrived: all axes stand. Stalled: one moves and does not get on.
    enum class State { Idle, Waiting, Arrived, Stalled };

    /// The timer's interval.
    static constexpr int tickMs = 64;
    /// Ticks for which a moving axis may stay at one place: ten seconds.
    static constexpr int patienceTicks = 10000 / tickMs;

    /// The library outlives it.
    explicit AxisWait(TnMicroProxy& microProxy)
        : m_microProxy(microProxy) {}

    /// Begins with X and looks at once.
    State begin();

    /// One look: at the axis waited for, and at the next ones while they stand. A status that cannot be read
    /// counts as standing. Does nothing unless waiting.
    State tick();

    /// Gives up; the stage is not stopped.
    void cancel() { m_state = State::Idle; }

    /// As the last look has left it.
    ///@{
    State state() const { return m_state; }
    bool isWaiting() const { return m_state == State::Waiting; }
    ///@}
    /// The axis that is waited for, or that stalled.
    Integer axis() const { return m_axis; }

private:
    bool isMoving() const;
    void waitFor(Integer axis);
    bool hasStalled();

    TnMicroProxy& m_microProxy;
    State m_state = State::Idle;
    Integer m_axis = axisX;
    Long m_place = 0; // where the axis was seen last
    int m_ticksAtPlace = 0;
};

} // namespace ocuva
