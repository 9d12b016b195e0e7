#pragma once
// Numbers as operators type them.

#include "base/Types.h"

#include <stdexcept>
#include <string_view>

namespace ocuva {

/// A text that is not a number. what() says why, as a sentence.
class TextError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A number as it is written in the operator's country: a sign, digits, one decimal point or one decimal
/// comma, blanks around. Thousands separators, exponents and units are not guessed at: "1,234,5" and "12abc"
/// throw TextError.
double textToDouble(std::string_view text);

/// The same, rounded half to even ("12.5" gives 12, "13.5" gives 14). Throws ArithmeticError when the number
/// does not fit into 32 bits.
Long textToLong(std::string_view text);

/// The number that a text begins with, anything after it ignored; 0 when there is none. One decimal point or
/// comma. A number beyond a double's range gives the largest double.
double numericPrefix(std::string_view text);

} // namespace ocuva
