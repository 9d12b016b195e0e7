#pragma once
// What can be broken about the devices at a moment; the defaults break nothing.

#include <functional>

namespace hosts::simulated {

enum class CameraFault {
    none,
    frozen, ///< delivers no more pictures, although the grab continues
    stuck,  ///< delivers the same picture for ever
    black,  ///< delivers black pictures, without noise
    late,   ///< delivers pictures that are lateFrames old
    torn    ///< the lower half is of the frame before, and displaced sideways
};

enum class StageFault {
    none,
    refusing, ///< takes no move
    stalling, ///< every axis stops short as a stalled axis does
    lying     ///< reports a wrong position
};

struct DeviceFaults {
    bool boardRefuses = false; ///< the board does not come up
    int grabStopsAfter = 0;    ///< frames after which a grab ends by itself; 0 never
    CameraFault camera = CameraFault::none;
    StageFault stage = StageFault::none;
    double stageLie = 10.0;         ///< stage units that a lying stage adds to each position
    bool focusFindsNothing = false; ///< measuring exposures show an even grey
    double lamp = 1.0;              ///< light, 0 dark to 1
};

/// Called at each use, on any thread; empty means no faults.
using DeviceFaultsSource = std::function<DeviceFaults()>;

inline DeviceFaults present(const DeviceFaultsSource& source) { return source ? source() : DeviceFaults(); }

} // namespace hosts::simulated
