#pragma once
// Numbers as operators type them.

#include "base/Types.h"

#include <optional>
#include <stdexcept>
#include <string_view>

namespace ocuva {

/// A text that is not a number. what() says why, as a sentence.
class TextError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A number as operators in any country write it: a sign, digits, one decimal point or comma, blanks
/// around. Thousands separators, exponents and units are errors: "1,234,5" and "12abc" throw TextError.
double textToDouble(std::string_view text);

/// The same, rounded half to even ("12.5" gives 12, "13.5" gives 14). Throws ArithmeticError if the number
/// does not fit into 32 bits.
Long textToLong(std::string_view text);

/// The number at the beginning of a text, after blanks, written as above; the rest is ignored ("50 %" is
/// 50, "1e2" is 1). Nothing if there is none. A number beyond the range of double gives the largest double
/// with its sign.
std::optional<double> leadingNumber(std::string_view text);

/// The same, or 0 if there is none.
double numericPrefix(std::string_view text);

} // namespace ocuva
