// ".std" files. Input: the file's text.
#include "Fuzz.h"
#include "hosts/common/services/IniText.h"
#include "hosts/common/services/Numerals.h"
#include "hosts/common/services/Standards.h"

#include <algorithm>
#include <string>

using fuzz::require;
using namespace hosts;
using ocuva::StagePosition;

namespace {

constexpr const char* fileName = "Sample";

bool holdsControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

/// Only whole numbers that stand alone may ever become a place to drive to.
void checkPosition(std::string_view text, const StandardFile& standard) {
    const IniText ini = IniText::parse(std::string(text)).value_or(IniText());
    const auto stored = [&ini](const char* key) {
        return wholeNumber(ini.value(standardType, key).value_or(""));
    };
    const bool complete = stored("X") && stored("Y") && stored("Z");
    require(standard.position.has_value() == complete, "a position has all three coordinates");
    if (standard.position)
        require(*standard.position == StagePosition{*stored("X"), *stored("Y"), *stored("Z")},
                "a position is the stored numbers");
}

void checkWriting(const StandardFile& standard) {
    const StagePosition position = standard.position.value_or(StagePosition{-2147483647 - 1, 0, 2147483647});
    const StandardFile again = standardOfText(standardText(standard.name, position), fileName);
    require(again.problem.empty() && again.position == position, "a standard that was written reads back");
    require(holdsControls(standard.name) || again.name == standard.name, "and so does its name");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const std::string_view text = fuzz::textOf(bytes, count);
    const StandardFile standard = standardOfText(std::string(text), fileName);
    if (!standard.problem.empty()) {
        require(!standard.position, "what is no standard has no position");
        return 0;
    }
    require(!standard.name.empty(), "a standard has a name");
    checkPosition(text, standard);
    checkWriting(standard);
    return 0;
}
