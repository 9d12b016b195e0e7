#include "hosts/common/services/Numerals.h"

#include <gtest/gtest.h>

using namespace hosts;

TEST(Numerals, AWholeNumberHasNoOtherText) {
    EXPECT_EQ(wholeNumber(" +12\r"), 12);
    for (const char* text : {"", "12 a", "12.0", "1e3", "0x1", "3000000000"})
        EXPECT_FALSE(wholeNumber(text)) << text;
}

TEST(Numerals, ANumberIsFiniteWithoutOtherText) {
    EXPECT_EQ(number(" 2e-8 "), 2e-8);
    EXPECT_EQ(number("+.5"), 0.5);
    for (const char* text : {"", "nan", "inf", "1e999", "1,5", "1 2", "+-1", "0.5x"})
        EXPECT_FALSE(number(text)) << text;
}

TEST(Numerals, TheTextOfANumberReadsBackExactly) {
    for (const double value : {0.0, -0.0015, 2e-8, 0.1 + 0.2, 1e300, -25000.0})
        EXPECT_EQ(number(numberText(value)), value);
    EXPECT_EQ(numberText(20261), "20261");
}
