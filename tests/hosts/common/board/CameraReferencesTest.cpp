#include "hosts/common/board/CameraReferences.h"

#include <gtest/gtest.h>
#include <limits>

namespace hosts {
namespace {

TEST(CameraReferences, AllAreFiftyAtFirst) {
    const CameraReferences references;
    double first = 0.0;
    double second = 0.0;
    EXPECT_TRUE(references.get(1, first, second));
    EXPECT_EQ(first, 50.0);
    EXPECT_EQ(second, 50.0);
    EXPECT_TRUE(references.get(2, first, second));
    EXPECT_EQ(first, 50.0);
    EXPECT_EQ(second, 50.0);
}

TEST(CameraReferences, GroupsHoldContrastAndBrightnessThenHueAndSaturation) {
    CameraReferences references;
    references.set(1, 10.0, 20.0);
    references.set(2, 30.5, 40.0);
    EXPECT_EQ(references.contrast(), 10.0);
    EXPECT_EQ(references.brightness(), 20.0);
    EXPECT_EQ(references.hue(), 30.5);
    EXPECT_EQ(references.saturation(), 40.0);
}

TEST(CameraReferences, MinusOneLeavesASlotUnchanged) {
    CameraReferences references;
    EXPECT_TRUE(references.set(1, -1.0, 77.0));
    EXPECT_TRUE(references.set(1, 66.0, -1.0));
    EXPECT_EQ(references.contrast(), 66.0);
    EXPECT_EQ(references.brightness(), 77.0);
}

TEST(CameraReferences, ValuesOutsideTheScaleArePulledToItsEnds) {
    CameraReferences references;
    references.set(1, 150.0, -2.0);
    EXPECT_EQ(references.contrast(), 100.0);
    EXPECT_EQ(references.brightness(), 0.0);
    references.set(2, std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(references.hue(), 100.0);
    EXPECT_EQ(references.saturation(), 0.0);
}

TEST(CameraReferences, AnotherGroupAndNoNumberAreRefused) {
    CameraReferences references;
    double first = 1.25;
    double second = 2.5;
    EXPECT_FALSE(references.set(0, 1.0, 1.0));
    EXPECT_FALSE(references.set(3, 1.0, 1.0));
    EXPECT_FALSE(references.set(1, 10.0, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(references.get(3, first, second));
    EXPECT_EQ(first, 1.25);
    EXPECT_EQ(second, 2.5);
    EXPECT_EQ(references.contrast(), 50.0) << "a refused pair changes neither slot";
}

} // namespace
} // namespace hosts
