#include "base/TextNumber.h"

#include "base/Numbers.h"

#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace ocuva {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// The longest beginning of the text that is a number, and that number.
struct Prefix {
    std::size_t length = 0; // 0: the text does not begin with a number
    double value = 0.0;
};

Prefix scan(std::string_view text) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::string plain; // without a plus sign and with a point, as from_chars requires
    bool hasDigit = false;
    bool hasPoint = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (isDigit(c)) {
            hasDigit = true;
            plain += c;
        } else if (!hasPoint && (c == '.' || c == ',')) {
            hasPoint = true;
            plain += '.';
        } else {
            break;
        }
    }
    if (!hasDigit) {
        return {};
    }
    Prefix prefix{at, 0.0};
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), prefix.value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool isLarge = plain.find_first_not_of("0.") < plain.find('.');
        prefix.value = isLarge ? std::numeric_limits<double>::max() : 0.0;
    }
    if (text[0] == '-') {
        prefix.value = -prefix.value;
    }
    return prefix;
}

} // namespace

double textToDouble(std::string_view text) {
    const std::string_view number = trimmed(text);
    if (number.empty()) {
        throw TextError("Nothing was typed where a number is needed");
    }
    const Prefix prefix = scan(number);
    if (prefix.length != number.size()) {
        throw TextError("\"" + std::string(number) + "\" is not a number");
    }
    return prefix.value;
}

Long textToLong(std::string_view text) { return toLong(textToDouble(text)); }

std::optional<double> leadingNumber(std::string_view text) {
    const Prefix prefix = scan(trimmed(text));
    return prefix.length > 0 ? std::optional(prefix.value) : std::nullopt;
}

double numericPrefix(std::string_view text) { return leadingNumber(text).value_or(0.0); }

} // namespace ocuva
