#pragma once
// Round numbers for scales.

#include "base/Types.h"

namespace ocuva {

/// The scale value for a wanted length: its leading decimal digit is replaced by the nearest of 1, 2, 5
/// and 10 (the smaller one if two are equally near), and the decade stays. Further digits are cut, not
/// rounded: 19 gives 10, 37 gives 20, 95 gives 100. 0 gives 1, a negative number the 1 of its decade.
/// Throws ArithmeticError if the result exceeds 16 bits.
Integer nearScaleValue(Integer value);

} // namespace ocuva
