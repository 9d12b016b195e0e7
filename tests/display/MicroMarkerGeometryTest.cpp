#include "display/MicroMarkerGeometry.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;

namespace {

struct Scale : testing::Test {
    StubHost host;
    LengthConversion conversion{host.tn_log()};

    MicroMarker marker(Long displayWidth, Long magnification = 400, Single x100 = 2560.0F) {
        return microMarker({magnification, x100, 1920.0F}, conversion, displayWidth, 5760);
    }
};

} // namespace

TEST_F(Scale, IsTheNiceNumberNearestToAQuarterOfTheField) {
    // 640 units, a quarter is 160.
    EXPECT_EQ(marker(5760).scaleValue, 100);
    EXPECT_EQ(marker(5760).barTwips, 900);
    // 1280 units, a quarter is 320.
    EXPECT_EQ(marker(5760, 200).scaleValue, 200);
    EXPECT_EQ(marker(5760, 200).barTwips, 900);
}

TEST_F(Scale, SpansItsValueOfTheFieldAtEveryWidthOfTheDisplayAndNeverMoreThanThePicture) {
    for (Long width = 360; width < 60000; width += 15) {
        const MicroMarker m = marker(width);
        ASSERT_NEAR(m.barTwips, m.scaleValue * 5760.0 / 640.0, 15.0) << width;
        ASSERT_LE(m.barTwips, 5760 * 0.9) << width;
    }
}

TEST_F(Scale, OfAWiderDisplayRepresentsMore) {
    EXPECT_EQ(marker(5760 * 2).scaleValue, 200);
    EXPECT_EQ(marker(5760 * 3).scaleValue, 500);
    // A thousand units do not find room on a picture of 640.
    EXPECT_EQ(marker(5760 * 5).scaleValue, 100);
}

TEST_F(Scale, OfAFieldNarrowerThanFourUnitsIsOne) {
    for (const Single units : {1.0F, 2.0F, 3.0F}) {
        EXPECT_EQ(marker(5760, 100, units).scaleValue, 1);
    }
}

TEST_F(Scale, WithoutMagnificationIsAnErrorAfterTheConversionsLogLine) {
    EXPECT_THROW(marker(5760, 0), ArithmeticError);
    EXPECT_THAT(host.logLines, ElementsAre("Overflow in frame to stage conversion"));
}

TEST_F(Scale, ThatLeavesSixteenBitsIsAnError) {
    EXPECT_THROW(marker(5760, 1), ArithmeticError);
    EXPECT_THROW(microMarker({400, 2560.0F, 1920.0F}, conversion, 400000, 400000), ArithmeticError);
    EXPECT_NO_THROW(microMarker({400, 2560.0F, 1920.0F}, conversion, 200000, 200000));
}

TEST(MicroMarkerText, IsASpaceTheValueASpaceAndTheMicroSign) {
    EXPECT_EQ(microMarkerText(100), " 100 \xc2\xb5");
    EXPECT_EQ(microMarkerText(1), " 1 \xc2\xb5");
}
