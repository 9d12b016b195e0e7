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

/// A number as it is written in the operator's country: a sign, digits, one decimal point or one decimal
/// comma, blanks around. Thousands separators, exponents and units are not guessed at: "1,234,5" and "12abc"
/// throw TextError.
double textToDouble(std::string_view text);

/// The same, rounded half to even ("12.5" gives 12, "13.5" gives 14). Throws ArithmeticError when the number
/// does not fit into 32 bits.
Long textToLong(std::string_view text);

/// The number that a text begins with after blanks, written as above; what follows it is not looked at ("50
/// %" is 50, "1e2" is 1). Nothing when there is none. One beyond a double's range gives the largest double of
/// its sign.
std::optional<double> leadingNumber(std::string_view text);

/// The same, 0 when there is none.
double numericPrefix(std::string_view text);

} // namespace ocuva
