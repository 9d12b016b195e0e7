#include "simhost/FocusSearch.h"

#include "tests/simhost/services/TempFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace simhost {
namespace {

using ocuva::axisZ;
using ocuva::Long;

ocuva::FramePtr stripes(int amplitude, int side = 32) {
    auto frame = std::make_shared<ocuva::Frame>();
    frame->width = side;
    frame->height = side;
    for (int i = 0; i < side * side; ++i) {
        const auto grey = static_cast<std::uint32_t>(128 + ((i / 2) % 2 == 0 ? amplitude : -amplitude));
        frame->pixels.push_back(0xff000000U | grey << 16 | grey << 8 | grey);
    }
    return frame;
}

// A world that is sharp at one height.
struct Rig {
    explicit Rig(double focusHeight, const StageSettings& settings = {})
        : focus(focusHeight)
        , stage(clock, settings) {}
    TempFolder folder;
    HostLog log{folder / "tarn.log", [] { return std::string("now"); }};
    VirtualClock clock;
    double focus;
    StageMechanics stage;
    std::vector<Long> tried;

    bool run(const FocusPlan& plan = {}) {
        FocusSearch search(
            stage, clock,
            [this] {
                bool moving = true;
                EXPECT_TRUE(stage.isMoving(axisZ, moving) && !moving) << "measured while moving";
                tried.push_back(z());
                const double off = stage.exactPosition(axisZ) - focus;
                return stripes(static_cast<int>(std::lround(100.0 / (1.0 + off * off / 12.0))));
            },
            log);
        return search.run(plan);
    }
    Long z() const {
        Long position = 0;
        stage.position(axisZ, position);
        return position;
    }
};

TEST(FocusSearch, FindsTheSharpestHeightInsideTheRange) {
    for (const double focus : {0.0, 3.0, -5.0, 4.4, -1.5}) {
        Rig rig(focus);
        EXPECT_TRUE(rig.run());
        EXPECT_NEAR(rig.z(), focus, 1.0) << focus;
    }
}

TEST(FocusSearch, TriesAsManyHeightsAsAskedOverTheWholeRange) {
    Rig rig(0.0);
    FocusPlan plan;
    plan.range = 40.0;
    plan.points = 5;
    rig.run(plan);
    EXPECT_EQ(rig.tried, (std::vector<Long>{-20, -10, 0, 10, 20}));
}

TEST(FocusSearch, AFocusOutsideTheRangeIsNotFoundAndZGoesBack) {
    Rig rig(60.0);
    EXPECT_FALSE(rig.run());
    EXPECT_EQ(rig.z(), 0);
    EXPECT_NE(rig.folder.read("tarn.log").find("no peak"), std::string::npos);
}

TEST(FocusSearch, APictureWithoutDetailHasNoFocus) {
    Rig rig(0.0);
    FocusSearch search(
        rig.stage, rig.clock, [] { return stripes(0); }, rig.log);
    EXPECT_FALSE(search.run({}));
    EXPECT_EQ(rig.z(), 0);
}

TEST(FocusSearch, TheRangeIsCutAtTheLimits) {
    StageSettings settings;
    settings.z.start = 995;
    Rig rig(992.0, settings);
    EXPECT_TRUE(rig.run());
    EXPECT_NEAR(rig.z(), 992.0, 1.0);
    for (const Long z : rig.tried) {
        EXPECT_LE(z, 1000);
    }
}

TEST(FocusSearch, ARangeTooSmallForThreeHeightsFindsNothing) {
    Rig rig(0.0);
    FocusPlan plan;
    plan.range = 1.0;
    EXPECT_FALSE(rig.run(plan));
    plan.points = 0;
    EXPECT_FALSE(rig.run(plan));
    EXPECT_EQ(rig.z(), 0);
}

TEST(FocusSearch, WaitsForAMoveThatIsStillUnderWay) {
    Rig rig(22.0);
    rig.stage.loadAbsolute(axisZ, 20.0);
    rig.stage.start(axisZ);
    EXPECT_TRUE(rig.run());
    EXPECT_NEAR(rig.z(), 22.0, 1.0);
}

TEST(FocusSearch, GradientEnergyLooksAtTheMiddlePartAlone) {
    auto frame = std::make_shared<ocuva::Frame>(*stripes(0, 40));
    frame->pixels[0] = 0xffffffffU;
    EXPECT_GT(gradientEnergy(*frame, 1), 0.0);
    EXPECT_EQ(gradientEnergy(*frame, 2), 0.0);
    frame->pixels[20 * 40 + 20] = 0xffffffffU;
    EXPECT_GT(gradientEnergy(*frame, 4), 0.0);
}

TEST(FocusSearch, AFrameWithoutNeighboursHasNoGradient) {
    EXPECT_EQ(gradientEnergy(*stripes(100, 1), 1), 0.0);
    EXPECT_EQ(gradientEnergy(ocuva::Frame(), 1), 0.0);
    EXPECT_EQ(gradientEnergy(*stripes(100, 8), 1000), 0.0);
    EXPECT_GT(gradientEnergy(*stripes(100, 8), -1), 0.0);
}

} // namespace
} // namespace simhost
