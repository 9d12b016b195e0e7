#include "hosts/common/clock/Clock.h"

#include <gmock/gmock.h>
#include <limits>

namespace hosts {
namespace {

using testing::ElementsAre;

constexpr double never = std::numeric_limits<double>::infinity();

TEST(VirtualClock, TimeStandsStillUntilItIsAdvanced) {
    VirtualClock clock;
    EXPECT_EQ(clock.nowMs(), 0.0);
    clock.advance(12.5);
    clock.spend(7.5);
    EXPECT_EQ(clock.nowMs(), 20.0);
}

TEST(VirtualClock, TimeNeverGoesBack) {
    VirtualClock clock;
    clock.advance(10.0);
    clock.advance(-5.0);
    EXPECT_EQ(clock.nowMs(), 10.0);
}

TEST(VirtualClock, ATickerActsAtEachOfItsDueTimesAndSeesThatTime) {
    VirtualClock clock;
    std::vector<double> seen;
    double due = 40.0;
    clock.addTicker({[&] { return due; },
                     [&](double nowMs) {
                         EXPECT_EQ(clock.nowMs(), nowMs);
                         seen.push_back(nowMs);
                         due += 40.0;
                     }});
    clock.advance(39.0);
    EXPECT_THAT(seen, ElementsAre());
    clock.advance(81.0);
    EXPECT_THAT(seen, ElementsAre(40.0, 80.0, 120.0));
}

TEST(VirtualClock, TwoTickersActInTheOrderOfTheirDueTimes) {
    VirtualClock clock;
    std::string order;
    double dueA = 20.0;
    double dueB = 10.0;
    clock.addTicker({[&] { return dueA; }, [&](double) { order += 'A', dueA = never; }});
    clock.addTicker({[&] { return dueB; }, [&](double) { order += 'B', dueB += 15.0; }});
    clock.advance(30.0);
    EXPECT_EQ(order, "BAB");
}

TEST(VirtualClock, ARemovedTickerActsNoMore) {
    VirtualClock clock;
    int acts = 0;
    double due = 1.0;
    const int number = clock.addTicker({[&] { return due; }, [&](double) { ++acts, due += 1.0; }});
    clock.advance(2.0);
    clock.removeTicker(number);
    clock.advance(10.0);
    EXPECT_EQ(acts, 2);
}

TEST(RealClock, AFactorMakesSimulatedTimePassFasterThanTheWall) {
    EXPECT_EQ(RealClock(4.0).wallMs(100.0), 25.0);
    EXPECT_EQ(RealClock(0.5).wallMs(100.0), 200.0);
}

TEST(RealClock, AFactorOutsideItsRangeIsPulledInside) {
    EXPECT_EQ(RealClock(0.0).timeFactor(), 0.01);
    EXPECT_EQ(RealClock(1e9).timeFactor(), 1000.0);
}

TEST(RealClock, TimeThatIsSpentHasPassed) {
    RealClock clock(1000.0);
    const double before = clock.nowMs();
    clock.spend(50.0);
    EXPECT_GE(clock.nowMs(), before + 50.0);
}

} // namespace
} // namespace hosts
