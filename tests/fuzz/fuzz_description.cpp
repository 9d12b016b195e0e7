// Picture descriptions (".pic" files). Input: the file's text.
#include "Fuzz.h"
#include "pictures/PictureDescription.h"

#include <algorithm>
#include <string>

using fuzz::require;
using namespace ocuva;

namespace {

/// Without what may stand round items and lines, a text that was accepted is the text that would be written.
std::string bare(std::string_view text) {
    std::string result;
    bool quoted = false;
    for (const char c : text) {
        quoted ^= c == '"';
        if (quoted || (c != ' ' && c != '\t' && c != '\r' && c != '\n')) {
            result += c;
        }
    }
    return result;
}

/// Numbers may have leading zeros or be "-0"; everything else has one form only.
bool hasOddNumber(std::string_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const bool begins = i == 0 || (text[i - 1] < '0' || text[i - 1] > '9');
        if (begins && text[i] == '0' &&
            ((text[i + 1] >= '0' && text[i + 1] <= '9') || (i > 0 && text[i - 1] == '-'))) {
            return true;
        }
    }
    return text.ends_with("-0");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const std::string_view text = fuzz::textOf(bytes, count);
    CalibrationPoints points;
    try {
        points = parseDescription(text);
    } catch (const PictureDescriptionError& error) {
        require(std::string_view(error.what()).starts_with("Line "), "a refusal names the line");
        return 0;
    }
    const std::string again = descriptionText(points);
    require(parseDescription(again) == points, "a description that was written reads back");
    require(std::count(again.begin(), again.end(), '\n') == (points.twoPoints ? 12 : 14),
            "two points make 12 lines, three 14");
    require(hasOddNumber(text) || bare(text) == bare(again), "nothing that was read is left out");
    return 0;
}
