#include "simhost/board/CameraReferences.h"

#include <gtest/gtest.h>
#include <limits>

namespace simhost {
namespace {

std::uint32_t pixelWith(const CameraReferences& references, std::uint32_t pixel, bool colour = true) {
    std::vector<std::uint32_t> pixels{pixel};
    applyReferences(references, colour, pixels);
    return pixels[0];
}

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

TEST(CameraReferences, AtFiftyThePictureIsTheCamerasOwn) {
    for (const std::uint32_t pixel : {0xff000000U, 0xff123456U, 0xffffffffU}) {
        EXPECT_EQ(pixelWith(CameraReferences(), pixel), pixel);
    }
}

TEST(CameraReferences, BrightnessMovesEveryLevelAndStopsAtTheEnds) {
    CameraReferences references;
    references.set(1, -1.0, 70.0);
    EXPECT_EQ(pixelWith(references, 0xff6400ffU), 0xff9733ffU);
    references.set(1, -1.0, 0.0);
    EXPECT_EQ(pixelWith(references, 0xffff8000U), 0xff800100U);
}

TEST(CameraReferences, ContrastSpreadsTheLevelsRoundMidGrey) {
    CameraReferences references;
    references.set(1, 100.0, -1.0);
    EXPECT_EQ(pixelWith(references, 0xff6480a0U), 0xff4981c1U);
    references.set(1, 0.0, -1.0);
    EXPECT_EQ(pixelWith(references, 0xff0010ffU), 0xff808080U);
}

TEST(CameraReferences, NoSaturationGivesGreyAndGreyStaysGrey) {
    CameraReferences references;
    references.set(2, -1.0, 0.0);
    const std::uint32_t grey = pixelWith(references, 0xff3060c0U);
    EXPECT_EQ(grey & 0xffU, (grey >> 8) & 0xffU);
    EXPECT_EQ(grey & 0xffU, (grey >> 16) & 0xffU);
    references.set(2, 85.0, 100.0);
    EXPECT_EQ(pixelWith(references, 0xff777777U), 0xff777777U);
}

TEST(CameraReferences, AThirdOfATurnOfHueMakesRedIntoAnotherPrimaryColour) {
    CameraReferences references;
    references.set(2, 50.0 + 100.0 / 3.0, -1.0);
    const std::uint32_t turned = pixelWith(references, 0xffc00000U);
    references.set(2, 50.0 - 100.0 / 3.0, -1.0);
    const std::uint32_t back = pixelWith(references, 0xffc00000U);
    EXPECT_NE(turned, back);
    EXPECT_EQ(turned | back, 0xff00c0c0U);
}

TEST(CameraReferences, AGreyCameraHasNoColoursToTurn) {
    CameraReferences references;
    references.set(2, 90.0, 10.0);
    EXPECT_EQ(pixelWith(references, 0xff3060c0U, false), 0xff3060c0U);
}

} // namespace
} // namespace simhost
