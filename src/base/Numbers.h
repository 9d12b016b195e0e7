#pragma once
// The program's numeric conversions: every float becomes a whole number by rounding half to even, and
// whatever does not fit is an error, never a wrapped value.

#include "base/Types.h"

#include <stdexcept>

namespace ocuva {

/// A result that its type cannot hold, or that is not a number. The text says which conversion failed.
class ArithmeticError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Rounds half to even to 32 bits: 2.5 gives 2, 3.5 gives 4, -0.5 gives 0.
/// Throws ArithmeticError for NaN and for values outside -2147483648 to 2147483647.
Long toLong(double value);

/// The same to 16 bits, -32768 to 32767.
Integer toInteger(double value);

/// The nearest 32-bit float. Throws ArithmeticError for NaN and for values beyond its range.
Single toSingle(double value);

/// 32-bit sum, difference and change of sign; each throws ArithmeticError where the result leaves 32 bits.
Long checkedAdd(Long a, Long b);
Long checkedSubtract(Long a, Long b);
Long checkedNegate(Long a);

/// Throws ArithmeticError for a divisor of 0.
double checkedDivide(double dividend, double divisor);

} // namespace ocuva
