#include "hosts/simulated/mechanics/StageMechanics.h"

#include "base/Types.h"

#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <thread>

namespace hosts::simulated {
namespace {

using ocuva::axisAll;
using ocuva::axisX;
using ocuva::axisY;
using ocuva::axisZ;
using ocuva::Long;

struct Rig {
    explicit Rig(const StageSettings& settings = {})
        : stage(clock, settings) {}
    VirtualClock clock;
    StageMechanics stage;

    Long at(Long axis) const {
        Long position = -999999;
        EXPECT_TRUE(stage.position(axis, position));
        return position;
    }
    bool moving(Long axis) {
        bool moving = false;
        EXPECT_TRUE(stage.isMoving(axis, moving));
        return moving;
    }
    void settle() { clock.advance(60000.0); }
};

TEST(StageMechanics, IsAtItsStartPositionAndDoesNotMove) {
    StageSettings settings;
    settings.x.start = 120;
    settings.z.start = -7;
    Rig rig(settings);
    EXPECT_EQ(rig.at(axisX), 120);
    EXPECT_EQ(rig.at(axisY), 0);
    EXPECT_EQ(rig.at(axisZ), -7);
    EXPECT_FALSE(rig.moving(axisX));
}

TEST(StageMechanics, ALoadedMoveWaitsForTheStart) {
    Rig rig;
    ASSERT_TRUE(rig.stage.loadAbsolute(axisX, 500.0));
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 0);
    EXPECT_TRUE(rig.stage.start(axisX));
    EXPECT_TRUE(rig.moving(axisX));
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 500);
    EXPECT_FALSE(rig.moving(axisX));
}

TEST(StageMechanics, AStartWithNothingLoadedIsRefused) {
    Rig rig;
    EXPECT_FALSE(rig.stage.start(axisX));
    EXPECT_FALSE(rig.stage.start(axisAll));
    rig.stage.loadAbsolute(axisX, 5.0);
    EXPECT_TRUE(rig.stage.start(axisX));
    EXPECT_FALSE(rig.stage.start(axisX)) << "a load serves one start";
}

TEST(StageMechanics, StartingAllAxesStartsEveryLoadedOneAndNoOther) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 5.0);
    rig.stage.loadAbsolute(axisZ, 6.0);
    EXPECT_TRUE(rig.stage.start(axisAll));
    EXPECT_TRUE(rig.moving(axisX));
    EXPECT_FALSE(rig.moving(axisY));
    EXPECT_TRUE(rig.moving(axisZ));
}

TEST(StageMechanics, StartingOneAxisLeavesTheOthersLoaded) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 5.0);
    rig.stage.loadAbsolute(axisY, 6.0);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 5);
    EXPECT_EQ(rig.at(axisY), 0);
    EXPECT_TRUE(rig.stage.start(axisY));
}

TEST(StageMechanics, AMoveToTheCurrentPositionIsAcceptedAndEndsAtOnce) {
    Rig rig;
    EXPECT_TRUE(rig.stage.loadRelative(axisZ, 0.0));
    EXPECT_TRUE(rig.stage.start(axisZ));
    EXPECT_FALSE(rig.moving(axisZ));
}

TEST(StageMechanics, ARelativeMoveCountsFromTheCurrentPosition) {
    Rig rig;
    for (int step = 0; step < 2; ++step) {
        rig.stage.loadRelative(axisZ, -10.0);
        rig.stage.start(axisZ);
        rig.settle();
    }
    EXPECT_EQ(rig.at(axisZ), -20);
}

TEST(StageMechanics, ARelativeMoveOfAMovingAxisCountsFromWhereItIs) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 4000.0);
    rig.stage.start(axisX);
    rig.clock.advance(150.0);
    const Long onTheWay = rig.at(axisX);
    ASSERT_GT(onTheWay, 0);
    ASSERT_LT(onTheWay, 4000);
    rig.stage.loadRelative(axisX, -1000.0);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), onTheWay - 1000);
}

TEST(StageMechanics, OfSeveralLoadsBeforeAStartTheLastOneCounts) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 100.0);
    rig.stage.loadRelative(axisX, 30.0);
    rig.stage.loadRelative(axisX, 7.0);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 7);
    rig.stage.loadRelative(axisX, 30.0);
    rig.stage.loadAbsolute(axisX, 9.0);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 9);
}

TEST(StageMechanics, AnAbsoluteMoveMayReachItsLimitsAndNotPassThem) {
    Rig rig;
    for (const Long axis : {axisX, axisY, axisZ}) {
        Long lower = 0;
        Long upper = 0;
        ASSERT_TRUE(rig.stage.limits(axis, lower, upper));
        EXPECT_TRUE(rig.stage.loadAbsolute(axis, lower));
        EXPECT_TRUE(rig.stage.loadAbsolute(axis, upper));
        EXPECT_FALSE(rig.stage.loadAbsolute(axis, lower - 1.0));
        EXPECT_FALSE(rig.stage.loadAbsolute(axis, upper + 1.0));
    }
}

TEST(StageMechanics, ARelativeMoveThatWouldLeaveTheLimitsIsRefused) {
    Rig rig;
    EXPECT_FALSE(rig.stage.loadRelative(axisZ, 1001.0));
    EXPECT_TRUE(rig.stage.loadRelative(axisZ, 1000.0));
    rig.stage.start(axisZ);
    rig.settle();
    EXPECT_EQ(rig.at(axisZ), 1000);
    EXPECT_FALSE(rig.stage.loadRelative(axisZ, 1.0));
    EXPECT_FALSE(rig.stage.loadRelative(axisZ, -2001.0));
    EXPECT_TRUE(rig.stage.loadRelative(axisZ, -2000.0));
    rig.stage.start(axisZ);
    rig.settle();
    EXPECT_EQ(rig.at(axisZ), -1000);
}

TEST(StageMechanics, ARefusedLoadLoadsNothing) {
    Rig rig;
    EXPECT_FALSE(rig.stage.loadRelative(axisZ, 5000.0));
    EXPECT_FALSE(rig.stage.start(axisZ));
    EXPECT_FALSE(rig.moving(axisZ));
    rig.stage.loadAbsolute(axisZ, 3.0);
    EXPECT_FALSE(rig.stage.loadAbsolute(axisZ, 5000.0));
    rig.stage.start(axisZ);
    rig.settle();
    EXPECT_EQ(rig.at(axisZ), 3) << "what was loaded before stays loaded";
}

TEST(StageMechanics, InvalidPositionsAreRefused) {
    Rig rig;
    const double infinity = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {infinity, -infinity, none, 3e9, -3e9, 1e300}) {
        EXPECT_FALSE(rig.stage.loadAbsolute(axisX, value)) << value;
        EXPECT_FALSE(rig.stage.loadRelative(axisX, value)) << value;
    }
}

TEST(StageMechanics, ARelativeMoveBeyond32BitsIsRefusedAndNotWrapped) {
    StageSettings settings;
    settings.x.lower = std::numeric_limits<Long>::min();
    settings.x.upper = std::numeric_limits<Long>::max();
    settings.x.start = std::numeric_limits<Long>::max();
    Rig rig(settings);
    EXPECT_FALSE(rig.stage.loadRelative(axisX, 1.0));
    settings.x.start = settings.x.lower;
    Rig low(settings);
    EXPECT_FALSE(low.stage.loadRelative(axisX, -1.0));
    EXPECT_TRUE(low.stage.loadBacklash(axisX));
}

TEST(StageMechanics, DistancesBetweenUnitsAreRoundedHalfToEven) {
    struct {
        double distance;
        Long reached;
    } const rows[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (const auto& row : rows) {
        Rig relative;
        relative.stage.loadRelative(axisX, row.distance);
        relative.stage.start(axisX);
        relative.settle();
        EXPECT_EQ(relative.at(axisX), row.reached) << row.distance;
        Rig absolute;
        absolute.stage.loadAbsolute(axisX, row.distance);
        absolute.stage.start(axisX);
        absolute.settle();
        EXPECT_EQ(absolute.at(axisX), row.reached) << row.distance;
    }
}

TEST(StageMechanics, UnknownAxesAreRefusedEverywhere) {
    Rig rig;
    for (const Long axis : {-1, 4, 100}) {
        Long position = 42;
        Long upper = 42;
        bool moving = true;
        EXPECT_FALSE(rig.stage.loadAbsolute(axis, 0.0));
        EXPECT_FALSE(rig.stage.loadRelative(axis, 0.0));
        EXPECT_FALSE(rig.stage.loadBacklash(axis));
        EXPECT_FALSE(rig.stage.start(axis));
        EXPECT_FALSE(rig.stage.position(axis, position));
        EXPECT_FALSE(rig.stage.isMoving(axis, moving));
        EXPECT_FALSE(rig.stage.limits(axis, position, upper));
        EXPECT_EQ(position, 42);
        EXPECT_EQ(upper, 42);
        EXPECT_TRUE(moving);
    }
    Long position = 0;
    EXPECT_FALSE(rig.stage.position(axisAll, position)) << "a position is of one axis";
    EXPECT_FALSE(rig.stage.loadAbsolute(axisAll, 0.0));
}

TEST(StageMechanics, TheCameraSeesTheAxisBetweenUnitsWhileItMoves) {
    Rig rig;
    rig.stage.loadAbsolute(axisZ, 1.0);
    rig.stage.start(axisZ);
    rig.clock.advance(10.0);
    // 2000 per second squared for 10 ms.
    EXPECT_NEAR(rig.stage.exactPosition(axisZ), 0.1, 1e-9);
    EXPECT_EQ(rig.at(axisZ), 0);
    EXPECT_EQ(rig.stage.exactPosition().z, rig.stage.exactPosition(axisZ));
}

TEST(StageMechanics, ANewStartWhileMovingTurnsWithoutAJump) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 20000.0);
    rig.stage.start(axisX);
    rig.clock.advance(500.0);
    const double before = rig.stage.exactPosition(axisX);
    rig.stage.loadAbsolute(axisX, 0.0);
    rig.stage.start(axisX);
    EXPECT_EQ(rig.stage.exactPosition(axisX), before);
    rig.clock.advance(0.1);
    EXPECT_GT(rig.stage.exactPosition(axisX), before) << "it brakes before it turns";
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 0);
}

TEST(StageMechanics, TheAxisStaysInsideItsLimitsForAnyCommandAtAnyTime) {
    std::mt19937 random(17);
    std::uniform_int_distribution<int> target(-1000, 1000);
    std::uniform_real_distribution<double> pauseMs(0.0, 900.0);
    Rig rig;
    for (int round = 0; round < 500; ++round) {
        rig.stage.loadAbsolute(axisZ, target(random));
        rig.stage.start(axisZ);
        const double endMs = rig.clock.nowMs() + pauseMs(random);
        while (rig.clock.nowMs() < endMs) {
            rig.clock.advance(7.0);
            ASSERT_LE(std::abs(rig.stage.exactPosition(axisZ)), 1000.0);
        }
    }
}

TEST(StageMechanics, ALoopThatOnlyAsksForTheStatusComesToItsEndOnAVirtualClock) {
    Rig rig;
    rig.stage.loadRelative(axisZ, 10.0);
    rig.stage.start(axisZ);
    int asked = 0;
    while (rig.moving(axisZ)) {
        ASSERT_LT(++asked, 100000);
    }
    EXPECT_EQ(rig.at(axisZ), 10);
}

TEST(StageMechanics, TheBacklashMoveGoesDownAndComesBack) {
    Rig rig;
    EXPECT_TRUE(rig.stage.loadBacklash(axisZ));
    EXPECT_EQ(rig.at(axisZ), 0);
    EXPECT_TRUE(rig.stage.start(axisZ));
    double lowest = 0.0;
    while (rig.moving(axisZ)) {
        lowest = std::min(lowest, rig.stage.exactPosition(axisZ));
    }
    EXPECT_NEAR(lowest, -10.0, 0.05);
    EXPECT_EQ(rig.at(axisZ), 0);
}

TEST(StageMechanics, TheBacklashMoveTurnsAtTheLimit) {
    StageSettings settings;
    settings.z.start = -996;
    Rig rig(settings);
    rig.stage.loadBacklash(axisZ);
    rig.stage.start(axisZ);
    double lowest = 0.0;
    while (rig.moving(axisZ)) {
        lowest = std::min(lowest, rig.stage.exactPosition(axisZ));
    }
    EXPECT_NEAR(lowest, -1000.0, 0.05);
    EXPECT_EQ(rig.at(axisZ), -996);
}

TEST(StageMechanics, TheBacklashMoveOfAllAxesMovesAll) {
    Rig rig;
    EXPECT_TRUE(rig.stage.loadBacklash(axisAll));
    EXPECT_TRUE(rig.stage.start(axisAll));
    EXPECT_TRUE(rig.moving(axisX));
    EXPECT_TRUE(rig.moving(axisY));
    EXPECT_TRUE(rig.moving(axisZ));
}

TEST(StageMechanics, TheBacklashMoveOfAMovingAxisEndsAtItsTarget) {
    Rig rig;
    rig.stage.loadAbsolute(axisX, 3000.0);
    rig.stage.start(axisX);
    rig.clock.advance(100.0);
    rig.stage.loadBacklash(axisX);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 3000);
}

TEST(StageMechanics, SettingsThatMakeNoSenseStillGiveAStageThatMoves) {
    StageSettings settings;
    settings.x = {100, -100, 0.0, std::numeric_limits<double>::quiet_NaN(), 5000, -3};
    Rig rig(settings);
    EXPECT_EQ(rig.at(axisX), 100);
    rig.stage.loadAbsolute(axisX, 98.0);
    rig.stage.start(axisX);
    rig.settle();
    EXPECT_EQ(rig.at(axisX), 98);
}

TEST(StageMechanics, AThreadMayWatchWhileAnotherCommands) {
    RealClock clock(1000.0);
    StageMechanics stage(clock, StageSettings());
    std::atomic_bool done = false;
    std::atomic_bool outside = false;
    std::thread camera([&] {
        while (!done) {
            const ocuva::ExactStagePosition point = stage.exactPosition();
            outside = outside || std::abs(point.x) > 25000.0 || std::abs(point.z) > 1000.0;
        }
    });
    for (int round = 0; round < 3000; ++round) {
        stage.loadAbsolute(axisX, round % 2 == 0 ? 25000.0 : -25000.0);
        stage.loadRelative(axisZ, round % 2 == 0 ? 900.0 : -900.0);
        stage.start(axisAll);
    }
    done = true;
    camera.join();
    EXPECT_FALSE(outside);
}

} // namespace
} // namespace hosts::simulated
