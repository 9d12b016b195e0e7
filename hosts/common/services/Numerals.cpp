#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace hosts {

namespace {

constexpr std::string_view blanks = " \t\v\f\r";

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// from_chars knows no plus sign; "+-5" must not slip through when it is taken away.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    return text;
}

struct Leading {
    ocuva::Long value;
    std::size_t length;
};

std::optional<Leading> leading(std::string_view text) {
    ocuva::Long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc())
        return std::nullopt;
    return Leading{value, static_cast<std::size_t>(end - text.data())};
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowered(x) == lowered(y); });
}

std::optional<ocuva::Long> leadingWholeNumber(std::string_view text) {
    const auto found = leading(withoutPlus(trimmed(text)));
    return found ? std::optional(found->value) : std::nullopt;
}

std::optional<ocuva::Long> wholeNumber(std::string_view text) {
    text = withoutPlus(trimmed(text));
    const auto found = leading(text);
    return found && found->length == text.size() ? std::optional(found->value) : std::nullopt;
}

std::optional<double> number(std::string_view text) {
    text = withoutPlus(trimmed(text));
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool all = error == std::errc() && end == text.data() + text.size();
    return all && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::string numberText(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string("0");
}

} // namespace hosts
