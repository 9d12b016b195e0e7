#include "controls/WindowOnScreen.h"

#include <deque>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <utility>

using namespace ocuva;

namespace {

/// A toolkit with beliefs of its own, and a window system that works on its requests later.
struct SlowDesk final : WindowHands {
    WindowOnScreen window{*this};
    std::int64_t ms = 0;
    bool timerRuns = false;
    std::string done; // S and H: show and hide; m and u: the window alone mapped or unmapped
    int surrenders = 0;

    WindowPresence presence = WindowPresence::Hidden;
    bool believedShown = false;
    int delayMs = 30;               // until a request has taken effect
    bool losesQuickChanges = false; // a request that comes while another is worked on has no effect
    bool ignoresEverything = false;

    struct Work {
        std::int64_t dueMs;
        WindowPresence result;
    };
    std::deque<Work> works;

    void ask(bool shown) {
        // A toolkit that believes it done asks nobody.
        if (std::exchange(believedShown, shown) == shown || ignoresEverything ||
            (losesQuickChanges && !works.empty())) {
            return;
        }
        works.push_back({ms + delayMs, shown ? WindowPresence::Shown : WindowPresence::Hidden});
    }
    void userMinimises() { works.push_back({ms + delayMs, WindowPresence::Iconic}); }

    WindowPresence look() const override { return works.empty() ? presence : WindowPresence::Changing; }
    void show() override {
        done += 'S';
        ask(true);
    }
    void hide() override {
        done += 'H';
        ask(false);
    }
    void setMapped(bool mapped) override {
        done += mapped ? 'm' : 'u';
        ask(mapped);
    }
    void enableTimer(bool on) override { timerRuns = on; }
    std::int64_t nowMs() const override { return ms; }
    void givenUp() override { ++surrenders; }

    void pass(int wait) {
        for (const std::int64_t end = ms + wait; ms < end; ++ms) {
            while (!works.empty() && works.front().dueMs <= ms) {
                presence = works.front().result;
                works.pop_front();
            }
            if (timerRuns && ms % WindowOnScreen::tickMs == 0) {
                window.tick();
            }
        }
    }
};

} // namespace

TEST(WindowOnScreen, CarriesOutASingleRequestAtOnceAndThenLeavesTheWindowAlone) {
    SlowDesk desk;
    desk.window.request(true);
    EXPECT_EQ(desk.done, "S");
    desk.pass(1000);
    EXPECT_EQ(desk.presence, WindowPresence::Shown);
    EXPECT_FALSE(desk.timerRuns);
    desk.userMinimises();
    desk.pass(1000);
    EXPECT_EQ(desk.done, "S") << "the user may minimise the window";
}

TEST(WindowOnScreen, CarriesOutEachRequestAtOnceWhereTheWindowSystemFollowsAtOnce) {
    SlowDesk desk;
    desk.delayMs = 0;
    for (const bool shown : {true, false, false, true, true, false}) {
        desk.window.request(shown);
        desk.works.clear();
        desk.presence = shown ? WindowPresence::Shown : WindowPresence::Hidden;
    }
    EXPECT_EQ(desk.done, "SHHSSH");
}

TEST(WindowOnScreen, MapsNoWindowWhoseUnmappingIsStillInProgress) {
    SlowDesk desk;
    desk.losesQuickChanges = true;
    for (const bool shown : {true, false, true, false, true}) {
        desk.window.request(shown);
    }
    EXPECT_EQ(desk.done, "S");
    desk.pass(1000);
    EXPECT_EQ(desk.presence, WindowPresence::Shown);
    EXPECT_EQ(desk.surrenders, 0);
}

TEST(WindowOnScreen, OnlyTheNewestOfWaitingRequestsIsCarriedOut) {
    SlowDesk desk;
    desk.window.request(true);
    for (int i = 0; i < 10; ++i) {
        desk.window.request(false);
        desk.window.request(true);
    }
    desk.window.request(false);
    desk.pass(1000);
    EXPECT_EQ(desk.done, "SH");
    EXPECT_EQ(desk.presence, WindowPresence::Hidden);
}

TEST(WindowOnScreen, AFloodIsCarriedOutOnceALook) {
    SlowDesk desk;
    desk.delayMs = 0;
    for (int i = 0; i < 2000; ++i) {
        desk.window.request(i % 2 != 0);
        desk.works.clear();
        desk.presence = desk.believedShown ? WindowPresence::Shown : WindowPresence::Hidden;
    }
    EXPECT_LE(desk.done.size(), std::size_t{WindowOnScreen::floodAfter} + 1);
    desk.pass(1000);
    EXPECT_EQ(desk.presence, WindowPresence::Shown);
    desk.done.clear();
    desk.window.request(false);
    EXPECT_EQ(desk.done, "H") << "after the flood a request is carried out at once again";
}

TEST(WindowOnScreen, RepeatsWhatTheUsersEarlierClickHasUndone) {
    for (const int delayMs : {1, 30, 200}) {
        SlowDesk desk;
        desk.believedShown = true;
        desk.presence = WindowPresence::Shown;
        desk.delayMs = delayMs;
        desk.userMinimises(); // which the program does not know yet
        desk.window.request(true);
        desk.pass(3000);
        EXPECT_EQ(desk.presence, WindowPresence::Shown) << delayMs;
        EXPECT_EQ(desk.surrenders, 0);
    }
}

TEST(WindowOnScreen, GivesUpAfterItsTimeoutAndTriesAgainOnTheNextRequest) {
    SlowDesk desk;
    desk.ignoresEverything = true;
    desk.window.request(true);
    desk.pass(WindowOnScreen::patienceMs + 100);
    EXPECT_EQ(desk.surrenders, 1);
    EXPECT_FALSE(desk.timerRuns);
    EXPECT_LT(desk.done.size(), 30U);
    desk.ignoresEverything = false;
    desk.window.request(true);
    desk.pass(1000);
    EXPECT_EQ(desk.presence, WindowPresence::Shown);
}

TEST(WindowOnScreen, TouchesNothingAfterItHasLetGo) {
    SlowDesk desk;
    desk.window.request(true);
    desk.window.letGo();
    EXPECT_FALSE(desk.timerRuns);
    EXPECT_EQ(desk.done, "S");
}

TEST(WindowOnScreen, EndsInTheLatestRequestedState) {
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        SlowDesk desk;
        desk.losesQuickChanges = random() % 2 == 0;
        desk.delayMs = static_cast<int>(random() % 120);
        bool wanted = false;
        for (std::size_t i = 1 + random() % 8; i > 0; --i) {
            if (random() % 4 == 0 && desk.believedShown) {
                desk.userMinimises();
            }
            wanted = random() % 2 == 0;
            desk.window.request(wanted);
            desk.pass(static_cast<int>(random() % 3 == 0 ? random() % 500 : random() % 30));
        }
        desk.pass(4000);
        ASSERT_EQ(desk.presence, wanted ? WindowPresence::Shown : WindowPresence::Hidden)
            << "round " << round;
        ASSERT_EQ(desk.surrenders, 0) << "round " << round;
    }
}
