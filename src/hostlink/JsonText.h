#pragma once
// Writes the values that cross the seam as JSON. The result is always valid JSON in valid UTF-8, whatever
// bytes a text contains.

#include "hostlink/tarn_abi.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

namespace ocuva {

void appendJson(std::string& json, std::nullptr_t);
void appendJson(std::string& json, TarnLong value);
/// Writes the shortest digits that read back as exactly this value; values that are not numbers become the
/// strings "nan", "inf" and "-inf".
void appendJson(std::string& json, TarnSingle value);
void appendJson(std::string& json, TarnDouble value);
/// A text from the seam: UTF-8, on Windows the ANSI code page. A byte that is not part of a UTF-8
/// character becomes the character U+0080 to U+00FF of its value.
void appendJson(std::string& json, std::string_view text);
void appendJson(std::string& json, const char* text); ///< null for a null pointer
void appendJson(std::string& json, std::span<const TarnDouble> values);
/// All five fields in order.
void appendJson(std::string& json, const TarnBufferDesc& descriptor);
/// Writes a record as a nested array.
template <class... Values> void appendJson(std::string& json, const std::tuple<Values...>& record);

/// Appends [first,second,...].
template <class... Values> void appendJsonArray(std::string& json, const Values&... values) {
    json += '[';
    const char* separator = "";
    ((json += separator, appendJson(json, values), separator = ","), ...);
    static_cast<void>(separator);
    json += ']';
}

template <class... Values> void appendJson(std::string& json, const std::tuple<Values...>& record) {
    std::apply([&json](const Values&... values) { appendJsonArray(json, values...); }, record);
}

} // namespace ocuva
