#include "video/ReferenceText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace ocuva {

std::string referenceText(Double value) {
    constexpr int decimals = 1;
    constexpr Double scale = 10.0;
    constexpr Double positiveZero = 0.0; // adding it removes the sign of a zero
    const Double tenths = std::round(value * scale);
    const Double shown = (std::isfinite(tenths) ? tenths / scale : value) + positiveZero;
    std::array<char, 320> text{}; // the largest Double has 309 digits before its point
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), shown, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

} // namespace ocuva
