#pragma once
// The parameters of the focus search, as the program keeps them.

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"

namespace hosts {

struct FocusPlan {
    ocuva::Long range = 18;        ///< stage units from the first Z to the last, around the present Z
    ocuva::Long points = 7;        ///< Z positions tried
    ocuva::Long fraction = 1;      ///< 1 / fraction of the picture's width and height is measured
    bool transmittedLight = false; ///< asked for; there is reflected light only

    bool operator==(const FocusPlan&) const = default;
};

/// Reads the program's store afresh. "Z Range" is held within 2 to 2000 (three whole heights at least),
/// "Number of points" within 3 to 101; unless "AutofocusOnAllImage" is on, "AutofocusOnImageFraction" gives
/// the fraction, held within 2 to 8. What had to be held, and what is no number and so counts as its default,
/// is told in one log line each.
FocusPlan readFocusPlan(Stores& stores, HostLog& log);

} // namespace hosts
