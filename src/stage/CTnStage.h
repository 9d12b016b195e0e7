#pragma once
// The program's one handle on the microscope stage. It keeps no position: every answer comes fresh from the
// host.

#include "base/Types.h"
#include "hostlink/Host.h"

#include <functional>

namespace ocuva {

/// Positions, limits and distances are whole stage units. The host decides about limits and refuses silently:
/// a refused move is one that has already ended.
class CTnStage {
public:
    /// Both outlive it. Nothing is asked of the host yet.
    CTnStage(TnLibProxy& libProxy, TnMicroProxy& microProxy)
        : m_libProxy(libProxy)
        , m_microProxy(microProxy) {}

    /// Raised by CheckMove with the axis that was asked for (0: all), although receivers call it ErrCode.
    std::function<void(Integer ErrCode)> MoveEnd;

    /// Limits, asked of the host on every read.
    ///@{
    Long MinX() { return limits(axisX).lower; }
    Long MaxX() { return limits(axisX).upper; }
    Long MinY() { return limits(axisY).lower; }
    Long MaxY() { return limits(axisY).upper; }
    Long MinZ() { return limits(axisZ).lower; }
    Long MaxZ() { return limits(axisZ).upper; }
    ///@}

    /// Sets the loaded moves of an axis (0: all) going.
    void Start(Integer axis);

    /// Raises MoveEnd when the axis (0: every axis) stands; does nothing while it moves. Never waits.
    void CheckMove(Integer axis = axisAll);

    /// Loads a relative move; Start sets it going. Throws ArithmeticError, and sends nothing, when the
    /// running sum of the requested moves leaves 32 bits.
    ///@{
    void DZ(Long distance) { moveRelative(axisZ, distance); }
    void DY(Long distance) { moveRelative(axisY, distance); }
    void DX(Long distance) { moveRelative(axisX, distance); }
    ///@}

    /// Whether a relative move of that length fits into the axis's running sum.
    bool hasRoomFor(Integer axis, Long distance) const;

    /// Begins each running sum that has used more than half of its range at zero again, so that a distance
    /// that no stage can go, which the host has refused, does not stand in the way of all later moves. For
    /// the owner; the stage itself never does it.
    void relieveSums();

    /// Loads an absolute target; Start sets it going.
    ///@{
    void Z(Long position) { moveAbsolute(axisZ, position); }
    void Y(Long position) { moveAbsolute(axisY, position); }
    void X(Long position) { moveAbsolute(axisX, position); }
    ///@}

    /// Present position.
    ///@{
    Long Z() const { return position(axisZ); }
    Long Y() const { return position(axisY); }
    Long X() const { return position(axisX); }
    ///@}

    /// Whether the axis moves; for 0 whether any does, all three being asked. A status that cannot be read
    /// counts as standing.
    bool IsMoving(Integer axis = axisAll) const;

    /// Lets the host search the focus and returns when it has ended; the host's answer, one of
    /// TARN_FOCUS_..., is of use to the journal alone.
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
    Long m_sumOfMoves[3]{}; // requested on X, Y, Z since the program began: m_nSumDX, m_nSumDY, m_nSumDZ
};

} // namespace ocuva
