#pragma once
// Camera references as shown in a text box.

#include "base/Types.h"

#include <string>

namespace ocuva {

/// One decimal after a point in every locale, at least one digit before it, no thousands separators: 0
/// gives "0.0", 33.25 gives "33.3". Halves are rounded away from zero, and zero has no sign.
std::string referenceText(Double value);

} // namespace ocuva
