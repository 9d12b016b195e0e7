#include "hosts/common/services/IniText.h"

#include <gmock/gmock.h>

using hosts::IniText;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

IniText ini(const std::string& text) {
    auto parsed = IniText::parse(text);
    EXPECT_TRUE(parsed) << text;
    return parsed.value_or(IniText());
}

std::string get(const std::string& text, const char* section = "A", const char* key = "k") {
    return ini(text).value(section, key).value_or("<absent>");
}

std::string edited(const std::string& text, const char* section, const char* key, const char* value) {
    IniText target = ini(text);
    EXPECT_TRUE(target.setValue(section, key, value));
    return target.text();
}

bool refused(const std::string& section, const std::string& key, const std::string& value) {
    IniText target = ini("[A]\nk=1\n");
    const bool result = !target.setValue(section, key, value);
    EXPECT_EQ(target.text(), "[A]\nk=1\n");
    return result;
}

} // namespace

TEST(IniText, SectionAndKeyAreFoundWithoutRegardToCase) {
    EXPECT_EQ(get("[Configuration]\nCrossSize=96\n", "CONFIGURATION", "crosssize"), "96");
}

TEST(IniText, OnlyAsciiLettersFoldCase) { EXPECT_EQ(get("[A]\n\xC4=1\n", "A", "\xE4"), "<absent>"); }

TEST(IniText, BlanksRoundSectionNamesKeysAndValuesDoNotCount) {
    EXPECT_EQ(get("  [ A\t]  \n \t k\t =  two words \t\n"), "two words");
    EXPECT_EQ(get("[A]\nk=1\n", " A ", " k "), "1");
}

TEST(IniText, TheFirstOfSeveralEqualKeysWins) { EXPECT_EQ(get("[A]\nk=1\nK=2\n"), "1"); }

TEST(IniText, OnlyTheFirstOfSeveralEqualSectionsIsLookedInto) {
    EXPECT_EQ(get("[A]\nk=1\n[B]\n[a]\nk=2\nother=3\n"), "1");
    EXPECT_EQ(get("[A]\nk=1\n[B]\n[a]\nother=3\n", "A", "other"), "<absent>");
}

TEST(IniText, AKeyOfTheNextSectionIsNotFoundInThisOne) { EXPECT_EQ(get("[A]\n[B]\nk=1\n"), "<absent>"); }

TEST(IniText, MatchingQuotesAreTakenOffAValue) {
    EXPECT_EQ(get("[A]\nk=\"  padded \"\n"), "  padded ");
    EXPECT_EQ(get("[A]\nk='x'\n"), "x");
    EXPECT_EQ(get("[A]\nk=\"\"\n"), "");
}

TEST(IniText, QuotesThatDoNotMatchArePartOfTheValue) {
    EXPECT_EQ(get("[A]\nk=\"x'\n"), "\"x'");
    EXPECT_EQ(get("[A]\nk=\"\n"), "\"");
    EXPECT_EQ(get("[A]\nk=say \"x\"\n"), "say \"x\"");
}

TEST(IniText, AnEmptyValueIsAValue) {
    EXPECT_EQ(get("[A]\nk=\n"), "");
    EXPECT_EQ(get("[A]\nk=   \r\n"), "");
}

TEST(IniText, AValueMayHoldEqualsSignsAndCommentSigns) {
    EXPECT_EQ(get("[A]\nk=a=b ; c # d\n"), "a=b ; c # d");
}

TEST(IniText, CommentsAndUnknownLinesHaveNoMeaning) {
    EXPECT_EQ(get("[A]\n;k=1\n  # k=2\nnonsense\n=3\n[broken\nk=4\n"), "4");
}

TEST(IniText, LinesBeforeTheFirstSectionHaveNoMeaning) { EXPECT_EQ(get("k=1\n[A]\nk=2\n"), "2"); }

TEST(IniText, TextBehindASectionHeadIsPassedOver) { EXPECT_EQ(get("[A] ; first [sic]\nk=1\n"), "1"); }

TEST(IniText, AByteOrderMarkIsPassedOverAndKept) {
    EXPECT_EQ(get("\xEF\xBB\xBF[A]\nk=1\n"), "1");
    EXPECT_EQ(edited("\xEF\xBB\xBF[A]\nk=1\n", "A", "k", "2"), "\xEF\xBB\xBF[A]\nk=2\n");
    EXPECT_EQ(edited("\xEF\xBB\xBF", "A", "k", "2"), "\xEF\xBB\xBF[A]\nk=2\n");
}

TEST(IniText, ALastLineWithoutLineEndCounts) { EXPECT_EQ(get("[A]\nk=1"), "1"); }

TEST(IniText, AnIntegerIsTheLeadingWholeNumberOfTheValue) {
    const auto number = [](const std::string& value) {
        return ini("[A]\nk=" + value + "\n").intValue("A", "k", 7);
    };
    EXPECT_EQ(number("42"), 42);
    EXPECT_EQ(number(" -42"), -42);
    EXPECT_EQ(number("+42"), 42);
    EXPECT_EQ(number("\"42\""), 42);
    EXPECT_EQ(number("12 ; twips"), 12);
    EXPECT_EQ(number("9.9"), 9);
    EXPECT_EQ(number("0x10"), 0);
    EXPECT_EQ(number("-2147483648"), -2147483647 - 1);
}

TEST(IniText, AnIntegerThatIsNoneGivesTheDefault) {
    const auto number = [](const std::string& value) {
        return ini("[A]\nk=" + value + "\n").intValue("A", "k", 7);
    };
    for (const char* value : {"", "x", "-", "+", "+-5", "--5", "- 5", ".5", "2147483648", "-2147483649",
                              "99999999999999999999999"})
        EXPECT_EQ(number(value), 7) << value;
    EXPECT_EQ(ini("[A]\n").intValue("A", "k", 7), 7);
    EXPECT_EQ(IniText().intValue("A", "k", 7), 7);
}

TEST(IniText, EntriesComeInOrderAsRead) {
    EXPECT_THAT(ini("[A]\nb = 2\n;c=3\n\na=\"1 \"\nB=4\n[Z]\nz=0\n").entries("a"),
                ElementsAre("b=2", "a=1 ", "B=4"));
    EXPECT_THAT(ini("[A]\nb=2\n").entries("none"), IsEmpty());
}

TEST(IniText, EditingChangesNothingButTheValue) {
    EXPECT_EQ(edited("; head\r\n\r\n[A]\r\n  Key =  1  \r\n?!\r\n;k\r\n[B]\r\nKey=3", "a", "KEY", "22"),
              "; head\r\n\r\n[A]\r\n  Key =  22  \r\n?!\r\n;k\r\n[B]\r\nKey=3");
}

TEST(IniText, AnEmptyValueIsFilledIn) {
    EXPECT_EQ(edited("[A]\nk=\nl=2\n", "A", "k", "1"), "[A]\nk=1\nl=2\n");
    EXPECT_EQ(edited("[A]\r\nk=\r\n", "A", "k", "1"), "[A]\r\nk=1\r\n");
    EXPECT_EQ(edited("[A]\r\nk= \r\n", "A", "k", "1"), "[A]\r\nk=1 \r\n");
    EXPECT_EQ(edited("[A]\nk=", "A", "k", "1"), "[A]\nk=1");
}

TEST(IniText, AValueCanBeEmptied) { EXPECT_EQ(edited("[A]\nk=1\n", "A", "k", ""), "[A]\nk=\n"); }

TEST(IniText, EditingChangesTheFirstOfEqualKeys) {
    EXPECT_EQ(edited("[A]\nk=1\nk=2\n[A]\nk=3\n", "A", "k", "9"), "[A]\nk=9\nk=2\n[A]\nk=3\n");
}

TEST(IniText, ANewKeyFollowsTheLastOfItsSection) {
    EXPECT_EQ(edited("[A]\nk=1\n; about k\n\n; B comes\n[B]\n", "A", "l", "2"),
              "[A]\nk=1\nl=2\n; about k\n\n; B comes\n[B]\n");
    EXPECT_EQ(edited("[A]\n; none yet\n[B]\n", "A", "l", "2"), "[A]\nl=2\n; none yet\n[B]\n");
}

TEST(IniText, ANewKeyTakesTheTextsLineEnd) {
    EXPECT_EQ(edited("[A]\r\nk=1\r\n", "A", "l", "2"), "[A]\r\nk=1\r\nl=2\r\n");
    EXPECT_EQ(edited("[A]\r\nk=1", "A", "l", "2"), "[A]\r\nk=1\r\nl=2\r\n");
    EXPECT_EQ(edited("[A]", "A", "l", "2"), "[A]\nl=2\n");
}

TEST(IniText, ANewSectionIsSetOffAtTheEnd) {
    EXPECT_EQ(edited("", "A", "k", "1"), "[A]\nk=1\n");
    EXPECT_EQ(edited("[A]\nk=1", "B", "k", "1"), "[A]\nk=1\n\n[B]\nk=1\n");
    EXPECT_EQ(edited("[A]\r\nk=1\r\n", "B", "k", "1"), "[A]\r\nk=1\r\n\r\n[B]\r\nk=1\r\n");
    EXPECT_EQ(edited("[A]\nk=1\n\n", "B", "k", "1"), "[A]\nk=1\n\n[B]\nk=1\n");
}

TEST(IniText, AValueThatReadingWouldChangeIsWrittenInQuotes) {
    EXPECT_EQ(edited("[A]\n", "A", "k", " x"), "[A]\nk=\" x\"\n");
    EXPECT_EQ(edited("[A]\n", "A", "k", "'x'"), "[A]\nk=\"'x'\"\n");
    EXPECT_EQ(edited("[A]\n", "A", "k", "\""), "[A]\nk=\"\n");
}

TEST(IniText, WhatCannotBeReadBackIsRefused) {
    for (const std::string& value :
         {std::string("a\nb"), std::string("a\rb"), std::string("a\0b", 3), std::string("\x1b")})
        EXPECT_TRUE(refused("A", "k", value));
    for (const char* section : {"", "  ", "a]b", "a\nb"})
        EXPECT_TRUE(refused(section, "k", "1")) << section;
    for (const char* key : {"", " ", "a=b", ";a", "#a", "[a", "a\nb"})
        EXPECT_TRUE(refused("A", key, "1")) << key;
}

TEST(IniText, AnEditThatWouldMakeTheTextTooLargeIsRefused) {
    EXPECT_TRUE(refused("A", "k", std::string(IniText::maxBytes, 'x')));
}

TEST(IniText, EmptyAndCommentOnlyTextsAreFine) {
    for (const char* text : {"", "\n\n", "; only\n# this", "\xEF\xBB\xBF"})
        EXPECT_TRUE(IniText::parse(text)) << text;
}

TEST(IniText, AnInvalidIniTextIsReportedWithTheReason) {
    std::string reason;
    EXPECT_FALSE(IniText::parse(std::string("[A]\nk=\0", 7), &reason));
    EXPECT_EQ(reason, "it holds binary data");
    EXPECT_FALSE(IniText::parse("[A]\nk=\x01", &reason));
    EXPECT_EQ(reason, "it holds binary data");
    EXPECT_FALSE(IniText::parse("Dear diary\n; 1\n", &reason));
    EXPECT_EQ(reason, "it has lines but no section");
    EXPECT_FALSE(IniText::parse("k=1\n", &reason));
    EXPECT_EQ(reason, "it has lines but no section");
    EXPECT_FALSE(IniText::parse(std::string(IniText::maxBytes + 1, '\n'), &reason));
    EXPECT_EQ(reason, "it is larger than 16 MiB");
    EXPECT_TRUE(IniText::parse(std::string(IniText::maxBytes, '\n')));
}
