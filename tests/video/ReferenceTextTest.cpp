#include "video/ReferenceText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>

using namespace ocuva;

TEST(ReferenceText, ShowsOneDecimalAndAtLeastOneDigitBeforeIt) {
    EXPECT_EQ(referenceText(0.0), "0.0");
    EXPECT_EQ(referenceText(0.4), "0.4");
    EXPECT_EQ(referenceText(7.0), "7.0");
    EXPECT_EQ(referenceText(100.0), "100.0");
    EXPECT_EQ(referenceText(-3.0), "-3.0");
}

TEST(ReferenceText, RoundsDecimalHalvesAwayFromZero) {
    EXPECT_EQ(referenceText(33.25), "33.3");
    EXPECT_EQ(referenceText(0.15), "0.2");
    EXPECT_EQ(referenceText(-0.25), "-0.3");
    EXPECT_EQ(referenceText(33.24), "33.2");
    EXPECT_EQ(referenceText(99.95), "100.0");
}

TEST(ReferenceText, HasNoThousandsSeparatorsAndNoSignOnAZero) {
    EXPECT_EQ(referenceText(12345.0), "12345.0");
    EXPECT_EQ(referenceText(-0.0), "0.0");
    EXPECT_EQ(referenceText(-0.04), "0.0");
}

TEST(ReferenceText, HoldsTheLargestNumbers) {
    EXPECT_EQ(referenceText(1e15), "1000000000000000.0");
    EXPECT_EQ(referenceText(std::numeric_limits<Double>::max()).size(), 311U);
}

TEST(ReferenceText, UsesAPointInEveryLocale) {
    struct CommaDecimals final : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaDecimals));
    EXPECT_EQ(referenceText(1234.5), "1234.5");
    std::locale::global(before);
}
