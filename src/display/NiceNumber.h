#pragma once
// Round numbers for scales.

#include "base/Types.h"

namespace ocuva {

/// The scale value for a wanted length: its leading decimal digit goes to the nearest of 1, 2, 5 and 10, of
/// two equally near ones to the smaller, and the decade stays. The further digits are cut, not rounded: 19
/// gives 10, 37 gives 20, 95 gives 100. 0 gives 1, a negative number the 1 of its decade.
/// Throws ArithmeticError where the result leaves 16 bits.
Integer nearScaleValue(Integer value);

} // namespace ocuva
