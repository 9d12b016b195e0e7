#pragma once
// The parameters of the focus search, as the program keeps them.

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"

namespace hosts {

struct FocusPlan {
    ocuva::Long range = 18;        ///< stage units from the first Z to the last, around the present Z
    ocuva::Long points = 7;        ///< Z positions tried
    ocuva::Long fraction = 1;      ///< 1 / fraction of the picture's width and height is measured
    bool transmittedLight = false; ///< requested, but there is only reflected light

    bool operator==(const FocusPlan&) const = default;
};

/// Reads the program's store. "Z Range" is limited to 2 to 2000 (at least three whole heights), "Number of
/// points" to 3 to 101; unless "AutofocusOnAllImage" is on, "AutofocusOnImageFraction" gives the fraction,
/// limited to 2 to 8. Limited values, and values that are not numbers and so count as their defaults, are
/// logged, one line each.
FocusPlan readFocusPlan(Stores& stores, HostLog& log);

} // namespace hosts
