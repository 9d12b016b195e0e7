#include "app/LiveWatch.h"

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

struct Watch : testing::Test {
    LiveWatch watch;
    std::int64_t now = 5000;

    void SetUp() override { watch.start(now); }
    void frames(int count, std::int64_t everyMs) {
        for (int i = 0; i < count; ++i) {
            now += everyMs;
            watch.frameCame(now);
        }
    }
};

} // namespace

TEST_F(Watch, CountsTheFramesOfEachSecond) {
    EXPECT_EQ(watch.framesPerSecond(), 0.0);
    frames(26, 40);
    EXPECT_DOUBLE_EQ(watch.framesPerSecond(), 25.0);
    frames(10, 100);
    EXPECT_DOUBLE_EQ(watch.framesPerSecond(), 10.0);
}

TEST_F(Watch, ReportsOnlyFramesThatChangeTheDisplay) {
    EXPECT_TRUE(watch.frameCame(now));
    for (int i = 1; i < 25; ++i) {
        EXPECT_FALSE(watch.frameCame(now + i * 40)) << i;
    }
    EXPECT_TRUE(watch.frameCame(now + 1000));
}

TEST_F(Watch, AsksAgainWhenTheLastFrameWillBeOneSecondOld) {
    watch.frameCame(5400);
    EXPECT_EQ(watch.check(6000), 400);
    EXPECT_FALSE(watch.hasStopped());
    EXPECT_EQ(watch.check(6400), 0);
    EXPECT_TRUE(watch.hasStopped());
    EXPECT_EQ(watch.lastSignMs(), 5400);
}

TEST_F(Watch, StopsOneSecondAfterAGrabThatNeverBroughtAFrame) {
    EXPECT_EQ(watch.check(5999), 1);
    EXPECT_EQ(watch.check(6000), 0);
    EXPECT_TRUE(watch.hasStopped());
    EXPECT_EQ(watch.lastSignMs(), 5000);
}

TEST_F(Watch, IsLiveAgainWithTheFirstFrameAndRestartsTheCount) {
    frames(26, 40);
    ASSERT_EQ(watch.check(6040), 1000);
    now += 1000;
    ASSERT_EQ(watch.check(now), 0);
    EXPECT_TRUE(watch.frameCame(now + 3000));
    EXPECT_FALSE(watch.hasStopped());
    EXPECT_EQ(watch.framesPerSecond(), 0.0);
}

TEST_F(Watch, DoesNotBlameTheCameraWhenTheProgramItselfWasBusy) {
    watch.frameCame(5100);
    // The check that was due at 6000 comes nine seconds late, before the frames that wait.
    EXPECT_GT(watch.check(15000), 0);
    EXPECT_FALSE(watch.hasStopped());
    watch.frameCame(15001);
    EXPECT_GT(watch.check(15250), 0);
    EXPECT_FALSE(watch.hasStopped());
}

TEST_F(Watch, FindsACameraThatStoppedWhileTheProgramWasBusy) {
    const std::int64_t again = watch.check(15000);
    ASSERT_GT(again, 0);
    EXPECT_EQ(watch.check(15000 + again), 0);
    EXPECT_TRUE(watch.hasStopped());
    EXPECT_EQ(watch.lastSignMs(), 5000);
}

TEST_F(Watch, ANewGrabBeginsWithAFreshLife) {
    ASSERT_EQ(watch.check(6000), 0);
    watch.start(9000);
    EXPECT_FALSE(watch.hasStopped());
    EXPECT_EQ(watch.check(9500), 500);
}
