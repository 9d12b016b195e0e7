#include "stage/AxisWait.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;
using State = AxisWait::State;

namespace {

struct WaitForAllAxes : testing::Test {
    StubHost host;
    AxisWait wait{host.tn_micro_proxy()};

    std::vector<std::string> statusReads() const { return host.callsOf("TarnReadStageStatus"); }
};

} // namespace

TEST_F(WaitForAllAxes, EndsAtOnceIfAllAreAtRestAndReadsThemInTurn) {
    EXPECT_EQ(wait.begin(), State::Arrived);
    EXPECT_THAT(host.calls, ElementsAre("TarnReadStageStatus(1, 0)", "TarnReadStageStatus(2, 0)",
                                        "TarnReadStageStatus(3, 0)"));
}

TEST_F(WaitForAllAxes, WaitsForOneAxisBeforeItReadsTheNext) {
    host.status = {{axisX, {1, 1, 0}}, {axisY, {0}}, {axisZ, {1, 0}}};
    EXPECT_EQ(wait.begin(), State::Waiting);
    EXPECT_EQ(wait.tick(), State::Waiting);
    EXPECT_EQ(wait.axis(), axisX);
    EXPECT_EQ(wait.tick(), State::Waiting);
    EXPECT_EQ(wait.axis(), axisZ);
    EXPECT_EQ(wait.tick(), State::Arrived);
    EXPECT_THAT(statusReads(), ElementsAre("TarnReadStageStatus(1, 0)", "TarnReadStageStatus(1, 0)",
                                           "TarnReadStageStatus(1, 0)", "TarnReadStageStatus(2, 0)",
                                           "TarnReadStageStatus(3, 0)", "TarnReadStageStatus(3, 0)"));
}

TEST_F(WaitForAllAxes, WaitsOnlyWhileTheStatusIsOne) {
    host.status = {{axisX, {2}}, {axisY, {-1}}};
    EXPECT_EQ(wait.begin(), State::Arrived);
}

TEST_F(WaitForAllAxes, AStatusThatCannotBeReadCountsAsAtRest) {
    host.results["TarnReadStageStatus"] = 0;
    host.status = {{axisX, {1, 1, 1}}};
    EXPECT_EQ(wait.begin(), State::Arrived);
}

TEST_F(WaitForAllAxes, EndsIfAnAxisReportsMotionButDoesNotAdvance) {
    host.position[axisX] = 500;
    host.status[axisX].assign(1000, 1);
    State state = wait.begin();
    int ticks = 0;
    for (; state == State::Waiting && ticks < 1000; ++ticks) {
        state = wait.tick();
    }
    EXPECT_EQ(state, State::Stalled);
    EXPECT_EQ(wait.axis(), axisX);
    EXPECT_EQ(ticks, AxisWait::patienceTicks);
    EXPECT_EQ(wait.tick(), State::Stalled);
    EXPECT_EQ(statusReads().size(), static_cast<std::size_t>(AxisWait::patienceTicks) + 1);
}

TEST_F(WaitForAllAxes, WaitsForLongMovesAsLongAsTheAxisAdvances) {
    host.status[axisX].assign(3000, 1);
    wait.begin();
    for (int i = 1; i < 3000; ++i) {
        host.position[axisX] = i / 100;
        ASSERT_EQ(wait.tick(), State::Waiting) << i;
    }
    EXPECT_EQ(wait.tick(), State::Arrived);
}

TEST_F(WaitForAllAxes, CallsNoHostFunctionAfterItIsCancelled) {
    host.status[axisX].assign(10, 1);
    wait.begin();
    wait.cancel();
    host.calls.clear();
    EXPECT_EQ(wait.tick(), State::Idle);
    EXPECT_TRUE(host.calls.empty());
}
