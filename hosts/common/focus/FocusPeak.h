#pragma once
// The position of the surface computed from a focus sweep.

#include "base/Types.h"
#include "hosts/common/focus/Sharpness.h"

#include <vector>

namespace hosts {

struct FocusSample {
    ocuva::Long z = 0; ///< stage units
    Sharpness sharpness;
};

struct FocusPeak {
    enum class Kind {
        flat,   ///< no height is sharper than the others by more than noise
        inside, ///< the sharpness rises and falls again
        edge,   ///< greatest at one end of the sweep and still rising there
    };
    Kind kind = Kind::flat;
    double z = 0.0;     ///< stage units, within the sweep; unless flat
    double score = 0.0; ///< of the sharpest picture
};

/// The samples are from one place, in rising order of Z.
FocusPeak focusPeak(const std::vector<FocusSample>& samples);

} // namespace hosts
