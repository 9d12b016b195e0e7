#include "hosts/common/picture/PictureControls.h"

#include "PictureRig.h"

#include <gtest/gtest.h>
#include <limits>

namespace hosts::simulated {
namespace {

using testing::Picture;
using testing::Rig;

struct Means {
    double red = 0.0, green = 0.0, blue = 0.0, spread = 0.0;
    double light() const { return (red + green + blue) / 3; }
};

Means meansWith(const PictureControls& controls, int cameraType = 3) {
    Rig rig;
    rig.exposure.mode = cameraMode(cameraType);
    const World world(rig.seed, rig.mounts);
    CameraPicture camera(world, rig.surface, rig.optics);
    camera.setControls(controls);
    const Picture picture = Rig::take(camera, rig.exposure);
    Means means;
    const auto count = static_cast<double>(picture.pixels.size());
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            means.red += picture.red(x, y) / count;
            means.green += picture.green(x, y) / count;
            means.blue += picture.blue(x, y) / count;
            means.spread += std::abs(picture.red(x, y) - picture.blue(x, y)) / count;
        }
    }
    return means;
}

TEST(PictureControls, TheDefaultsChangeNothing) {
    const ColourTransform transform = transformOf({});
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            EXPECT_NEAR(transform.matrix[i][k], i == k ? 1.0F : 0.0F, 1e-6F);
        }
    }
    EXPECT_EQ(transform.offset, 0.0F);
    EXPECT_TRUE(isNeutral({}));
}

TEST(PictureControls, BrightnessAndGainMakeThePictureLighter) {
    PictureControls controls;
    const double neutral = meansWith(controls).light();
    controls.brightness = 60;
    EXPECT_NEAR(meansWith(controls).light(), neutral + 20, 2.0);
    controls = {};
    double last = 0.0;
    for (controls.gain = 0; controls.gain <= 4; ++controls.gain) {
        const double light = meansWith(controls).light();
        EXPECT_GT(light, last * 1.15) << controls.gain;
        last = light;
    }
}

TEST(PictureControls, NoContrastLeavesMiddleGrey) {
    PictureControls controls;
    controls.contrast = 0;
    const Means means = meansWith(controls);
    EXPECT_NEAR(means.red, 128, 1);
    EXPECT_NEAR(means.spread, 0, 0.01);
}

TEST(PictureControls, NoSaturationLeavesGreyOfTheSameLight) {
    PictureControls controls;
    const Means neutral = meansWith(controls);
    controls.saturation = 0;
    const Means grey = meansWith(controls);
    EXPECT_LT(grey.spread, 0.05);
    EXPECT_NEAR(grey.green,
                77.0 / 256 * neutral.red + 150.0 / 256 * neutral.green + 29.0 / 256 * neutral.blue, 1.5);
}

TEST(PictureControls, HueTurnsColoursBothWays) {
    PictureControls controls;
    controls.hue = 0;
    const Means one = meansWith(controls);
    controls.hue = 100;
    const Means other = meansWith(controls);
    EXPECT_GT(std::abs(one.green - other.green) + std::abs(one.red - other.red), 3.0);
}

TEST(PictureControls, GreyCamerasStayGrey) {
    PictureControls controls;
    controls.contrast = 70;
    controls.gain = 3;
    EXPECT_EQ(meansWith(controls, 1).spread, 0.0);
}

TEST(PictureControls, ValuesOutOfRangeAreHeldAndNoNumbersAreNeutral) {
    PictureControls wild{150, -20, std::numeric_limits<double>::quiet_NaN(), 1e300, 99};
    PictureControls held{100, 0, 50, 100, -1};
    const ColourTransform a = transformOf(wild);
    const ColourTransform b = transformOf(held);
    EXPECT_EQ(a.offset, b.offset);
    EXPECT_EQ(a.matrix[0][0], b.matrix[0][0]);
    EXPECT_EQ(a.matrix[2][1], b.matrix[2][1]);
}

} // namespace
} // namespace hosts::simulated
