#include "base/Numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace ocuva;

TEST(Numbers, RoundTiesToTheEvenNeighbour) {
    EXPECT_EQ(toLong(2.5), 2);
    EXPECT_EQ(toLong(3.5), 4);
    EXPECT_EQ(toLong(-0.5), 0);
    EXPECT_EQ(toLong(-1.5), -2);
    EXPECT_EQ(toLong(-2.5), -2);
    EXPECT_EQ(toInteger(9.5), 10);
}

TEST(Numbers, RoundEverythingElseToTheNearest) {
    EXPECT_EQ(toLong(2.49999), 2);
    EXPECT_EQ(toLong(2.50001), 3);
    EXPECT_EQ(toLong(-2.50001), -3);
    EXPECT_EQ(toLong(0.49999999999999994), 0);
}

TEST(Numbers, AreRefusedInsteadOfWrappedIfTheyDoNotFit) {
    EXPECT_EQ(toLong(2147483647.4), std::numeric_limits<Long>::max());
    EXPECT_EQ(toLong(-2147483648.5), std::numeric_limits<Long>::min());
    EXPECT_THROW(toLong(2147483647.5), ArithmeticError);
    EXPECT_THROW(toLong(-2147483648.6), ArithmeticError);
    EXPECT_THROW(toLong(std::nan("")), ArithmeticError);
    EXPECT_THROW(toLong(INFINITY), ArithmeticError);
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_THROW(toInteger(32767.5), ArithmeticError);
    EXPECT_THROW(toInteger(-32769.0), ArithmeticError);
}

TEST(Numbers, BecomeTheNearest32BitFloatUnlessThereIsNone) {
    EXPECT_EQ(toSingle(2560.1), 2560.1F);
    EXPECT_EQ(toSingle(-0.1), -0.1F);
    EXPECT_THROW(toSingle(1e39), ArithmeticError);
    EXPECT_THROW(toSingle(-1e39), ArithmeticError);
    EXPECT_THROW(toSingle(std::nan("")), ArithmeticError);
}

TEST(Numbers, WholeNumberArithmeticStopsAtTheEndsOf32Bits) {
    constexpr Long low = std::numeric_limits<Long>::min();
    constexpr Long high = std::numeric_limits<Long>::max();
    EXPECT_EQ(checkedAdd(high - 1, 1), high);
    EXPECT_THROW(checkedAdd(high, 1), ArithmeticError);
    EXPECT_EQ(checkedSubtract(low + 1, 1), low);
    EXPECT_THROW(checkedSubtract(low, 1), ArithmeticError);
    EXPECT_EQ(checkedNegate(high), low + 1);
    EXPECT_THROW(checkedNegate(low), ArithmeticError);
}
