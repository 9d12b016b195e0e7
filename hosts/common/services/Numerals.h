#pragma once
// Numbers in texts that people edit by hand. Independent of the process's locale: the decimal sign is a
// point.

#include "base/Types.h"

#include <optional>
#include <string>
#include <string_view>

namespace hosts {

/// Without the blanks (space, tab, VT, FF, CR) at both ends.
std::string_view trimmed(std::string_view text);

/// True when both are the same but for the case of A to Z.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// The whole number that the text begins with after blanks and one sign; what follows is passed over
/// ("12 units" gives 12, "7.9" gives 7). Nothing when there is no digit or the number needs more than 32
/// bits.
std::optional<ocuva::Long> leadingWholeNumber(std::string_view text);

/// The text as a whole number, with optional blanks around. Nothing if it contains anything else.
std::optional<ocuva::Long> wholeNumber(std::string_view text);

/// The text as a finite number ("-2.5e-8"), with optional blanks around. Nothing if it contains anything
/// else.
std::optional<double> number(std::string_view text);

/// Shortest text that `number` reads back exactly.
std::string numberText(double value);

} // namespace hosts
