#pragma once
// The program's numeric conversions. Floating-point numbers are rounded half to even, and a value that
// does not fit is an error, never a wrapped value.

#include "base/Types.h"

#include <stdexcept>

namespace ocuva {

/// A result that its type cannot hold, or that is not a number. The text names the failed conversion.
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

/// 32-bit sum, difference and negation. Each throws ArithmeticError if the result does not fit.
Long checkedAdd(Long a, Long b);
Long checkedSubtract(Long a, Long b);
Long checkedNegate(Long a);

/// Throws ArithmeticError for a divisor of 0.
double checkedDivide(double dividend, double divisor);

} // namespace ocuva
