#include "hosts/common/focus/FocusSearch.h"

#include "hosts/simulated/mechanics/StageMechanics.h"
#include "tests/support/TempFolder.h"

#include <cmath>
#include <gmock/gmock.h>

namespace hosts::simulated {
namespace {

using ocuva::axisX;
using ocuva::axisZ;
using ocuva::Long;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Le;

// Upright stripes, two pixels wide.
ocuva::FramePtr stripes(int amplitude) {
    constexpr int side = 32;
    auto frame = std::make_shared<ocuva::Frame>();
    frame->width = side;
    frame->height = side;
    for (int i = 0; i < side * side; ++i) {
        const auto grey = static_cast<std::uint32_t>(128 + ((i / 2) % 2 == 0 ? amplitude : -amplitude));
        frame->pixels.push_back(0xff000000U | grey * 0x10101U);
    }
    return frame;
}

// A world that is sharp at one height.
struct Rig {
    explicit Rig(double focusHeight, const StageSettings& settings = {})
        : focus(focusHeight)
        , stage(clock, settings) {}
    TempFolder folder;
    HostLog log{folder / "tarn.log"};
    VirtualClock clock;
    double focus;
    StageMechanics stage;
    std::vector<Long> tried;
    std::size_t framesLeft = 1000;

    FocusVerdict run(const FocusPlan& plan = {}) {
        FocusSearch search(
            stage, clock, [this] { return expose(); }, log);
        return search.run(plan);
    }
    ocuva::FramePtr expose() {
        bool moving = true;
        EXPECT_TRUE(stage.isMoving(axisZ, moving) && !moving) << "measured while moving";
        if (framesLeft-- == 0) {
            return nullptr;
        }
        tried.push_back(z());
        const double off = stage.exactPosition(axisZ) - focus;
        return stripes(static_cast<int>(std::lround(100.0 / std::sqrt(1.0 + off * off / 25.0))));
    }
    Long z() const {
        Long position = 0;
        stage.position(axisZ, position);
        return position;
    }
    std::string verdict() const { return folder.lines("tarn.log").back(); }
};

StageSettings withZ(AxisSettings z) {
    StageSettings settings;
    settings.z = z;
    return settings;
}

TEST(FocusSearch, EndsAtTheSharpestHeightInsideTheRange) {
    for (const double focus : {0.0, 3.0, -5.0, 4.4, -1.5, 8.2, -8.7}) {
        Rig rig(focus);
        EXPECT_EQ(rig.run(), FocusVerdict::found);
        EXPECT_NEAR(rig.z(), focus, 1.0) << focus;
        EXPECT_THAT(rig.verdict(),
                    HasSubstr("autofocus: found at Z=" + std::to_string(rig.z()) + " with score "));
        EXPECT_THAT(rig.verdict(), HasSubstr("began at Z=0"));
    }
}

TEST(FocusSearch, TriesTheRequestedNumberOfHeightsAcrossTheRange) {
    Rig rig(0.0);
    rig.run({40, 5});
    EXPECT_THAT(rig.tried, ElementsAre(-20, -10, 0, 10, 20));
}

TEST(FocusSearch, HeightsOnTheSameUnitAreTriedOnce) {
    Rig rig(1.0);
    EXPECT_EQ(rig.run({4, 101}), FocusVerdict::found);
    EXPECT_THAT(rig.tried, ElementsAre(-2, -1, 0, 1, 2));
    EXPECT_EQ(rig.z(), 1);
}

TEST(FocusSearch, AFocusBeyondTheRangeLeavesZAtTheEdgeNearestToIt) {
    for (const double focus : {60.0, -14.0}) {
        Rig rig(focus);
        EXPECT_EQ(rig.run(), FocusVerdict::edge);
        EXPECT_EQ(rig.z(), focus > 0.0 ? 9 : -9);
        EXPECT_THAT(rig.verdict(), HasSubstr("peak at the edge of the range"));
        EXPECT_THAT(rig.verdict(), HasSubstr("search again to go on"));
    }
}

TEST(FocusSearch, SearchingAgainAtTheEdgeContinuesFromThere) {
    Rig rig(20.0);
    EXPECT_EQ(rig.run(), FocusVerdict::edge);
    EXPECT_EQ(rig.run(), FocusVerdict::edge);
    EXPECT_EQ(rig.run(), FocusVerdict::found);
    EXPECT_NEAR(rig.z(), 20.0, 1.0);
}

TEST(FocusSearch, APictureWithoutDetailIsFlatAndZGoesBack) {
    Rig rig(0.0);
    FocusSearch search(
        rig.stage, rig.clock, [] { return stripes(0); }, rig.log);
    EXPECT_EQ(search.run({}), FocusVerdict::flat);
    EXPECT_EQ(rig.z(), 0);
    EXPECT_THAT(rig.verdict(), HasSubstr("autofocus: flat: "));
    EXPECT_THAT(rig.verdict(), HasSubstr("back at Z=0"));
}

TEST(FocusSearch, NoHeightIsOutsideTheLimits) {
    Rig rig(992.0, withZ({-1000, 1000, 200.0, 2000.0, 995, 10}));
    EXPECT_EQ(rig.run(), FocusVerdict::found);
    EXPECT_NEAR(rig.z(), 992.0, 1.0);
    EXPECT_THAT(rig.tried, Each(Le(1000)));
    EXPECT_EQ(rig.tried.size(), 7U);
}

TEST(FocusSearch, AnEdgeThatIsALimitOfTheStageSaysSo) {
    Rig rig(-12.0, withZ({-5, 5, 200.0, 2000.0, 0, 10}));
    EXPECT_EQ(rig.run(), FocusVerdict::edge);
    EXPECT_EQ(rig.z(), -5);
    EXPECT_THAT(rig.verdict(), HasSubstr("this is a limit of the stage"));
}

TEST(FocusSearch, AStageThatCannotLeaveItsHeightHasNothingToFind) {
    Rig rig(0.0, withZ({7, 7, 200.0, 2000.0, 7, 10}));
    EXPECT_EQ(rig.run(), FocusVerdict::flat);
    EXPECT_EQ(rig.z(), 7);
}

TEST(FocusSearch, APlanWithoutHeightsFindsNothing) {
    for (const FocusPlan& plan : {FocusPlan{18, 0}, FocusPlan{0, 7}, FocusPlan{-40, 7}, FocusPlan{18, -1}}) {
        Rig rig(0.0);
        EXPECT_EQ(rig.run(plan), FocusVerdict::flat);
        EXPECT_EQ(rig.z(), 0);
    }
}

TEST(FocusSearch, WaitsForMovesOfAnyAxisThatAreUnderWay) {
    Rig rig(22.0);
    rig.stage.loadAbsolute(axisX, 20000.0);
    rig.stage.start(axisX);
    rig.stage.loadAbsolute(axisZ, 20.0);
    rig.stage.start(axisZ);
    EXPECT_EQ(rig.run(), FocusVerdict::found);
    EXPECT_NEAR(rig.z(), 22.0, 1.0);
    EXPECT_EQ(rig.stage.exactPosition(axisX), 20000.0);
}

TEST(FocusSearch, TheLastMoveComesFromBelow) {
    for (const double focus : {0.0, -5.0, 7.0}) {
        Rig rig(focus);
        FocusSearch search(
            rig.stage, rig.clock, [&rig] { return rig.expose(); }, rig.log);
        std::vector<double> places;
        const int watcher =
            rig.clock.addTicker({[&] { return rig.clock.nowMs() + 1.0; },
                                 [&](double) { places.push_back(rig.stage.exactPosition(axisZ)); }});
        EXPECT_EQ(search.run({}), FocusVerdict::found);
        rig.clock.removeTicker(watcher);
        while (!places.empty() && places.back() == rig.z()) {
            places.pop_back();
        }
        ASSERT_FALSE(places.empty());
        EXPECT_LT(places.back(), rig.z());
    }
}

TEST(FocusSearch, WithoutFramesZGoesBack) {
    for (const std::size_t frames : {0, 3, 6}) {
        Rig rig(4.0);
        rig.framesLeft = frames;
        EXPECT_EQ(rig.run(), FocusVerdict::noFrames);
        EXPECT_EQ(rig.z(), 0);
        EXPECT_THAT(rig.verdict(), HasSubstr("autofocus: no frames: "));
    }
}

TEST(FocusSearch, AStageThatGetsStuckIsGivenUpAfterAWhile) {
    Rig rig(4.0, withZ({-1000, 1000, 1e-6, 1.0, 0, 10}));
    EXPECT_EQ(rig.run(), FocusVerdict::refused);
    EXPECT_LT(rig.clock.nowMs(), 3.0 * FocusSearch::stallMs);
    EXPECT_THAT(rig.verdict(), HasSubstr("autofocus: refused: the stage does not go to Z=-9"));
}

TEST(FocusSearch, AStageThatNeverComesToRestIsLeftAlone) {
    Rig rig(4.0, withZ({-1000, 1000, 1e-6, 1.0, 0, 10}));
    rig.stage.loadAbsolute(axisZ, 500.0);
    rig.stage.start(axisZ);
    EXPECT_EQ(rig.run(), FocusVerdict::refused);
    EXPECT_TRUE(rig.tried.empty());
    EXPECT_THAT(rig.verdict(), HasSubstr("autofocus: refused: the stage is moving"));
}

TEST(FocusSearch, ASlowStageIsWaitedFor) {
    Rig rig(4.0, withZ({-1000, 1000, 1.0, 1.0, 0, 10}));
    EXPECT_EQ(rig.run(), FocusVerdict::found);
    EXPECT_NEAR(rig.z(), 4.0, 1.0);
}

TEST(FocusSearch, MissingTransmittedLightIsLogged) {
    Rig rig(4.0);
    EXPECT_EQ(rig.run({18, 7, 1, true}), FocusVerdict::found);
    EXPECT_THAT(rig.folder.read("tarn.log"), HasSubstr("transmitted light"));
}

} // namespace
} // namespace hosts::simulated
