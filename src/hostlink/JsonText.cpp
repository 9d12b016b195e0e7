#include "hostlink/JsonText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace ocuva {

namespace {

template <class Number> void appendDigits(std::string& json, Number value) {
    std::array<char, 40> digits{};
    json.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

template <class Float> void appendFloat(std::string& json, Float value) {
    if (std::isfinite(value)) {
        appendDigits(json, value);
    } else if (std::isnan(value)) {
        json += "\"nan\"";
    } else {
        json += value > 0 ? "\"inf\"" : "\"-inf\"";
    }
}

/// Length of the valid UTF-8 character at the beginning of the text (not empty), or 0: stray, overlong,
/// truncated, surrogate or beyond U+10FFFF.
std::size_t utf8Length(std::string_view text) {
    const auto byte = [text](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
    const std::uint8_t first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const bool overlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool outOfRange = (first == 0xED && byte(1) > 0x9F) || (first == 0xF4 && byte(1) > 0x8F);
    return overlong || outOfRange ? 0 : length;
}

void appendAscii(std::string& json, char character) {
    switch (character) {
    case '"':
        json += "\\\"";
        return;
    case '\\':
        json += "\\\\";
        return;
    case '\n':
        json += "\\n";
        return;
    case '\r':
        json += "\\r";
        return;
    case '\t':
        json += "\\t";
        return;
    default:
        break;
    }
    if (static_cast<std::uint8_t>(character) < 0x20) {
        constexpr std::string_view hex = "0123456789abcdef";
        json += "\\u00";
        json += hex[static_cast<std::size_t>(character) >> 4U];
        json += hex[static_cast<std::size_t>(character) & 0xFU];
    } else {
        json += character;
    }
}

void appendUtf8(std::string& json, std::string_view text) {
    json += '"';
    while (!text.empty()) {
        std::size_t length = utf8Length(text);
        if (length == 1) {
            appendAscii(json, text.front());
        } else if (length > 1) {
            json += text.substr(0, length);
        } else {
            const auto lost = static_cast<std::uint8_t>(text.front());
            json += static_cast<char>(0xC0 | (lost >> 6U));
            json += static_cast<char>(0x80 | (lost & 0x3FU));
            length = 1;
        }
        text.remove_prefix(length);
    }
    json += '"';
}

} // namespace

void appendJson(std::string& json, std::nullptr_t) { json += "null"; }

void appendJson(std::string& json, TarnLong value) { appendDigits(json, value); }

void appendJson(std::string& json, TarnSingle value) { appendFloat(json, value); }

void appendJson(std::string& json, TarnDouble value) { appendFloat(json, value); }

void appendJson(std::string& json, std::string_view text) { appendUtf8(json, text); }

void appendJson(std::string& json, const char* text) {
    if (text == nullptr) {
        appendJson(json, nullptr);
    } else {
        appendJson(json, std::string_view(text));
    }
}

void appendJson(std::string& json, std::span<const TarnDouble> values) {
    json += '[';
    for (std::size_t i = 0; i < values.size(); ++i) {
        json += i == 0 ? "" : ",";
        appendJson(json, values[i]);
    }
    json += ']';
}

void appendJson(std::string& json, const TarnBufferDesc& descriptor) {
    appendJsonArray(json, descriptor.recordSize, descriptor.width, descriptor.height,
                    descriptor.bitsPerSample, descriptor.bands);
}

} // namespace ocuva
