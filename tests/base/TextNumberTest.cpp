#include "base/TextNumber.h"

#include "base/Numbers.h"

#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <utility>

using namespace ocuva;

TEST(TextNumber, TakesOneDecimalPointOrOneDecimalCommaASignAndBlanksAround) {
    EXPECT_EQ(textToDouble("12"), 12.0);
    EXPECT_EQ(textToDouble(" -12.25\t"), -12.25);
    EXPECT_EQ(textToDouble("+0,5"), 0.5);
    EXPECT_EQ(textToDouble(".5"), 0.5);
    EXPECT_EQ(textToDouble("5,"), 5.0);
}

TEST(TextNumber, IsRoundedHalfToEvenWhereAWholeNumberIsNeeded) {
    EXPECT_EQ(textToLong("12.5"), 12);
    EXPECT_EQ(textToLong("13,5"), 14);
    EXPECT_EQ(textToLong("-0.5"), 0);
    EXPECT_EQ(textToLong("12.4999"), 12);
}

TEST(TextNumber, RefusesThousandsSeparatorsExponentsAndUnits) {
    for (const char* text : {"", "   ", "-", ".", ",", "1,234,5", "1.234.5", "1,234.5", "12abc", "abc", "1 2",
                             "--1", "1-", "1e3", "0x10", "inf", "nan", "12\n", "+ 1"}) {
        EXPECT_THROW(textToDouble(text), TextError) << '"' << text << '"';
    }
    EXPECT_THROW(textToDouble(std::string_view("1\0", 2)), TextError);
}

TEST(TextNumber, NamesATextThatIsNotANumber) {
    try {
        textToLong(" 12abc ");
        FAIL();
    } catch (const TextError& error) {
        EXPECT_STREQ(error.what(), "\"12abc\" is not a number");
    }
}

TEST(TextNumber, ThatDoesNotFitInto32BitsIsAnOverflow) {
    EXPECT_EQ(textToLong("2147483647"), std::numeric_limits<Long>::max());
    EXPECT_THROW(textToLong("2147483648"), ArithmeticError);
    EXPECT_THROW(textToLong("-" + std::string(400, '9')), ArithmeticError);
}

TEST(TextNumber, APrefixCountsAndTheRestIsIgnored) {
    EXPECT_EQ(numericPrefix("12.7"), 12.7);
    EXPECT_EQ(numericPrefix(" 400x"), 400.0);
    EXPECT_EQ(numericPrefix("-3,5 mm"), -3.5);
    EXPECT_EQ(numericPrefix("abc"), 0.0);
    EXPECT_EQ(numericPrefix(""), 0.0);
    EXPECT_EQ(numericPrefix("1.2.3"), 1.2);
    EXPECT_EQ(numericPrefix(std::string(400, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(numericPrefix("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(LeadingNumber, IsTheNumberThatTheTextBeginsWith) {
    const std::pair<const char*, double> examples[]{
        {"50", 50.0}, {"  50.5", 50.5}, {"50 %", 50.0}, {"50.5abc", 50.5}, {"+7", 7.0},
        {"-7", -7.0}, {".5", 0.5},      {"-.5", -0.5},  {"5.", 5.0},       {"12,5", 12.5},
        {"5e", 5.0},  {"1e2", 1.0},     {"1.2.3", 1.2}, {"0", 0.0}};
    for (const auto& [text, number] : examples) {
        EXPECT_EQ(leadingNumber(text), number) << text;
    }
}

TEST(LeadingNumber, IsMissingInATextThatDoesNotBeginWithANumber) {
    for (const char* text : {"", " ", "abc", "a5", "-", "+", ".", "+-5", "--5", "++5", "- 5", "inf", "-inf",
                             "nan", "infinity", "e5", "%"}) {
        EXPECT_EQ(leadingNumber(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(LeadingNumber, BeyondADoublesRangeIsTheLargestOfItsSign) {
    EXPECT_EQ(leadingNumber(std::string(400, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("-" + std::string(400, '9')), -std::numeric_limits<double>::max());
}

TEST(LeadingNumber, ReadsNoLocale) {
    struct CommaDecimals final : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaDecimals));
    EXPECT_EQ(leadingNumber("12.5"), 12.5);
    std::locale::global(before);
}
