#include "video/ReferenceText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace ocuva {

std::string referenceText(Double value) {
    constexpr int decimals = 1;
    constexpr Double scale = 10.0;
    constexpr Double positiveZero = 0.0; // added, it takes the sign off a zero
    const Double tenths = std::round(value * scale);
    const Double shown = (std::isfinite(tenths) ? tenths / scale : value) + positiveZero;
    std::array<char, 320> text{}; // the largest Double has 309 digits before its point
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), shown, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

std::optional<Double> typedReference(std::string_view text) {
    std::string number(text.substr(std::min(text.find_first_not_of(" \t"), text.size())));
    std::replace(number.begin(), number.end(), ',', '.');
    if (number.starts_with('+') && !number.starts_with("+-")) {
        number.erase(0, 1);
    }
    // std::from_chars also knows "inf" and "nan" in words, which are no numbers here.
    const std::size_t first = number.find_first_not_of('-');
    if (first == std::string::npos ||
        std::string_view("0123456789.").find(number[first]) == std::string::npos) {
        return std::nullopt;
    }
    Double value = 0.0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    return read.ec == std::errc() ? std::optional(value) : std::nullopt;
}

} // namespace ocuva
