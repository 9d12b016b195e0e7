// How good the focus search is: against the truth of the simulated world, through the host's own functions.

#include "hosts/simulated/mechanics/MotionProfile.h"
#include "tests/support/FocusRig.h"

#include <gmock/gmock.h>

namespace hosts::simulated::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr int starts = OCUVA_FOCUS_STARTS; // a hundred, fewer under sanitizers

// Starts from which the search ends within a unit of the surface.
int successes(FocusRig& rig, std::uint32_t seed) {
    int found = 0;
    for (const FocusStart& start : texturedStarts(rig, starts, seed)) {
        rig.go(start);
        const bool ended = rig.search();
        const bool good = ended && rig.error() <= 1.0;
        EXPECT_EQ(rig.at(1), start.x);
        EXPECT_EQ(rig.at(2), start.y);
        found += good ? 1 : 0;
        if (!good) {
            std::printf("off by %.2f: x %d, y %d, from z %d, camera %d\n", rig.error(), start.x, start.y,
                        start.z, start.cameraType);
        }
    }
    return found;
}

// Milliseconds from one height to the next and to the next, at the usual speed of Z.
double travelMs(const std::vector<double>& heights) {
    const AxisSettings z = StageSettings().z;
    double sum = 0.0;
    for (std::size_t i = 1; i < heights.size(); ++i) {
        sum += MotionProfile(0.0, {heights[i - 1], 0.0}, heights[i], {z.speed, z.acceleration}).endMs();
    }
    return sum;
}

TEST(FocusSuccess, WithTheUsualParametersFindsTheSurfaceFromNinetyNineOfAHundredStarts) {
    FocusRig rig;
    EXPECT_GE(successes(rig, 11), starts - starts / 100);
}

TEST(FocusSuccess, WithFifteenPointsFindsTheSurfaceFromEveryStart) {
    FocusRig rig;
    rig.set("Fine Parameters", "Number of points", 15);
    EXPECT_EQ(successes(rig, 12), starts);
}

TEST(FocusSuccess, OnASmallPartOfThePictureFindsTheSurfaceToo) {
    FocusRig rig;
    rig.measurePart(8);
    for (const FocusStart& start : texturedStarts(rig, 12, 13)) {
        rig.go(start);
        EXPECT_TRUE(rig.search());
        EXPECT_LE(rig.error(), 1.0) << start.x << ", " << start.y << " from " << start.z;
    }
}

TEST(FocusSuccess, TakesLittleLongerThanTheTravelAndTheFramesNeed) {
    FocusRig rig;
    for (const FocusStart& start : texturedStarts(rig, 12, 14)) {
        rig.go(start);
        const double beganMs = rig.clock->nowMs();
        ASSERT_TRUE(rig.search());
        const double tookMs = rig.clock->nowMs() - beganMs;
        std::vector<double> heights{static_cast<double>(start.z)};
        for (int i = 0; i < 7; ++i) {
            heights.push_back(start.z - 9.0 + 3.0 * i);
        }
        heights.push_back(rig.at(3));
        const double neededMs =
            travelMs(heights) + 7.0 * 1000.0 / cameraMode(start.cameraType).framesPerSecond;
        EXPECT_GE(tookMs, neededMs);
        EXPECT_LE(tookMs, 1.15 * neededMs) << "from " << start.z << " to " << rig.at(3);
    }
}

TEST(FocusSuccess, OnEpoxyThereIsNoPeakAndZGoesBack) {
    FocusRig rig;
    rig.measurePart(8);
    const Mount mount = rig.world().mounts().front();
    for (const TarnLong cameraType : {3, 4}) {
        const double y = mount.y + (World::kRingRadius + World::kEpoxyRadius) / 2.0;
        const auto z = static_cast<TarnLong>(std::lround(rig.host.trueSurface().at(mount.x, y))) + 4;
        rig.go({static_cast<TarnLong>(mount.x), static_cast<TarnLong>(y), z, cameraType});
        EXPECT_FALSE(rig.search());
        EXPECT_EQ(rig.at(3), z);
        EXPECT_THAT(rig.log(), HasSubstr("autofocus: flat: "));
        EXPECT_THAT(rig.log(), HasSubstr("; back at Z=" + std::to_string(z)));
    }
}

TEST(FocusSuccess, InTheDarkThereIsNoPeakAndZGoesBack) {
    FocusRig rig;
    rig.host.tn_video().TarnVideoCameraSetReferences(1, 0.0, 0.0);
    rig.go({1000, 1000, 3, 3});
    EXPECT_FALSE(rig.search());
    EXPECT_EQ(rig.at(3), 3);
    EXPECT_THAT(rig.log(), HasSubstr("autofocus: flat: "));
}

TEST(FocusSuccess, AFaintPictureIsEnough) {
    FocusRig rig;
    rig.host.tn_video().TarnVideoCameraSetReferences(1, 10.0, 50.0);
    for (const FocusStart& start : texturedStarts(rig, 8, 15)) {
        rig.go(start);
        EXPECT_TRUE(rig.search());
        EXPECT_LE(rig.error(), 1.0);
    }
}

TEST(FocusSuccess, SearchingAgainAndAgainWalksToAFarFocus) {
    FocusRig rig;
    rig.go({1000, 1000, 0, 3});
    const double surface = rig.host.trueSurface().at(1000.0, 1000.0);
    for (const double away : {45.0, -100.0}) {
        rig.go(3, static_cast<TarnLong>(std::lround(surface + away)));
        double error = rig.error();
        while (rig.error() > 1.0) {
            ASSERT_TRUE(rig.search());
            ASSERT_LT(rig.error(), error) << rig.log();
            error = rig.error();
        }
    }
    EXPECT_THAT(rig.log(), HasSubstr("peak at the edge of the range"));
}

TEST(FocusSuccess, WithoutAReadyBoardThereAreNoFrames) {
    FocusRig rig;
    rig.host.tn_video().TarnVideoBoardShutdown();
    EXPECT_FALSE(rig.search());
    EXPECT_EQ(rig.at(3), 0);
    EXPECT_THAT(rig.log(), HasSubstr("autofocus: no frames: "));
}

TEST(FocusSuccess, LiveVideoContinuesDuringAndAfterTheSearch) {
    FocusRig rig;
    rig.host.tn_video().TarnVideoBoardStartGrab(1, 1);
    rig.clock->advance(50.0);
    const std::int64_t before = rig.host.board().currentFrame()->number;
    EXPECT_TRUE(rig.search());
    const std::int64_t after = rig.host.board().currentFrame()->number;
    EXPECT_GT(after, before + 15) << "a second of search";
    rig.clock->advance(50.0);
    EXPECT_GT(rig.host.board().currentFrame()->number, after);
}

TEST(FocusSuccess, EachSearchReadsTheParametersAfresh) {
    FocusRig rig;
    rig.go({1000, 1000, 40, 3});
    EXPECT_TRUE(rig.search());
    EXPECT_EQ(rig.at(3), 31) << "half of 18 down";
    rig.set("Fine Parameters", "Z Range", 100);
    rig.set("Fine Parameters", "Number of points", 31);
    EXPECT_TRUE(rig.search());
    EXPECT_LE(rig.error(), 1.0);
    EXPECT_THAT(rig.log(), Not(HasSubstr("transmitted")));
    rig.set("Configuration", "UseTransmittedLight", 1);
    EXPECT_TRUE(rig.search());
    EXPECT_THAT(rig.log(), HasSubstr("transmitted light"));
}

} // namespace
} // namespace hosts::simulated::testing
