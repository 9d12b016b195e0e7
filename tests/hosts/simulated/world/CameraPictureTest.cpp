#include "hosts/simulated/world/CameraPicture.h"

#include "PictureRig.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace hosts::simulated {
namespace {

using testing::Picture;
using testing::Rig;

TEST(CameraMode, EachTypeHasItsStandard) {
    const auto is = [](int type, int width, int height, double rate, bool colour) {
        const CameraMode mode = cameraMode(type);
        EXPECT_EQ(mode.width, width) << type;
        EXPECT_EQ(mode.height, height) << type;
        EXPECT_EQ(mode.framesPerSecond, rate) << type;
        EXPECT_EQ(mode.colour, colour) << type;
    };
    is(1, 768, 576, 25.0, false);
    is(2, 640, 480, 30.0, true);
    is(3, 768, 576, 25.0, true);
    is(4, 640, 480, 30.0, false);
    is(0, 768, 576, 25.0, true);
    is(-7, 768, 576, 25.0, true);
}

TEST(CameraPicture, GreyCamerasGiveGreyAndColourCamerasColour) {
    for (int type = 1; type <= 4; ++type) {
        Rig rig;
        rig.optics.noise = 2.0;
        rig.exposure.mode = cameraMode(type);
        const Picture picture = rig.take();
        std::size_t coloured = 0;
        for (const std::uint32_t pixel : picture.pixels) {
            EXPECT_EQ(pixel >> 24U, 0xffU);
            coloured +=
                (pixel >> 16U & 0xffU) != (pixel & 0xffU) || (pixel >> 8U & 0xffU) != (pixel & 0xffU) ? 1 : 0;
        }
        EXPECT_EQ(coloured > picture.pixels.size() / 2, cameraMode(type).colour) << type;
        if (!cameraMode(type).colour) {
            EXPECT_EQ(coloured, 0U) << type;
        }
    }
}

TEST(CameraPicture, TheSamePlaceAlwaysLooksTheSame) {
    Rig rig;
    rig.optics.noise = 2.0;
    const World world(rig.seed, rig.mounts);
    CameraPicture wanderer(world, rig.surface, rig.optics);
    Exposure exposure = rig.exposure;
    for (const double z : {0.0, 4.0, 40.0}) {
        for (int i = 0; i < 6; ++i) {
            exposure.stageX = 117.3 * i;
            exposure.stageY = -61.7 * i;
            exposure.stageZ = z;
            exposure.frameNumber = static_cast<std::uint64_t>(i);
            Rig::take(wanderer, exposure);
        }
        rig.exposure = exposure;
        EXPECT_EQ(rig.take().pixels, Rig::take(wanderer, exposure).pixels) << z;
    }
}

TEST(CameraPicture, GetsLessSharpWithDistanceFromTheSurface) {
    Rig rig;
    rig.surface.height = 300.0;
    double last = 1e300;
    for (const double defocus : {0.0, 2.0, 3.0, 5.0, 8.0, 13.0, 20.0, 30.0, 50.0, 90.0, 160.0}) {
        const double energy = rig.at(0, 0, 300.0 + defocus).gradientEnergy();
        EXPECT_LT(energy, last) << defocus;
        last = energy;
    }
    EXPECT_LT(last, 1.0) << "haze";
}

TEST(CameraPicture, BlurIsTheSameAboveAndBelowTheSurface) {
    Rig rig;
    EXPECT_EQ(rig.at(0, 0, 6.0).pixels, rig.at(0, 0, -6.0).pixels);
}

TEST(CameraPicture, IsAsSharpAnywhereWithinTheDepthOfField) {
    Rig rig;
    EXPECT_EQ(rig.at(0, 0, 0.0).pixels, rig.at(0, 0, 0.99).pixels);
}

TEST(CameraPicture, FocusTravelHasNoJumps) {
    Rig rig;
    // Through every change of working scale: neighbouring focus positions differ a little everywhere.
    Picture last = rig.at(0, 0, 5.0);
    for (double z = 5.25; z < 60.0; z *= 1.05) {
        const Picture next = rig.at(0, 0, z);
        double sum = 0.0;
        for (int y = 0; y < next.height; ++y) {
            for (int x = 0; x < next.width; ++x) {
                sum += std::abs(next.green(x, y) - last.green(x, y));
            }
        }
        EXPECT_LT(sum / static_cast<double>(next.pixels.size()), 2.0) << z;
        last = next;
    }
}

TEST(CameraPicture, ATiltedSurfaceIsSharpOnlyAlongALine) {
    Rig rig;
    rig.surface.tiltX = 0.05;
    const Picture picture = rig.at(0, 0);
    const double left = picture.gradientEnergy(0, 150);
    const double middle = picture.gradientEnergy(310, 460);
    const double right = picture.gradientEnergy(617, 767);
    EXPECT_GT(middle, 2 * left);
    EXPECT_GT(middle, 2 * right);
}

TEST(CameraPicture, UnevenBlurShowsNoSeams) {
    // A bare edge-free ground under strong tilt: steps across block borders are no larger than elsewhere.
    Rig rig;
    rig.surface.tiltX = 0.03;
    rig.surface.height = 12.0;
    const Picture picture = rig.at(0, 0);
    std::vector<double> steps(static_cast<std::size_t>(picture.width - 1));
    for (int x = 0; x + 1 < picture.width; ++x) {
        for (int y = 0; y < picture.height; ++y) {
            steps[static_cast<std::size_t>(x)] += std::abs(picture.green(x + 1, y) - 2 * picture.green(x, y) +
                                                           picture.green(std::max(0, x - 1), y));
        }
    }
    for (std::size_t x = 10; x + 10 < steps.size(); ++x) {
        std::vector<double> around(steps.begin() + static_cast<std::ptrdiff_t>(x) - 8,
                                   steps.begin() + static_cast<std::ptrdiff_t>(x) + 9);
        std::nth_element(around.begin(), around.begin() + 8, around.end());
        EXPECT_LT(steps[x], 1.5 * around[8] + 100.0) << x;
    }
}

// Sum of squared differences of two pictures, the second moved by (dx, dy) pixels.
double mismatch(const Picture& a, const Picture& b, int dx, int dy) {
    double sum = 0.0;
    for (int y = 100; y < a.height - 100; y += 2) {
        for (int x = 150; x < a.width - 150; x += 2) {
            const double step = a.green(x, y) - b.green(x + dx, y + dy);
            sum += step * step;
        }
    }
    return sum;
}

TEST(CameraPicture, AMoveInPlusXCarriesThePictureRightAndInPlusYDown) {
    Rig rig;
    const Picture before = rig.at(0, 0);
    const double perPixel = rig.exposure.fieldWidth / rig.exposure.mode.width;
    const Picture right = rig.at(24 * perPixel, 0);
    EXPECT_LT(mismatch(before, right, 24, 0), 0.02 * mismatch(before, right, 23, 0));
    const Picture down = rig.at(0, 18 * perPixel);
    EXPECT_LT(mismatch(before, down, 0, 18), 0.02 * mismatch(before, down, 0, 17));
}

TEST(CameraPicture, AFractionOfAPixelMovesThePictureByThatFraction) {
    Rig rig;
    const double perPixel = rig.exposure.fieldWidth / rig.exposure.mode.width;
    const Picture whole = rig.at(0, 0, 10);
    const Picture half = rig.at(0.5 * perPixel, 0, 10);
    const Picture next = rig.at(perPixel, 0, 10);
    double sum = 0.0;
    for (int y = 50; y < 500; ++y) {
        for (int x = 50; x < 700; ++x) {
            sum += std::abs(half.green(x, y) - 0.5 * (whole.green(x, y) + next.green(x, y)));
        }
    }
    EXPECT_LT(sum / (450.0 * 650.0), 0.6);
}

TEST(CameraPicture, SharpnessDoesNotDependOnTheFractionOfAPixel) {
    Rig rig;
    const double perPixel = rig.exposure.fieldWidth / rig.exposure.mode.width;
    const double whole = rig.at(0, 0).gradientEnergy();
    EXPECT_NEAR(rig.at(0.5 * perPixel, 0.5 * perPixel).gradientEnergy() / whole, 1.0, 0.12);
}

// Centres of bright lines along a row, in pixels.
std::vector<double> brightLines(const Picture& picture, int row) {
    std::vector<double> centres;
    double weight = 0.0;
    double moment = 0.0;
    for (int x = 0; x < picture.width; ++x) {
        const double over = picture.green(x, row) - 90.0;
        if (over > 0) {
            weight += over;
            moment += over * x;
        } else if (weight > 0) {
            centres.push_back(moment / weight);
            weight = moment = 0.0;
        }
    }
    return centres;
}

TEST(CameraPicture, TheGraticulesLinesAreTenUnitsApart) {
    Rig rig;
    const Picture picture = rig.at(-250, 9000);
    const double perPixel = rig.exposure.fieldWidth / rig.exposure.mode.width;
    // Five units above the base line every mark is crossed.
    const std::vector<double> lines = brightLines(picture, picture.height / 2 - 6);
    ASSERT_GT(lines.size(), 40U);
    // From the picture's centre to the scale's right end, clear of the other scale.
    std::vector<double> clear;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(clear), [](double x) { return x > 250; });
    const double pitch = (clear.back() - clear.front()) / static_cast<double>(clear.size() - 1) * perPixel;
    EXPECT_NEAR(pitch, World::kGraticulePitch, 0.1);
}

TEST(CameraPicture, ThereIsNothingToSeeInEpoxy) {
    Rig rig;
    rig.exposure.fieldWidth = 160;
    rig.exposure.fieldHeight = 120;
    EXPECT_LT(rig.at(7000, 0).gradientEnergy(), 0.5);
}

TEST(CameraPicture, NoiseHasTheConfiguredStrengthAndAveragesOut) {
    Rig rig;
    rig.exposure.fieldWidth = 160;
    rig.exposure.fieldHeight = 120;
    const Picture clean = rig.at(7000, 0);
    const World world(rig.seed, rig.mounts);
    CameraPicture camera(world, rig.surface, {2.0, 2.0});
    constexpr int frames = 64;
    std::vector<double> sums(clean.pixels.size());
    double mean = 0.0;
    double squares = 0.0;
    for (int frame = 0; frame < frames; ++frame) {
        rig.exposure.frameNumber = static_cast<std::uint64_t>(frame) * 1000003U;
        const Picture noisy = Rig::take(camera, rig.exposure);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            const double off = static_cast<double>(noisy.pixels[i] >> 8U & 0xffU) -
                               static_cast<double>(clean.pixels[i] >> 8U & 0xffU);
            sums[i] += off;
            mean += off;
            squares += off * off;
        }
    }
    const auto count = static_cast<double>(sums.size());
    EXPECT_NEAR(mean / (count * frames), 0.0, 0.3);
    EXPECT_NEAR(std::sqrt(squares / (count * frames)), 2.0, 0.15);
    double residue = 0.0;
    for (const double sum : sums) {
        const double off = (sum - mean / count) / frames;
        residue += off * off;
    }
    // Rounding of the clean picture leaves up to 0.29 besides 2 / sqrt(64).
    EXPECT_LT(std::sqrt(residue / count), 0.40);
}

TEST(CameraPicture, EveryFrameHasItsOwnNoiseAndTheSameFrameTheSame) {
    Rig rig;
    rig.optics.noise = 2.0;
    const World world(rig.seed, rig.mounts);
    CameraPicture camera(world, rig.surface, rig.optics);
    const Picture first = Rig::take(camera, rig.exposure);
    rig.exposure.frameNumber = 1;
    const Picture second = Rig::take(camera, rig.exposure);
    rig.exposure.frameNumber = 0;
    EXPECT_NE(first.pixels, second.pixels);
    EXPECT_EQ(first.pixels, Rig::take(camera, rig.exposure).pixels);
}

TEST(CameraPicture, CornersAreALittleDarker) {
    Rig rig;
    rig.exposure.fieldWidth = 160;
    rig.exposure.fieldHeight = 120;
    const Picture picture = rig.at(7000, 0);
    const double middle = picture.red(384, 288);
    EXPECT_NEAR(picture.red(2, 2) / middle, 0.9, 0.03);
    EXPECT_NEAR(picture.red(765, 573) / middle, 0.9, 0.03);
}

TEST(CameraPicture, MeaninglessNumbersNeitherCrashNorHang) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    Rig rig;
    rig.surface = {10.0, 0.01, -0.02, 1e-7};
    const World world(rig.seed, rig.mounts);
    CameraPicture camera(world, rig.surface, {nan, nan});
    for (const double bad : {1e9, -1e9, 1e300, -1e300, nan, infinite, 0.0}) {
        for (const double field : {640.0, 1e-9, 1e12, 0.0, -5.0, nan}) {
            Exposure exposure{cameraMode(2)};
            exposure.stageX = bad;
            exposure.stageY = -bad;
            exposure.stageZ = bad == 0.0 ? 1e6 : -bad;
            exposure.fieldWidth = field;
            exposure.fieldHeight = field;
            EXPECT_EQ(Rig::take(camera, exposure).pixels.back() >> 24U, 0xffU);
        }
    }
}

TEST(CameraPicture, AModeWithoutPixelsLeavesTheBufferAlone) {
    Rig rig;
    const World world(rig.seed, rig.mounts);
    CameraPicture camera(world, rig.surface, rig.optics);
    std::uint32_t pixel = 42;
    for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-3, 10}, {100000, 100000}}) {
        Exposure exposure;
        exposure.mode = {width, height, 25.0, true};
        camera.render(exposure, &pixel);
        EXPECT_EQ(pixel, 42U);
    }
}

TEST(CameraPicture, APictureOfOddSizeIsWholeInAndOutOfFocus) {
    for (const double z : {0.0, 3.0, 12.0, 40.0, 1000.0}) {
        Rig rig;
        rig.exposure.mode = {37, 5, 25.0, true};
        rig.exposure.fieldWidth = 37;
        rig.exposure.fieldHeight = 5;
        const Picture picture = rig.at(3.3, -7.7, z);
        for (const std::uint32_t pixel : picture.pixels) {
            EXPECT_GT(pixel & 0xffffffU, 0x060606U);
        }
    }
}

} // namespace
} // namespace hosts::simulated
