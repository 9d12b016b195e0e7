#include "hosts/common/focus/FocusPeak.h"

#include <gtest/gtest.h>
#include <limits>

namespace hosts {
namespace {

using Kind = FocusPeak::Kind;

// Seven heights, three units apart, around 0.
std::vector<FocusSample> sweep(double focus, double width = 7.0, double uncertainty = 0.01) {
    std::vector<FocusSample> samples;
    for (ocuva::Long z = -9; z <= 9; z += 3) {
        const double off = (z - focus) / width;
        samples.push_back({z, {200.0 / (1.0 + off * off), uncertainty}});
    }
    return samples;
}

TEST(FocusPeak, IsFoundAnywhereInsideTheSweep) {
    for (double focus = -9.0; focus <= 9.0; focus += 0.25) {
        for (const double width : {4.5, 7.0, 30.0}) {
            const FocusPeak peak = focusPeak(sweep(focus, width));
            EXPECT_NEAR(peak.z, focus, 1e-3) << width;
        }
    }
}

TEST(FocusPeak, AFocusBetweenAnEndAndItsNeighbourIsInside) {
    EXPECT_EQ(focusPeak(sweep(-8.5)).kind, Kind::inside);
    EXPECT_EQ(focusPeak(sweep(8.5)).kind, Kind::inside);
}

TEST(FocusPeak, AFocusBeyondTheSweepIsAnEdge) {
    for (const double focus : {-60.0, -12.0, -9.5}) {
        const FocusPeak peak = focusPeak(sweep(focus));
        EXPECT_EQ(peak.kind, Kind::edge) << focus;
        EXPECT_EQ(peak.z, -9.0);
    }
    const FocusPeak above = focusPeak(sweep(15.0));
    EXPECT_EQ(above.kind, Kind::edge);
    EXPECT_EQ(above.z, 9.0);
    EXPECT_EQ(above.score, sweep(15.0).back().sharpness.score);
}

TEST(FocusPeak, DifferencesThatNoiseAloneMakesAreFlat) {
    std::vector<FocusSample> samples = sweep(0.0, 7.0, 30.0);
    EXPECT_EQ(focusPeak(samples).kind, Kind::flat) << "a rise of 125 with an uncertainty of 30";
    for (FocusSample& sample : samples) {
        sample.sharpness = {};
    }
    EXPECT_EQ(focusPeak(samples).kind, Kind::flat);
    for (FocusSample& sample : samples) {
        sample.sharpness.score = -1.0 - static_cast<double>(sample.z) / 10.0;
    }
    EXPECT_EQ(focusPeak(samples).kind, Kind::flat) << "no score above nothing";
}

TEST(FocusPeak, OneHeightIsFlatAndTwoHaveAnEdge) {
    EXPECT_EQ(focusPeak({}).kind, Kind::flat);
    EXPECT_EQ(focusPeak({{5, {100.0, 0.1}}}).kind, Kind::flat);
    const FocusPeak two = focusPeak({{5, {100.0, 0.1}}, {8, {50.0, 0.1}}});
    EXPECT_EQ(two.kind, Kind::edge);
    EXPECT_EQ(two.z, 5.0);
}

TEST(FocusPeak, AWideSweepWithOneSharpHeightStaysNearIt) {
    std::vector<FocusSample> samples;
    for (ocuva::Long z = -1000; z <= 1000; z += 100) {
        samples.push_back({z, {z == 300 ? 500.0 : 0.01, 0.001}});
    }
    const FocusPeak peak = focusPeak(samples);
    EXPECT_EQ(peak.kind, Kind::inside);
    EXPECT_GE(peak.z, 200.0);
    EXPECT_LE(peak.z, 400.0);
}

TEST(FocusPeak, ALevelTopIsItsMiddleWithinASample) {
    const FocusPeak peak = focusPeak({{-3, {50, 0.1}},
                                      {-2, {90, 0.1}},
                                      {-1, {100, 0.1}},
                                      {0, {100, 0.1}},
                                      {1, {100, 0.1}},
                                      {2, {90, 0.1}},
                                      {3, {50, 0.1}}});
    EXPECT_EQ(peak.kind, Kind::inside);
    EXPECT_NEAR(peak.z, 0.0, 1e-9);
}

TEST(FocusPeak, ExtremeStageUnitsAreHandled) {
    constexpr ocuva::Long most = std::numeric_limits<ocuva::Long>::max();
    constexpr ocuva::Long least = std::numeric_limits<ocuva::Long>::min();
    const FocusPeak peak = focusPeak({{least, {50, 0.1}}, {0, {100, 0.1}}, {most, {50, 0.1}}});
    EXPECT_EQ(peak.kind, Kind::inside);
    EXPECT_NEAR(peak.z, 0.0, 1.0);
}

} // namespace
} // namespace hosts
