#include "hosts/simulated/camera/GrabTimer.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <gmock/gmock.h>
#include <optional>
#include <vector>

namespace hosts::simulated {
namespace {

using testing::ElementsAre;

// A real clock that reads what the test says, to see which frames a late camera leaves out.
class HandClock final : public Clock {
public:
    double nowMs() const override { return reading; }
    void spend(double) override {}
    bool isVirtual() const override { return false; }
    double wallMs(double) const override {
        onWait();
        return 0.0;
    }
    std::atomic<double> reading = 0.0;
    std::function<void()> onWait; ///< the timer is about to wait
};

// Lets a test wait for what another thread does.
class Signal {
public:
    void raise() {
        {
            const std::lock_guard lock(m_mutex);
            m_raised = true;
        }
        m_changed.notify_all();
    }
    void await() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_raised; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_raised = false;
};

TEST(GrabTimer, OnAVirtualClockFramesComeOnARasterFromTheStart) {
    VirtualClock clock;
    std::vector<double> taken;
    GrabTimer timer(
        clock, [] { return 40.0; }, [&] { taken.push_back(clock.nowMs()); });
    clock.advance(100.0);
    timer.start(true);
    clock.advance(39.0);
    EXPECT_THAT(taken, ElementsAre());
    clock.advance(90.0);
    EXPECT_THAT(taken, ElementsAre(140.0, 180.0, 220.0));
    timer.stop();
    clock.advance(1000.0);
    EXPECT_EQ(taken.size(), 3U);
}

TEST(GrabTimer, OnAVirtualClockASingleFrameIsTakenOnce) {
    VirtualClock clock;
    int taken = 0;
    GrabTimer timer(
        clock, [] { return 40.0; }, [&] { ++taken; });
    timer.start(false);
    clock.advance(1000.0);
    EXPECT_EQ(taken, 1);
    timer.start(false);
    clock.advance(1000.0);
    EXPECT_EQ(taken, 2);
}

TEST(GrabTimer, ATimerThatIsGoneIsNotCalledByItsClock) {
    VirtualClock clock;
    int taken = 0;
    std::optional<GrabTimer> timer(
        std::in_place, clock, [] { return 40.0; }, [&] { ++taken; });
    timer->start(true);
    timer.reset();
    clock.advance(1000.0);
    EXPECT_EQ(taken, 0);
}

TEST(GrabTimer, FramesThatAreTooLateAreLeftOutAndTheRasterStays) {
    HandClock clock;
    clock.reading = 1000.0;
    std::vector<double> taken;
    Signal done;
    // What the clock reads once each frame has been taken: the first takes two and a half periods.
    constexpr double afterFrame[] = {1140.0, 1160.0, 1200.0};
    GrabTimer timer(
        clock, [] { return 40.0; },
        [&] {
            taken.push_back(clock.nowMs());
            if (taken.size() < 4) {
                clock.reading = afterFrame[taken.size() - 1];
            } else {
                done.raise();
            }
        });
    clock.onWait = [&] { clock.reading = clock.reading + 1.0; };
    timer.start(true);
    done.await();
    timer.stop();
    // Due at 1040; by 1140 the frames of 1080 and 1120 are gone, so 1160 is next; from then on each in its
    // turn.
    ASSERT_GE(taken.size(), 4U);
    taken.resize(4);
    EXPECT_THAT(taken, ElementsAre(1040.0, 1160.0, 1200.0, 1240.0));
}

TEST(GrabTimer, AHaltEndsTheWaitForAFrameThatIsFarAway) {
    RealClock clock;
    GrabTimer timer(
        clock, [] { return 1e9; }, [] { ADD_FAILURE() << "not due for days"; });
    timer.start(true);
    timer.stop();
}

TEST(GrabTimer, OnARealClockFramesContinueUntilTheHaltAndThenStop) {
    RealClock clock(100.0);
    std::atomic_int taken = 0;
    Signal third;
    GrabTimer timer(
        clock, [] { return 40.0; },
        [&] {
            if (++taken == 3) {
                third.raise();
            }
        });
    timer.start(true);
    third.await();
    timer.stop();
    const int atHalt = taken;
    clock.spend(200.0);
    EXPECT_EQ(taken, atHalt);
}

TEST(GrabTimer, OnARealClockASingleFrameIsTakenOnceAndTheTimerCanStartAgain) {
    RealClock clock(100.0);
    std::atomic_int taken = 0;
    for (int round = 1; round <= 3; ++round) {
        Signal one;
        GrabTimer timer(
            clock, [] { return 1.0; }, [&] { ++taken, one.raise(); });
        timer.start(false);
        one.await();
        timer.stop();
        EXPECT_EQ(taken, round);
    }
}

} // namespace
} // namespace hosts::simulated
