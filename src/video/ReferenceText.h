#pragma once
// Camera references as they are shown in a text box.

#include "base/Types.h"

#include <string>

namespace ocuva {

/// One decimal after a point in every locale, at least one digit before it, no thousands separators:
/// 0 gives "0.0", 33.25 gives "33.3". Halves go away from zero, and a zero has no sign.
std::string referenceText(Double value);

} // namespace ocuva
