// Numbers in texts, and what becomes of them on their way to the host. Input: a text; its first eight bytes
// are also tried as the bits of a number.
#include "Fuzz.h"
#include "base/Numbers.h"
#include "hosts/common/services/Numerals.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

using fuzz::require;
using namespace hosts;

namespace {

void checkWhole(std::string_view text) {
    const auto leading = leadingWholeNumber(text);
    const auto whole = wholeNumber(text);
    if (leading)
        require(wholeNumber(std::to_string(*leading)) == leading, "a whole number reads back");
    if (!whole)
        return;
    require(leading == whole, "a whole number is the one that the text begins with");
    require(number(text) == static_cast<double>(*whole), "a whole number is a number");
}

void checkText(double value) {
    const auto again = number(numberText(value));
    const auto bits = [](double number) { return std::bit_cast<std::uint64_t>(number); };
    require(again && bits(*again) == bits(value), "a number reads back bit for bit");
}

template <typename Whole> std::optional<Whole> converted(Whole (*convert)(double), double value) {
    try {
        return convert(value);
    } catch (const ocuva::ArithmeticError&) {
        return std::nullopt;
    }
}

template <typename Whole> void checkConversion(Whole (*convert)(double), double value) {
    const double rounded = std::nearbyint(value); // half to even, the processor's default
    const bool fits = rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
                      rounded <= static_cast<double>(std::numeric_limits<Whole>::max());
    const auto result = converted(convert, value);
    require(result.has_value() == fits, "what does not fit is refused, and nothing else");
    require(!result || *result == rounded, "a number becomes the nearest whole one");
}

void checkNumber(double value) {
    if (std::isfinite(value))
        checkText(value);
    checkConversion(&ocuva::toLong, value);
    checkConversion(&ocuva::toInteger, value);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const std::string_view text = fuzz::textOf(bytes, count);
    require(trimmed(trimmed(text)) == trimmed(text), "trimming twice is trimming once");
    require(equalIgnoringCase(text, text), "a text equals itself");
    checkWhole(text);
    if (const auto value = number(text)) {
        require(std::isfinite(*value), "a number is finite");
        checkNumber(*value);
    }
    double bits = 0.0;
    if (count >= sizeof bits) {
        std::memcpy(&bits, bytes, sizeof bits);
        checkNumber(bits);
    }
    return 0;
}
