// What the camera's controls do to the picture, seen through the boundary.

#include "hosts/simulated/config/SimConfig.h"
#include "tests/hosts/simulated/truth/TruthRig.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace hosts::simulated {
namespace {

enum Group : TarnLong { light = 1, colour = 2 };
constexpr double same = -1.0;
constexpr TarnLong unityGain = 2;

struct Camera : TruthRig {
    Camera()
        : TruthRig() {
        gain(unityGain);
        live();
    }
    void set(Group group, double first, double second) {
        video().TarnVideoCameraSetReferences(group, first, second);
    }
};

double channel(std::uint32_t pixel, int shift) { return static_cast<double>(pixel >> shift & 0xffU); }

/// Red and blue less the luminance, as one number of the plane of colours.
std::complex<double> chroma(std::uint32_t pixel) {
    const double red = channel(pixel, 16);
    const double green = channel(pixel, 8);
    const double blue = channel(pixel, 0);
    const double luminance = (77.0 * red + 150.0 * green + 29.0 * blue) / 256.0;
    return {blue - luminance, red - luminance};
}

/// Degrees by which the colours of one picture are turned against those of another.
double turned(const ocuva::Frame& from, const ocuva::Frame& to) {
    std::complex<double> sum = 0.0;
    for (std::size_t i = 0; i < from.pixels.size(); ++i) {
        sum += std::conj(chroma(from.pixels[i])) * chroma(to.pixels[i]);
    }
    return std::arg(sum) * 180.0 / std::numbers::pi;
}

TEST(CameraReferences, BrightnessRaisesTheMean) {
    Camera rig;
    double before = -1.0;
    for (const double brightness : {10.0, 30.0, 50.0, 70.0, 90.0}) {
        rig.set(light, same, brightness);
        const double mean = rig.greyAfter().mean;
        EXPECT_GT(mean, before + 10.0) << brightness;
        before = mean;
    }
}

TEST(CameraReferences, ContrastSpreadsTheGreyLevels) {
    Camera rig;
    double before = -1.0;
    for (const double contrast : {0.0, 25.0, 50.0, 75.0}) {
        rig.set(light, contrast, same);
        const double variance = rig.greyAfter().variance;
        EXPECT_GT(variance, before) << contrast;
        before = variance;
    }
    rig.set(light, 0.0, same);
    EXPECT_LT(rig.greyAfter().variance, 1.0);
}

TEST(CameraReferences, HueTurnsTheColoursAndSaturationTakesThemAway) {
    Camera rig;
    const ocuva::FramePtr neutral = rig.frameAfter();
    rig.set(colour, 75.0, same);
    const double oneWay = turned(*neutral, *rig.frameAfter());
    rig.set(colour, 25.0, same);
    const double otherWay = turned(*neutral, *rig.frameAfter());
    EXPECT_NEAR(std::abs(oneWay), 30.0, 6.0);
    EXPECT_NEAR(oneWay + otherWay, 0.0, 6.0);
    rig.set(colour, 50.0, 0.0);
    for (const std::uint32_t pixel : rig.frameAfter()->pixels) {
        ASSERT_LE(std::abs(chroma(pixel)), 1.5);
    }
}

TEST(CameraGain, EachRangeIsBrighterThanTheOneBefore) {
    Camera rig;
    double before = -1.0;
    for (TarnLong range = 0; range <= 4; ++range) {
        rig.gain(range);
        const double mean = rig.greyAfter().mean;
        EXPECT_GT(mean, before) << range;
        before = mean;
    }
}

TEST(CameraGain, AutomaticBringsADarkSceneToASensibleMeanOverSomeFrames) {
    Camera rig;
    rig.configure("[Camera]\nNoise=0\nLamp=0.45\n");
    const double dark = rig.greyAfter().mean;
    ASSERT_LT(dark, 70.0);
    rig.gain(-1);
    EXPECT_NEAR(rig.greyAfter(40.0).mean, dark, 2.0) << "not at once";
    const double adapted = rig.greyAfter(1000.0).mean;
    EXPECT_GT(adapted, 80.0);
    EXPECT_LT(adapted, 175.0);
    EXPECT_NEAR(rig.greyAfter(1000.0).mean, adapted, 2.0) << "it must not hunt";
}

TEST(CameraGain, AutomaticDoesNotWorkAgainstTheOperatorsBrightness) {
    Camera rig;
    rig.gain(-1);
    const double neutral = rig.greyAfter(1000.0).mean;
    rig.set(light, same, 90.0);
    EXPECT_GT(rig.greyAfter(1000.0).mean, neutral + 50.0);
}

TEST(CameraLamp, IsDimmedWhileTheHostRunsAndTheNoiseStays) {
    TruthRig rig("[Camera]\nNoise=3\n");
    rig.gain(unityGain);
    rig.live();
    const double bright = rig.greyAfter().mean;
    rig.configure("[Camera]\nNoise=3\nLamp=0.5\n");
    EXPECT_NEAR(rig.greyAfter().mean, bright / 2.0, 4.0);
    rig.configure("[Camera]\nNoise=3\nLamp=0\n");
    rig.video().TarnVideoCameraSetReferences(light, 50.0, 70.0);
    const TruthRig::Grey dark = rig.greyAfter();
    EXPECT_NEAR(dark.mean, 40.0, 1.0) << "no light, but 40 grey levels of brightness";
    EXPECT_NEAR(std::sqrt(dark.variance), 3.0, 0.3);
    rig.configure("[Camera]\nNoise=3\nLamp=2\n");
    EXPECT_GT(rig.greyAfter().mean, bright);
    EXPECT_EQ(rig.timesInLog("Lamp=2 is not a usable value"), 1);
}

TEST(CameraNoise, TheRangeOfTheSettingIsWhatTheSensorCanDo) { EXPECT_EQ(settings::noise.highest, 30.0); }

TEST(CameraType, SizeRateAndColourChangeWhileTheVideoRuns) {
    struct {
        TarnLong type;
        int width, height, framesPerSecond;
        bool colour;
    } const rows[] = {{1, 768, 576, 25, false},
                      {2, 640, 480, 30, true},
                      {3, 768, 576, 25, true},
                      {4, 640, 480, 30, false},
                      {1, 768, 576, 25, false}};
    Camera rig;
    for (const auto& row : rows) {
        rig.video().TarnVideoSetCurrentCameraType(row.type);
        rig.clock->advance(100.0);
        const std::int64_t before = rig.host->camera().lastFrameNumber();
        const ocuva::FramePtr frame = rig.frameAfter(1000.0);
        EXPECT_EQ(frame->width, row.width);
        EXPECT_EQ(frame->height, row.height);
        EXPECT_NEAR(static_cast<double>(frame->number - before), row.framesPerSecond, 1.0);
        double most = 0.0;
        for (const std::uint32_t pixel : frame->pixels) {
            most = std::max(most, std::abs(chroma(pixel)));
        }
        EXPECT_EQ(most > 2.0, row.colour) << row.type;
    }
}

} // namespace
} // namespace hosts::simulated
