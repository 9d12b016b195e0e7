#include "display/PointMove.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gtest/gtest.h>
#include <limits>

using namespace ocuva;

namespace {

struct MoveToPoint : testing::Test {
    StubHost host;
    LengthConversion conversion{host.tn_log()};
    Magnification magnification{400, 2560.0F, 1920.0F}; // a field of 640 x 480 units
    ViewOptions view;

    // A display of 5760 x 4320 twips, 9 twips to the unit in both directions.
    StagePair move(Single x, Single y) const {
        return moveToPoint({x, y, {2880, 2160}, {5760, 4320}}, magnification, view, conversion);
    }
};

} // namespace

TEST_F(MoveToPoint, AClickOnTheCentreMovesNothing) {
    EXPECT_EQ(move(2880, 2160).x, 0);
    EXPECT_EQ(move(2880, 2160).y, 0);
}

TEST_F(MoveToPoint, EverySideOfTheCentreMovesTheRightWayWithAndWithoutInversion) {
    for (const int sideX : {-1, 0, 1}) {
        for (const int sideY : {-1, 0, 1}) {
            for (const bool inverseX : {false, true}) {
                for (const bool inverseY : {false, true}) {
                    view.MoveXInverse = inverseX ? 1 : 0;
                    view.MoveYInverse = inverseY ? 7 : 0;
                    const StagePair result = move(2880.0F + static_cast<Single>(sideX) * 900.0F,
                                                  2160.0F + static_cast<Single>(sideY) * 450.0F);
                    EXPECT_EQ(result.x, (inverseX ? 100 : -100) * sideX);
                    EXPECT_EQ(result.y, (inverseY ? 50 : -50) * sideY);
                }
            }
        }
    }
}

TEST_F(MoveToPoint, TheClickIsRoundedHalfToEvenBeforeItIsConverted) {
    magnification = {100, 5760.0F, 4320.0F}; // one twip is one unit
    EXPECT_EQ(move(2880.5F, 2160).x, 0);
    EXPECT_EQ(move(2881.5F, 2160).x, -2);
    EXPECT_EQ(move(2880, 2157.5F).y, 2);
}

TEST_F(MoveToPoint, AFailedConversionMovesNothingOnItsAxisAndSaysSoInTheLog) {
    magnification.x100 = std::numeric_limits<Single>::infinity();
    const StagePair result = move(3780, 2610);
    EXPECT_EQ(result.x, 0);
    EXPECT_EQ(result.y, -50);
    ASSERT_EQ(host.logLines.size(), 1U);
    EXPECT_EQ(host.logLines[0], "Overflow in frame to stage conversion");
}

TEST_F(MoveToPoint, AnOffsetThatLeaves32BitsIsAnError) {
    EXPECT_THROW(move(3e9F, 0), ArithmeticError);
    EXPECT_THROW(move(0, -3e9F), ArithmeticError);
    EXPECT_THROW(move(std::numeric_limits<Single>::quiet_NaN(), 0), ArithmeticError);
}

TEST_F(MoveToPoint, ASignChangeThatLeaves32BitsIsAnError) {
    constexpr Long low = std::numeric_limits<Long>::min();
    magnification = {100, 1.0F, 1.0F};
    EXPECT_THROW(moveToPoint({static_cast<Single>(low), 0, {0, 0}, {1, 1}}, magnification, view, conversion),
                 ArithmeticError);
    view.MoveXInverse = 1;
    EXPECT_EQ(moveToPoint({static_cast<Single>(low), 0, {0, 0}, {1, 1}}, magnification, view, conversion).x,
              low);
}
