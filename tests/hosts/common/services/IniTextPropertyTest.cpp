#include "hosts/common/services/IniText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>

using hosts::IniText;

namespace {

/// Texts that are dense in what has a meaning to the parser.
rc::Gen<std::string> iniLike() {
    return rc::gen::container<std::string>(
        rc::gen::elementOf(std::string("[]==;#\"' \t\r\n\n\nAaBbKk12\xC3\xEF")));
}

rc::Gen<std::string> anyBytes() { return rc::gen::container<std::string>(rc::gen::arbitrary<char>()); }

/// A text with a section at its beginning is always readable.
rc::Gen<IniText> anIni() {
    return rc::gen::map(iniLike(), [](const std::string& tail) {
        return IniText::parse("[Head]\n" + tail).value_or(IniText());
    });
}

/// Section or key.
rc::Gen<std::string> nameGen() {
    return rc::gen::nonEmpty(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("AaBbKk12.\"'\xC3"))));
}

/// Whatever may be written: blanks, quotes, signs, every byte but the control characters.
rc::Gen<std::string> valueGen() {
    const auto printable =
        rc::gen::map(rc::gen::inRange(0x20, 0x100), [](int c) { return static_cast<char>(c); });
    return rc::gen::container<std::string>(
        rc::gen::oneOf(rc::gen::elementOf(std::string(" \t\"';#=[]1")), printable));
}

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

} // namespace

RC_GTEST_PROP(IniTextProperty, AWrittenValueReadsBackExactlyAndTheTextStaysReadable, ()) {
    IniText text = *anIni();
    const std::string section = *nameGen();
    const std::string key = *nameGen();
    const std::string value = *valueGen();
    RC_ASSERT(text.setValue(section, key, value));
    RC_ASSERT(text.value(section, key) == value);
    const auto again = IniText::parse(text.text());
    RC_ASSERT(again.has_value());
    RC_ASSERT(again->value(section, key) == value);
}

RC_GTEST_PROP(IniTextProperty, WritingTheOldValueBackRestoresWhatIsReadEverywhere, ()) {
    IniText text = *anIni();
    RC_ASSERT(text.setValue("A", "k", "old"));
    const IniText before = text;
    RC_ASSERT(text.setValue("A", "k", *valueGen()));
    RC_ASSERT(text.setValue("A", "k", "old"));
    for (const char* section : {"A", "b", "1", ""})
        RC_ASSERT(text.entries(section) == before.entries(section));
}

RC_GTEST_PROP(IniTextProperty, ARefusedEditChangesNothing, ()) {
    auto text = IniText::parse(*iniLike()).value_or(IniText());
    const std::string before = text.text();
    if (!text.setValue(*anyBytes(), *anyBytes(), *anyBytes()))
        RC_ASSERT(text.text() == before);
}

RC_GTEST_PROP(IniTextProperty, EditingOneKeyLeavesTheEntriesOfOtherSectionsAlone, ()) {
    IniText text = *anIni();
    const auto before = text.entries("A");
    RC_ASSERT(text.setValue("Other", *nameGen(), *valueGen()));
    RC_ASSERT(text.entries("A") == before);
}

RC_GTEST_PROP(IniTextProperty, ManyWritesActLikeATableOfKeys, ()) {
    IniText text;
    std::map<std::string, std::string> table;
    const auto keys = *rc::gen::container<std::vector<std::string>>(
        rc::gen::elementOf(std::vector<std::string>{"a", "A", "b", "Key 1", "KEY 1", "x.y"}));
    for (const auto& key : keys) {
        const std::string value = std::to_string(*rc::gen::arbitrary<int>());
        RC_ASSERT(text.setValue("S", key, value));
        table[lower(key)] = value;
    }
    for (const auto& [key, value] : table)
        RC_ASSERT(text.value("s", key) == value);
    RC_ASSERT(text.entries("S").size() == table.size());
}

RC_GTEST_PROP(IniTextProperty, AnyBytesAreReadOrRefusedWithoutHarm, ()) {
    const auto parsed = IniText::parse(*anyBytes());
    if (parsed) {
        for (const auto& entry : parsed->entries("A"))
            RC_ASSERT(entry.find('=') != std::string::npos);
        parsed->intValue("A", "k", 0);
    }
}
