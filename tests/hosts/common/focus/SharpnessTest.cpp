#include "hosts/common/focus/Sharpness.h"

#include <gtest/gtest.h>
#include <random>

namespace hosts {
namespace {

template <typename Grey> ocuva::Frame frameOf(int width, int height, Grey grey) {
    ocuva::Frame frame;
    frame.width = width;
    frame.height = height;
    for (int i = 0; i < width * height; ++i) {
        frame.pixels.push_back(0xff000000U |
                               static_cast<std::uint32_t>(grey(i % width, i / width)) * 0x10101U);
    }
    return frame;
}

ocuva::Frame noisy(double rms, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(128.0, rms);
    return frameOf(200, 150, [&](int, int) { return static_cast<int>(noise(random)); });
}

TEST(Sharpness, AnEvenPictureScoresNothing) {
    const Sharpness even = sharpnessOf(frameOf(40, 30, [](int, int) { return 77; }), 1);
    EXPECT_EQ(even.score, 0.0);
    EXPECT_EQ(even.uncertainty, 0.0);
}

TEST(Sharpness, WiderEdgesScoreLess) {
    double before = 1e9;
    for (const int width : {2, 3, 5, 9, 20}) {
        const double score = sharpnessOf(frameOf(60, 60,
                                                 [width](int x, int) {
                                                     return 50 + 100 * std::clamp(x - 20, 0, width) / width;
                                                 }),
                                         1)
                                 .score;
        EXPECT_LT(score, before) << width;
        EXPECT_GT(score, 0.0) << width;
        before = score;
    }
}

TEST(Sharpness, EdgesInBothDirectionsCountAlike) {
    const auto edge = [](int place) { return place < 30 ? 60 : 180; };
    const Sharpness upright = sharpnessOf(frameOf(60, 60, [&](int x, int) { return edge(x); }), 1);
    const Sharpness level = sharpnessOf(frameOf(60, 60, [&](int, int y) { return edge(y); }), 1);
    EXPECT_GT(upright.score, 0.0);
    EXPECT_EQ(upright.score, level.score);
}

TEST(Sharpness, NoiseMovesTheScoreByItsUncertaintyAndNoMore) {
    for (const double rms : {1.0, 2.0, 10.0}) {
        double squares = 0.0;
        double sum = 0.0;
        constexpr int frames = 100;
        double uncertainty = 0.0;
        for (std::uint32_t seed = 0; seed < frames; ++seed) {
            const Sharpness one = sharpnessOf(noisy(rms, seed), 1);
            sum += one.score;
            squares += one.score * one.score;
            uncertainty = one.uncertainty;
        }
        const double deviation = std::sqrt(squares / frames);
        EXPECT_LT(std::abs(sum / frames), uncertainty / 2.0) << rms;
        EXPECT_LT(deviation, 1.5 * uncertainty) << rms;
        EXPECT_GT(deviation, 0.5 * uncertainty) << rms;
    }
}

TEST(Sharpness, LooksAtTheMiddlePartAlone) {
    const auto dotAt = [](int dotX, int dotY) {
        return frameOf(80, 64, [=](int x, int y) { return x == dotX && y == dotY ? 255 : 10; });
    };
    // A single dot is all between neighbours, so its score is below 0; what matters is that it counts.
    const auto counts = [](const ocuva::Frame& frame, int fraction) {
        return sharpnessOf(frame, fraction).uncertainty > 0.0;
    };
    EXPECT_TRUE(counts(dotAt(0, 0), 1));
    EXPECT_FALSE(counts(dotAt(0, 0), 2));
    EXPECT_TRUE(counts(dotAt(20, 16), 2));
    EXPECT_FALSE(counts(dotAt(19, 16), 2));
    EXPECT_FALSE(counts(dotAt(20, 15), 2));
    EXPECT_TRUE(counts(dotAt(40, 32), 8));
    EXPECT_FALSE(counts(dotAt(34, 32), 8));
}

TEST(Sharpness, APartTooSmallToCompareScoresNothing) {
    const auto checks = [](int x, int y) { return (x + y) % 2 * 200; };
    EXPECT_EQ(sharpnessOf(ocuva::Frame(), 1).score, 0.0);
    EXPECT_EQ(sharpnessOf(frameOf(2, 50, checks), 1).uncertainty, 0.0);
    EXPECT_EQ(sharpnessOf(frameOf(50, 2, checks), 1).uncertainty, 0.0);
    EXPECT_EQ(sharpnessOf(frameOf(50, 50, checks), 1000).uncertainty, 0.0);
    EXPECT_GT(sharpnessOf(frameOf(3, 3, checks), 1).uncertainty, 0.0);
    EXPECT_GT(sharpnessOf(frameOf(50, 50, checks), -7).uncertainty, 0.0);
}

} // namespace
} // namespace hosts
