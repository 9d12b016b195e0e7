#include "hosts/simulated/mechanics/MotionProfile.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace hosts::simulated {
namespace {

constexpr MotionLimits limits{8000.0, 40000.0};

// No step of a sampled profile is longer than its fastest speed allows, and no speed changes faster than its
// acceleration allows.
void expectContinuous(const MotionProfile& motion, double startMs, MotionState start, MotionLimits with) {
    constexpr double stepMs = 0.1;
    const double fastest = std::max(with.speed, std::abs(start.velocity));
    MotionState before = start;
    for (double timeMs = startMs; timeMs < motion.endMs() + 2.0 * stepMs; timeMs += stepMs) {
        const MotionState now = motion.stateAt(timeMs);
        ASSERT_LE(std::abs(now.position - before.position), fastest * stepMs / 1000.0 + 1e-6) << timeMs;
        ASSERT_LE(std::abs(now.velocity - before.velocity), with.acceleration * stepMs / 1000.0 + 1e-6)
            << timeMs;
        before = now;
    }
}

TEST(MotionProfile, ALongMoveReachesFullSpeedAndTakesTheTimeOfATrapezoid) {
    const MotionProfile motion(100.0, {0.0, 0.0}, 16000.0, limits);
    // 0.2 s up to speed over 800 units, 0.2 s down again, 14400 units at 8000 per second between.
    EXPECT_NEAR(motion.endMs(), 100.0 + 200.0 + 1800.0 + 200.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(300.0).position, 800.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(1000.0).velocity, 8000.0, 1e-9);
}

TEST(MotionProfile, AShortMoveIsATriangleThatNeverReachesFullSpeed) {
    const MotionProfile motion(0.0, {0.0, 0.0}, 400.0, limits);
    EXPECT_NEAR(motion.endMs(), 200.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(100.0).position, 200.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(100.0).velocity, 4000.0, 1e-9);
}

TEST(MotionProfile, AMoveEndsExactlyAtItsTarget) {
    const MotionProfile motion(0.1, {-3.0, 0.0}, -7777.0, limits);
    EXPECT_EQ(motion.stateAt(motion.endMs()).position, -7777.0);
    EXPECT_EQ(motion.stateAt(motion.endMs()).velocity, 0.0);
    EXPECT_EQ(motion.stateAt(1e12).position, -7777.0);
}

TEST(MotionProfile, AMoveOfLengthZeroEndsAtOnce) {
    EXPECT_EQ(MotionProfile(50.0, {12.0, 0.0}, 12.0, limits).endMs(), 50.0);
    EXPECT_EQ(MotionProfile(12.0).stateAt(3.0).position, 12.0);
}

TEST(MotionProfile, BeforeItsStartAnAxisIsWhereItWas) {
    EXPECT_EQ(MotionProfile(50.0, {12.0, 0.0}, 100.0, limits).stateAt(0.0).position, 12.0);
}

TEST(MotionProfile, AnAxisGoingTheOtherWayBrakesAndTurnsBack) {
    const MotionState start{0.0, 4000.0};
    const MotionProfile motion(0.0, start, -100.0, limits);
    EXPECT_NEAR(motion.stateAt(100.0).position, 200.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(100.0).velocity, 0.0, 1e-9);
    EXPECT_EQ(motion.stateAt(motion.endMs()).position, -100.0);
    expectContinuous(motion, 0.0, start, limits);
}

TEST(MotionProfile, FromAnyStateToAnyTargetTheWayHasNoJump) {
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> place(-2000.0, 2000.0);
    std::uniform_real_distribution<double> speed(-8000.0, 8000.0);
    for (int round = 0; round < 300; ++round) {
        const MotionState start{place(random), speed(random)};
        const double target = std::round(place(random));
        const MotionProfile motion(7.0, start, target, limits);
        EXPECT_EQ(motion.stateAt(motion.endMs()).position, target);
        expectContinuous(motion, 7.0, start, limits);
    }
}

TEST(MotionProfile, AnAppendedWayBeginsWhereTheFirstHasStopped) {
    MotionProfile motion(0.0, {0.0, 0.0}, -10.0, limits);
    const double turnMs = motion.endMs();
    motion.append(0.0, limits);
    EXPECT_NEAR(motion.stateAt(turnMs).position, -10.0, 1e-9);
    EXPECT_NEAR(motion.stateAt(turnMs).velocity, 0.0, 1e-6);
    EXPECT_NEAR(motion.endMs(), 2.0 * turnMs, 1e-9);
    EXPECT_EQ(motion.target(), 0.0);
    expectContinuous(motion, 0.0, {0.0, 0.0}, limits);
}

} // namespace
} // namespace hosts::simulated
