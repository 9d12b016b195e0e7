#include "hosts/common/board/AutomaticGain.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace hosts {
namespace {

constexpr int unity = 2;

/// A scene of one brightness, seen through the automatic gain frame by frame.
struct Scene {
    AutomaticGain gain;
    double light = 114.0; ///< grey level at the range of factor 1

    ocuva::Frame picture() const {
        const double factor = std::pow(2.0, (gain.range() - unity) / 2.0);
        const auto level = static_cast<std::uint32_t>(std::clamp(std::lround(light * factor), 0L, 255L));
        ocuva::Frame frame;
        frame.width = 8;
        frame.height = 8;
        frame.pixels.assign(64, 0xff000000U | level << 16U | level << 8U | level);
        return frame;
    }
    void frames(int count) {
        for (int i = 0; i < count; ++i) {
            PictureControls controls;
            controls.gain = gain.range();
            gain.follow(picture(), controls);
        }
    }
    int rangeAfter(double seenLight, int count) {
        light = seenLight;
        frames(count);
        return gain.range();
    }
};

constexpr int twoSeconds = 50;

} // namespace

TEST(AutomaticGain, TheSameSampleHasTheSameGainAgainTwoSecondsAfterABrightOrADarkPlace) {
    for (const double sample : {90.0, 114.0, 150.0}) {
        for (const double between : {255.0, 400.0, 60.0, 10.0, 0.0}) {
            Scene scene;
            ASSERT_EQ(scene.rangeAfter(sample, twoSeconds), unity);
            scene.rangeAfter(between, twoSeconds);
            EXPECT_EQ(scene.rangeAfter(sample, twoSeconds), unity) << sample << " after " << between;
        }
    }
}

TEST(AutomaticGain, LightThatNeedsAnotherRangeKeepsItWithoutHunting) {
    for (double light = 20.0; light < 500.0; light += 1.0) {
        Scene scene;
        const int range = scene.rangeAfter(light, 2 * twoSeconds);
        for (int frame = 0; frame < 4 * twoSeconds; ++frame) {
            ASSERT_EQ(scene.rangeAfter(light, 1), range) << light;
        }
    }
}

TEST(AutomaticGain, FramesThatWereNotShownCountAsShown) {
    Scene scene;
    scene.rangeAfter(240.0, 10);
    ASSERT_EQ(scene.gain.range(), 1);
    scene.light = 114.0;
    PictureControls controls;
    controls.gain = 1;
    EXPECT_EQ(scene.gain.follow(scene.picture(), controls, AutomaticGain::patienceFrames - 1), 0);
    EXPECT_EQ(scene.gain.follow(scene.picture(), controls, 100), 1);
    EXPECT_EQ(scene.gain.range(), unity);
    controls.gain = unity;
    EXPECT_EQ(scene.gain.follow(scene.picture(), controls, 1000), 0);
}

} // namespace hosts
