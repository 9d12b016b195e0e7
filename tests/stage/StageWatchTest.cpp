#include "stage/StageWatch.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;

namespace {

struct WindowStub : StageWatchView {
    Long colour = 111;
    bool timerOn = false;
    std::vector<std::string> positions;

    Long monitorColour() const override { return colour; }
    void setMonitorColour(Long value) override { colour = value; }
    void enableMoveTimer(bool on) override { timerOn = on; }
    void showPosition(Integer axis, const std::string& text) override {
        positions.push_back(std::string(1, "?XYZ"[axis]) + "=" + text);
    }
};

struct Watch : testing::Test {
    StubHost host;
    CTnStage stage{host.tn_lib_proxy(), host.tn_micro_proxy()};
    WindowStub window;
    StageWatch watch{stage, window};

    void SetUp() override {
        stage.MoveEnd = [this](Integer) { watch.moveEnded(); };
    }
};

} // namespace

TEST_F(Watch, SyncStartsTheAxisAndTheTimer) {
    watch.SyncStageMove(axisZ);
    EXPECT_THAT(host.calls, ElementsAre("TarnStartStage(3)"));
    EXPECT_TRUE(window.timerOn);
    EXPECT_TRUE(watch.isWatching());
}

TEST_F(Watch, WhileAMoveRunsTheFrameIsOrangeOnEveryOtherTick) {
    host.status[axisX] = {1, 1, 1, 1};
    watch.SyncStageMove(axisAll);
    std::vector<Long> colours;
    for (int i = 0; i < 4; ++i) {
        watch.tick();
        colours.push_back(window.colour);
    }
    EXPECT_THAT(colours, ElementsAre(49407, 111, 49407, 111));
}

TEST_F(Watch, AfterAMoveTheFrameHasItsColourFromBeforeEvenIfItEndedOnAnOrangeTick) {
    host.status[axisX] = {1};
    watch.SyncStageMove(axisAll);
    watch.tick();
    ASSERT_EQ(window.colour, StageWatch::movingColour);
    watch.tick();
    EXPECT_EQ(window.colour, 111);
    EXPECT_FALSE(window.timerOn);
    EXPECT_FALSE(watch.isWatching());
}

TEST_F(Watch, AMoveStartedWhileAnotherIsWatchedKeepsTheColourFromBeforeTheFirst) {
    host.status[axisX] = {1};
    watch.SyncStageMove(axisAll);
    watch.tick();
    ASSERT_EQ(window.colour, StageWatch::movingColour);
    watch.SyncStageMove(axisZ);
    watch.tick();
    EXPECT_EQ(window.colour, 111);
}

TEST_F(Watch, TheEndOfAMoveShowsXThenYThenZAsPlainNumbers) {
    host.position = {{axisX, -25000}, {axisY, 1234567}, {axisZ, 0}};
    watch.SyncStageMove(axisAll);
    watch.tick();
    EXPECT_THAT(window.positions, ElementsAre("X=-25000", "Y=1234567", "Z=0"));
    EXPECT_THAT(host.callsOf("TarnReadStagePos"),
                ElementsAre("TarnReadStagePos(1)", "TarnReadStagePos(2)", "TarnReadStagePos(3)"));
}

TEST_F(Watch, TheEndOfAnUnwatchedMoveOnlyRefreshesThePanels) {
    watch.moveEnded();
    EXPECT_EQ(window.colour, 111);
    EXPECT_FALSE(watch.isWatching());
    EXPECT_EQ(window.positions.size(), 3U);
}

TEST_F(Watch, ARefusedMoveEndsOnTheNextTick) {
    host.results["TarnLoadStageRelSecure"] = 0;
    stage.DX(99999);
    watch.SyncStageMove(axisAll);
    watch.tick();
    EXPECT_FALSE(watch.isWatching());
    EXPECT_EQ(window.colour, 111);
}

TEST_F(Watch, AnUpButtonPressedWhileZStillMovesWaitsUntilItStopsAndThenMoves) {
    host.status[axisZ] = {1, 1, 0};
    stepZ(stage, watch, 2, true);
    EXPECT_THAT(host.calls, ElementsAre("TarnReadStageStatus(3, 0)", "TarnReadStageStatus(3, 0)",
                                        "TarnReadStageStatus(3, 0)", "TarnLoadStageRelSecure(3, 5)",
                                        "TarnStartStage(3)"));
}

TEST_F(Watch, TheButtonsStepBy1And2And5And10UpAndDown) {
    for (std::size_t i = 0; i < zSteps.size(); ++i) {
        stepZ(stage, watch, i, true);
        stepZ(stage, watch, i, false);
    }
    EXPECT_THAT(host.callsOf("TarnLoadStageRelSecure"),
                ElementsAre("TarnLoadStageRelSecure(3, 1)", "TarnLoadStageRelSecure(3, -1)",
                            "TarnLoadStageRelSecure(3, 2)", "TarnLoadStageRelSecure(3, -2)",
                            "TarnLoadStageRelSecure(3, 5)", "TarnLoadStageRelSecure(3, -5)",
                            "TarnLoadStageRelSecure(3, 10)", "TarnLoadStageRelSecure(3, -10)"));
}
