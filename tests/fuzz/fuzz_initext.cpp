// INI text as every store, standard and configuration is read and edited.
// Input: section US key US value US other section US other key US text.
#include "Fuzz.h"
#include "hosts/common/services/IniText.h"
#include "hosts/common/services/Numerals.h"

#include <optional>
#include <string>

using fuzz::require;
using hosts::equalIgnoringCase;
using hosts::IniText;
using hosts::trimmed;

namespace {

struct Place {
    std::string_view section;
    std::string_view key;
    bool operator==(const Place& other) const {
        return equalIgnoringCase(trimmed(section), trimmed(other.section)) &&
               equalIgnoringCase(trimmed(key), trimmed(other.key));
    }
};

/// The value that the list of entries gives for a key: that of its first occurrence.
std::optional<std::string> firstListed(const IniText& ini, const Place& place) {
    for (const std::string& entry : ini.entries(place.section)) {
        const std::size_t sign = entry.find('=');
        require(sign != std::string::npos && sign > 0, "an entry is key=value");
        if (equalIgnoringCase(std::string_view(entry).substr(0, sign), trimmed(place.key)))
            return entry.substr(sign + 1);
    }
    return std::nullopt;
}

void checkReading(const IniText& ini, const Place& place) {
    require(ini.value(place.section, place.key) == firstListed(ini, place),
            "a value is the first one listed under its key");
    const auto value = ini.value(place.section, place.key);
    const auto number = value ? hosts::leadingWholeNumber(*value) : std::nullopt;
    require(ini.intValue(place.section, place.key, -7) == number.value_or(-7),
            "a number is the one that the value begins with, or the default");
    const auto again = IniText::parse(ini.text());
    require(again && again->text() == ini.text(), "a text that was parsed parses again, byte for byte");
}

void checkEditing(IniText ini, const Place& place, std::string_view value, const Place& other) {
    const std::string textBefore = ini.text();
    const auto otherBefore = ini.value(other.section, other.key);
    const std::size_t countBefore = ini.entries(place.section).size();
    const bool wasThere = ini.value(place.section, place.key).has_value();
    if (!ini.setValue(place.section, place.key, value)) {
        require(ini.text() == textBefore, "a refused edit changes nothing");
        return;
    }
    require(ini.value(place.section, place.key) == value, "a value that was set reads back");
    require(ini.entries(place.section).size() == countBefore + (wasThere ? 0 : 1),
            "an edit adds at most its own entry");
    if (!(place == other))
        require(ini.value(other.section, other.key) == otherBefore, "an edit changes no other value");
    checkReading(ini, place);

    const std::string edited = ini.text();
    require(ini.setValue(place.section, place.key, value) && ini.text() == edited,
            "setting the same value again changes no byte");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    fuzz::Fields fields(fuzz::textOf(bytes, count));
    const std::string_view section = fields.next();
    const std::string_view key = fields.next();
    const std::string_view value = fields.next();
    const std::string_view otherSection = fields.next();
    const std::string_view otherKey = fields.next();

    std::string reason;
    const auto ini = IniText::parse(std::string(fields.rest()), &reason);
    require(ini.has_value() == reason.empty(), "a reason is given for a refusal, and only then");
    if (!ini)
        return 0;
    require(ini->text() == fields.rest(), "parsing changes no byte");
    checkReading(*ini, {section, key});
    checkReading(*ini, {otherSection, otherKey});
    checkEditing(*ini, {section, key}, value, {otherSection, otherKey});
    return 0;
}
