#pragma once
// Waits for a move of all axes without blocking the window.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

/// Waits for X, Y and Z in turn while their status is not 0. A timer drives it, so the live image
/// continues. An axis that reports motion but does not advance ends the wait.
class AxisWait {
public:
    /// Arrived: all axes are at rest. Stalled: one reports motion but is not advancing.
    enum class State { Idle, Waiting, Arrived, Stalled };

    /// The timer's interval.
    static constexpr int tickMs = 64;
    /// Number of ticks for which a moving axis may stay at one position: ten seconds.
    static constexpr int patienceTicks = 10000 / tickMs;

    /// The library outlives it.
    explicit AxisWait(TnMicroProxy& microProxy)
        : m_microProxy(microProxy) {}

    /// Begins with X and checks it at once.
    State begin();

    /// Checks the current axis, and the next ones if it is at rest. A status that cannot be read counts as
    /// at rest. Does nothing unless waiting.
    State tick();

    /// Ends the wait; the stage is not stopped.
    void cancel() { m_state = State::Idle; }

    /// The state after the last check.
    ///@{
    State state() const { return m_state; }
    bool isWaiting() const { return m_state == State::Waiting; }
    ///@}
    /// The axis that is being waited for, or that has stalled.
    Integer axis() const { return m_axis; }

private:
    bool isMoving() const;
    void waitFor(Integer axis);
    bool hasStalled();

    TnMicroProxy& m_microProxy;
    State m_state = State::Idle;
    Integer m_axis = axisX;
    Long m_place = 0; // the axis's last position
    int m_ticksAtPlace = 0;
};

} // namespace ocuva
