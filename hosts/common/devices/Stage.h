#pragma once
// The stage of a host, simulated or real.

#include "base/Types.h"

namespace hosts {

/// Commands and readings of a stage by axis code: 1 = X, 2 = Y, 3 = Z, and 0 = all where an operation says
/// so. Every operation answers false to any other axis and changes nothing then.
///
/// A move is loaded first and started afterwards; of several loads before a start the last one counts. A
/// refused load leaves what was loaded before. Positions are whole stage units. An axis is busy from its
/// start until it stands again. No operation waits for the hardware.
class Stage {
public:
    virtual ~Stage() = default;

    /// False for a target outside the limits, not finite, or beyond 32 bits.
    virtual bool loadAbsolute(ocuva::Long axis, double target) = 0;
    /// Relative to the current position of the axis, also while it moves. False as for an absolute target.
    virtual bool loadRelative(ocuva::Long axis, double distance) = 0;
    /// Loads the move that takes up the play, of one axis or of all with 0. It ends at the axis's target.
    virtual bool loadBacklash(ocuva::Long axis) = 0;

    /// Starts the loaded moves of one axis or of all with 0; true when there was one.
    virtual bool start(ocuva::Long axis) = 0;

    /// False, and the argument unchanged, when the device does not answer.
    ///@{
    virtual bool position(ocuva::Long axis, ocuva::Long& position) const = 0;
    virtual bool isMoving(ocuva::Long axis, bool& moving) = 0;
    ///@}
    /// Both ends can be reached.
    virtual bool limits(ocuva::Long axis, ocuva::Long& lower, ocuva::Long& upper) const = 0;
};

} // namespace hosts
