#pragma once
// The program's access to the microscope stage. It stores no position: every answer comes from the host.

#include "base/Types.h"
#include "hostlink/Host.h"

#include <functional>

namespace ocuva {

/// Positions, limits and distances are whole stage units. The host enforces the limits silently: a refused
/// move looks like one that has already ended.
class CTnStage {
public:
    /// Both arguments outlive it. Calls no host function yet.
    CTnStage(TnLibProxy& libProxy, TnMicroProxy& microProxy)
        : m_libProxy(libProxy)
        , m_microProxy(microProxy) {}

    /// Raised by CheckMove with its axis argument (0: all), which receivers call ErrCode.
    std::function<void(Integer ErrCode)> MoveEnd;

    /// Limits, read from the host on each call.
    ///@{
    Long MinX() { return limits(axisX).lower; }
    Long MaxX() { return limits(axisX).upper; }
    Long MinY() { return limits(axisY).lower; }
    Long MaxY() { return limits(axisY).upper; }
    Long MinZ() { return limits(axisZ).lower; }
    Long MaxZ() { return limits(axisZ).upper; }
    ///@}

    /// Starts the loaded moves of an axis (0: all).
    void Start(Integer axis);

    /// Raises MoveEnd if the axis (0: every axis) is at rest, otherwise does nothing. Never waits.
    void CheckMove(Integer axis = axisAll);

    /// Loads a relative move; Start starts it. Throws ArithmeticError, and calls no host function, if the
    /// sum of the requested moves exceeds 32 bits.
    ///@{
    void DZ(Long distance) { moveRelative(axisZ, distance); }
    void DY(Long distance) { moveRelative(axisY, distance); }
    void DX(Long distance) { moveRelative(axisX, distance); }
    ///@}

    /// Whether the axis's sum of moves has room for this distance.
    bool hasRoomFor(Integer axis, Long distance) const;

    /// Resets each sum of moves that has used more than half of its range, so that a distance beyond any
    /// stage, which the host has refused, does not block later moves. For the owner; the stage never calls
    /// it.
    void relieveSums();

    /// Loads an absolute target; Start starts the move.
    ///@{
    void Z(Long position) { moveAbsolute(axisZ, position); }
    void Y(Long position) { moveAbsolute(axisY, position); }
    void X(Long position) { moveAbsolute(axisX, position); }
    ///@}

    /// Current position.
    ///@{
    Long Z() const { return position(axisZ); }
    Long Y() const { return position(axisY); }
    Long X() const { return position(axisX); }
    ///@}

    /// Whether the axis moves; for 0 whether any axis does, all three being read. A status that cannot be
    /// read counts as at rest.
    bool IsMoving(Integer axis = axisAll) const;

    /// Lets the host search for the focus and returns when it has ended. The result is one of
    /// TARN_FOCUS_...; only the journal uses it.
    Long AutoFocus(Integer flag);

private:
    struct Limits {
        Long lower = 0;
        Long upper = 0;
    };

    const Limits& limits(Integer axis);
    void moveRelative(Integer axis, Long distance);
    void moveAbsolute(Integer axis, Long position);
    Long position(Integer axis) const;

    TnLibProxy& m_libProxy;
    TnMicroProxy& m_microProxy;
    Limits m_limits[3];     // of X, Y, Z, as read last
    Long m_sumOfMoves[3]{}; // requested on X, Y, Z since the start or the last relieveSums
};

} // namespace ocuva
