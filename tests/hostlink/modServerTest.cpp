#include "hostlink/modServer.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

ProcessFlags scanned(std::string_view commandLine) {
    ProcessFlags flags;
    scanCommandLine(commandLine, flags);
    return flags;
}

struct WindowStub : ServerWindow {
    std::vector<std::string> events;
    std::function<void()> onFocus;
    bool idleTimer = false;

    void applyWindowState(State state) override {
        events.push_back(state == State::normal ? "normal" : "minimised");
    }
    void showModeless() override { events.push_back("show"); }
    void hideWindow() override { events.push_back("hide"); }
    void enableIdleTimer(bool on) override { idleTimer = on; }
    void DoFocus() override {
        events.push_back("focus");
        if (onFocus) {
            onFocus();
        }
    }
    void exitProgram() override { events.push_back("exit"); }
};

struct Server : testing::Test {
    StubHost host;
    ProcessFlags flags;
    WindowStub window;
    std::unique_ptr<Notifier> notifier = host.createNotifier();
    Long idleCount = 0;
    modServer server{flags, host.tn_log(), *notifier, window,
                     [this](Long soFar) { return idleCount == 0 ? soFar : idleCount; }};

    void receive(const std::string& id) { server.onNotify({0, "any", "thing", id}); }
    bool ended() const { return !window.events.empty() && window.events.back() == "exit"; }
    int ticksUntilTheEnd(int most) {
        for (int tick = 1; tick <= most; ++tick) {
            server.idleTick();
            if (ended()) {
                return tick;
            }
        }
        return -1;
    }
};

} // namespace

TEST(CommandLine, SetsServerModeInCapitalsAndSurroundedByBlanksAndTabs) {
    EXPECT_TRUE(scanned(" \t -SERVER \t ").serverMode);
    EXPECT_TRUE(scanned("-server").serverMode);
    EXPECT_FALSE(scanned("-server").clientMode);
    EXPECT_TRUE(scanned("\t-Client").clientMode);
}

TEST(CommandLine, OnlyTheFirstWordCounts) {
    EXPECT_TRUE(scanned("-server -client").serverMode);
    EXPECT_FALSE(scanned("-server -client").clientMode);
    EXPECT_TRUE(scanned("-client -server").clientMode);
    EXPECT_FALSE(scanned("-client -server").serverMode);
}

TEST(CommandLine, AnyOtherFirstWordSelectsNoMode) {
    for (const char* line : {"", "   ", "file.tif -server", "-serverx", "server", "--server", "x -client"}) {
        EXPECT_FALSE(scanned(line).serverMode) << line;
        EXPECT_FALSE(scanned(line).clientMode) << line;
    }
}

TEST(CommandLine, WordsAreComparedRunTogetherSoASplitSwitchIsThatSwitch) {
    EXPECT_TRUE(scanned("-ser ver").serverMode);
    EXPECT_TRUE(scanned("- cli\tent").clientMode);
}

TEST(CommandLine, AScanForgetsTheModesFromBefore) {
    ProcessFlags flags;
    flags.serverMode = true;
    flags.clientMode = true;
    scanCommandLine("", flags);
    EXPECT_FALSE(flags.serverMode);
    EXPECT_FALSE(flags.clientMode);
}

TEST(WakingTheRunningCopy, IsSentByNameUnlessStartedForTheHost) {
    StubHost host;
    wakeRunningCopy(ProcessFlags{}, host.tn_ocuva());
    EXPECT_THAT(host.messagesByName, ElementsAre("OCUVA_WakeUp"));
    ProcessFlags server;
    server.serverMode = true;
    wakeRunningCopy(server, host.tn_ocuva());
    EXPECT_EQ(host.messagesByName.size(), 1U);
}

TEST_F(Server, EachMessageWritesItsLogLine) {
    for (const char* id : {"OCUVA_IS_SERVER_UP", "OCUVA_AUTOFOCUS", "OCUVA_WAKEUP", "OCUVA_SLEEP"}) {
        receive(id);
    }
    EXPECT_THAT(host.logLines, ElementsAre("Received IAC_MSG_ISALIVE\n", "Received IAC_MSG_OC_AUTOFOCUS\n",
                                           "Received IAC_MSG_OC_WAKEUP\n", "Received IAC_MSG_OC_SLEEP\n"));
}

TEST_F(Server, AnIdentifierInOtherLetterCaseIsIgnoredWithoutALogLine) {
    receive("ocuva_sleep");
    receive("OCUVA_SLEEP ");
    receive("");
    EXPECT_THAT(window.events, IsEmpty());
    EXPECT_THAT(host.logLines, IsEmpty());
    EXPECT_FALSE(flags.sleeping);
}

TEST_F(Server, AnswersThatItIsUpInAnyStateSleepingIncluded) {
    receive("OCUVA_IS_SERVER_UP");
    receive("OCUVA_SLEEP");
    receive("OCUVA_IS_SERVER_UP");
    EXPECT_EQ(host.callsOf("Send").size(), 2U);
    ASSERT_EQ(host.notifier->sends.size(), 2U);
    EXPECT_EQ(host.notifier->sends[1].strComponent, "TN_OCUVA_SERVER");
    EXPECT_EQ(host.notifier->sends[1].strSubComponent, "");
    EXPECT_EQ(host.notifier->sends[1].strId, "OCUVA_SERVER_IS_UP");
}

TEST_F(Server, WakeShowsTheWindowInItsNormalState) {
    receive("OCUVA_SLEEP");
    window.events.clear();
    receive("OCUVA_WAKEUP");
    EXPECT_THAT(window.events, ElementsAre("normal", "show"));
    EXPECT_FALSE(flags.sleeping);
}

TEST_F(Server, SleepMinimisesAndHidesTheWindowAndStartsTheCountdown) {
    receive("OCUVA_SLEEP");
    EXPECT_THAT(window.events, ElementsAre("minimised", "hide"));
    EXPECT_TRUE(flags.sleeping);
    EXPECT_TRUE(window.idleTimer);
}

TEST_F(Server, PutToSleepBeforeAnyAutofocusItEndsAtTheFirstTick) {
    idleCount = 5;
    receive("OCUVA_SLEEP");
    EXPECT_EQ(ticksUntilTheEnd(10), 1);
}

TEST_F(Server, AnAutofocusWhileSleepingEndsTheProgramOneMinuteAfterTheIdleCount) {
    idleCount = 5;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    EXPECT_EQ(server.ServerIdleCount(), 5);
    EXPECT_EQ(ticksUntilTheEnd(10), 6);
}

TEST_F(Server, AWakeDuringACountdownStopsIt) {
    idleCount = 5;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    server.idleTick();
    receive("OCUVA_WAKEUP");
    EXPECT_FALSE(window.idleTimer);
    EXPECT_EQ(server.ServerIdleCount(), 0);
}

TEST_F(Server, ASecondSleepDoesNotResetARunningCountdown) {
    idleCount = 5;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    server.idleTick();
    server.idleTick();
    receive("OCUVA_SLEEP");
    EXPECT_EQ(server.ServerIdleCount(), 3);
}

TEST_F(Server, AnAutofocusSetsServerModeStopsTheCountdownDuringTheSearchAndIsNeitherShownNorWoken) {
    idleCount = 2;
    receive("OCUVA_SLEEP");
    window.events.clear();
    bool timerDuringFocus = true;
    window.onFocus = [&] { timerDuringFocus = window.idleTimer; };
    receive("OCUVA_AUTOFOCUS");
    EXPECT_TRUE(flags.serverMode);
    EXPECT_FALSE(timerDuringFocus);
    EXPECT_TRUE(window.idleTimer);
    EXPECT_THAT(window.events, ElementsAre("focus"));
}

TEST_F(Server, AnAutofocusWhileAwakeLeavesTheCountdownStoppedAndTheIdleCountUnread) {
    idleCount = 5;
    receive("OCUVA_AUTOFOCUS");
    EXPECT_FALSE(window.idleTimer);
    receive("OCUVA_SLEEP");
    EXPECT_EQ(ticksUntilTheEnd(10), 1);
}

TEST_F(Server, TheLastIdleCountIsUsedForAnAbsentKey) {
    idleCount = 3;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    idleCount = 0;
    receive("OCUVA_AUTOFOCUS");
    EXPECT_EQ(server.ServerIdleCount(), 3);
}

TEST_F(Server, ANegativeIdleCountEndsAtTheNextTick) {
    idleCount = -2147483647 - 1;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    EXPECT_EQ(ticksUntilTheEnd(3), 1);
}

TEST_F(Server, CountsDownFromTheLargestIdleCountWithoutOverflow) {
    idleCount = std::numeric_limits<Long>::max();
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    server.idleTick();
    EXPECT_EQ(server.ServerIdleCount(), idleCount - 1);
    EXPECT_FALSE(ended());
}

TEST_F(Server, SilenceAfterAWakeEndsNothing) {
    idleCount = 1;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    receive("OCUVA_WAKEUP");
    EXPECT_FALSE(window.idleTimer);
    EXPECT_FALSE(ended());
}

TEST_F(Server, AQuestionWhileSleepingLeavesTheCountdownAlone) {
    idleCount = 4;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    server.idleTick();
    receive("OCUVA_IS_SERVER_UP");
    EXPECT_EQ(server.ServerIdleCount(), 3);
    EXPECT_TRUE(window.idleTimer);
    EXPECT_TRUE(flags.sleeping);
}

TEST_F(Server, EachAutofocusRestartsTheCountdown) {
    idleCount = 2;
    receive("OCUVA_SLEEP");
    receive("OCUVA_AUTOFOCUS");
    server.idleTick();
    server.idleTick();
    receive("OCUVA_AUTOFOCUS");
    EXPECT_EQ(ticksUntilTheEnd(10), 3);
}

TEST_F(Server, OnlyTheIdentifierDecidesNotComponentAndHandler) {
    server.onNotify({-7, "", "", "OCUVA_SLEEP"});
    EXPECT_TRUE(flags.sleeping);
}

namespace {

struct LogLine : testing::Test {
    StubHost host;
    ProcessFlags flags;
    WindowStub window;
    std::unique_ptr<Notifier> notifier = host.createNotifier();
    bool development = false;
    bool windowLoaded = true;
    std::vector<std::string> shown;
    modServer server{flags,
                     host.tn_log(),
                     *notifier,
                     window,
                     [](Long soFar) { return soFar; },
                     {[this] { return development; }, [this] { return windowLoaded; },
                      [this](const char* text, const char* title, TarnLong style) {
                          shown.push_back(std::string(title) + ": " + text + " " + std::to_string(style));
                      }}};
};

} // namespace

TEST_F(LogLine, GoesToTheHostsLogUnchanged) {
    server.logLine("a line\r\n");
    EXPECT_THAT(host.logLines, ElementsAre("a line\r\n"));
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(LogLine, StaysOutOfTheHostsLogInsideTheDevelopmentEnvironment) {
    development = true;
    server.logLine("a line\n");
    server.onNotify({0, "", "", "OCUVA_IS_SERVER_UP"});
    EXPECT_THAT(host.logLines, IsEmpty());
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_EQ(host.callsOf("Send").size(), 1U) << "only the line is left out";
}

TEST_F(LogLine, WithoutAnyLoadedWindowShowsAMessageAndLosesNoLine) {
    windowLoaded = false;
    development = true; // cannot be found out without a window
    server.logLine("a line\n");
    EXPECT_THAT(shown, ElementsAre("Error: This routine cannot be called if no forms are loaded. 17"));
    EXPECT_THAT(host.logLines, ElementsAre("a line\n"));
}
