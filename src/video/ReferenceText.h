#pragma once
// Camera references as text: how they are shown in a text box, and how what an operator types there is read.

#include "base/Types.h"

#include <optional>
#include <string>
#include <string_view>

namespace ocuva {

/// One decimal after a point in every locale, at least one digit before it, no thousands separators:
/// 0 gives "0.0", 33.25 gives "33.3". Halves go away from zero, and a zero has no sign.
std::string referenceText(Double value);

/// The number that the text begins with, after blanks; what follows it is not looked at ("50 %" is 50). A
/// comma counts as the decimal point. Nothing when the text begins with no number or with one that no Double
/// holds.
std::optional<Double> typedReference(std::string_view text);

} // namespace ocuva
