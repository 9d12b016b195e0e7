#include "display/FrameMailbox.h"

#include <gtest/gtest.h>
#include <thread>

using namespace ocuva;

namespace {

FramePtr frame(std::int64_t number) {
    auto result = std::make_shared<Frame>();
    result->number = number;
    return result;
}

} // namespace

TEST(FrameMailbox, KeepsOnlyTheLatestFrameAndCountsTheOthersAsDropped) {
    FrameMailbox box([] {});
    box.present(frame(1));
    box.present(frame(2));
    box.present(frame(3));
    EXPECT_EQ(box.take()->number, 3);
    EXPECT_EQ(box.take(), nullptr);
    EXPECT_EQ(box.droppedFrames(), 2U);
}

TEST(FrameMailbox, WakesItsOwnerOncePerVisit) {
    int wakes = 0;
    FrameMailbox box([&wakes] { ++wakes; });
    box.present(frame(1));
    box.present(frame(2));
    EXPECT_EQ(wakes, 1);
    box.take();
    box.present(frame(3));
    EXPECT_EQ(wakes, 2);
}

TEST(FrameMailbox, NeverGivesAnOlderFrameAfterANewerOneAcrossThreads) {
    FrameMailbox box([] {});
    constexpr std::int64_t frames = 20000;
    std::thread grab([&box] {
        for (std::int64_t i = 1; i <= frames; ++i) {
            box.present(frame(i));
        }
    });
    std::int64_t last = 0;
    std::uint64_t taken = 0;
    while (last < frames) {
        if (const FramePtr next = box.take()) {
            EXPECT_GT(next->number, last);
            last = next->number;
            ++taken;
        }
    }
    grab.join();
    EXPECT_EQ(taken + box.droppedFrames(), static_cast<std::uint64_t>(frames));
}

TEST(DisplayWindows, DeliverToTheSinkOfTheHandleUntilDetach) {
    FrameMailbox one([] {});
    FrameMailbox two([] {});
    DisplayWindows windows;
    windows.attach(11, one);
    windows.attach(22, two);
    windows.deliver(11, frame(1));
    windows.deliver(99, frame(2));
    EXPECT_NE(one.take(), nullptr);
    EXPECT_EQ(two.take(), nullptr);
    windows.detach(11);
    windows.deliver(11, frame(3));
    EXPECT_EQ(one.take(), nullptr);
}

TEST(DisplayWindows, ReportTheDensityOfAWindowsScreen) {
    FrameMailbox box([] {});
    DisplayWindows windows;
    windows.attach(11, box);
    box.setDevicePixelRatio(2.0);
    EXPECT_EQ(windows.devicePixelRatio(11), 2.0);
    EXPECT_EQ(windows.devicePixelRatio(12), 1.0);
}
