#include "stage/CTnStage.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Stage : testing::Test {
    StubHost host;
    CTnStage stage{host.tn_lib_proxy(), host.tn_micro_proxy()};
    std::vector<Integer> moveEnds;

    void SetUp() override {
        stage.MoveEnd = [this](Integer ErrCode) { moveEnds.push_back(ErrCode); };
    }
};

} // namespace

TEST_F(Stage, IsMovingAsksAllThreeAxesAndIsTrueIfAnyOneMoves) {
    for (const Integer moving : {axisX, axisY, axisZ}) {
        host.calls.clear();
        host.status[moving] = {1};
        EXPECT_TRUE(stage.IsMoving());
        EXPECT_THAT(host.calls, ElementsAre("TarnReadStageStatus(1, 0)", "TarnReadStageStatus(2, 0)",
                                            "TarnReadStageStatus(3, 0)"));
    }
    EXPECT_FALSE(stage.IsMoving());
}

TEST_F(Stage, AnyNonZeroStatusIsMoving) {
    host.status[axisX] = {2, -1, 0};
    EXPECT_TRUE(stage.IsMoving(axisX));
    EXPECT_TRUE(stage.IsMoving(axisX));
    EXPECT_FALSE(stage.IsMoving(axisX));
}

TEST_F(Stage, AStatusThatCannotBeReadCountsAsAtRest) {
    host.results["TarnReadStageStatus"] = 0;
    host.status[axisZ] = {1};
    EXPECT_FALSE(stage.IsMoving(axisZ));
}

TEST_F(Stage, CheckMoveOnAStoppedZAxisRaisesMoveEndWithThatAxis) {
    stage.CheckMove(axisZ);
    EXPECT_THAT(moveEnds, ElementsAre(3));
}

TEST_F(Stage, CheckMoveWithoutAnAxisRaisesMoveEndWithZeroOnlyWhenNoAxisMoves) {
    host.status[axisY] = {1, 0};
    stage.CheckMove();
    EXPECT_THAT(moveEnds, IsEmpty());
    stage.CheckMove();
    EXPECT_THAT(moveEnds, ElementsAre(0));
}

TEST_F(Stage, CheckMoveNeedsNoReceiver) {
    stage.MoveEnd = nullptr;
    stage.CheckMove();
}

TEST_F(Stage, ReadingTheLowerAndThenTheUpperLimitOfZAsksTheHostTwice) {
    host.limits[axisZ] = {-1000, 1000};
    EXPECT_EQ(stage.MinZ(), -1000);
    EXPECT_EQ(stage.MaxZ(), 1000);
    EXPECT_THAT(host.calls, ElementsAre("TarnGetStageLimits(3)", "TarnGetStageLimits(3)"));
}

TEST_F(Stage, LimitsOfXAndYComeFromTheirOwnAxes) {
    host.limits[axisX] = {-1, 2};
    host.limits[axisY] = {-3, 4};
    EXPECT_EQ(stage.MinX(), -1);
    EXPECT_EQ(stage.MaxX(), 2);
    EXPECT_EQ(stage.MinY(), -3);
    EXPECT_EQ(stage.MaxY(), 4);
}

TEST_F(Stage, ARelativeMoveOfZeroIsStillSent) {
    stage.DX(0);
    EXPECT_THAT(host.calls, ElementsAre("TarnLoadStageRelSecure(1, 0)"));
}

TEST_F(Stage, RelativeAndAbsoluteMovesGoToTheirAxes) {
    stage.DX(10);
    stage.DY(-20);
    stage.DZ(5);
    stage.X(100);
    stage.Y(200);
    stage.Z(-300);
    stage.Start(axisAll);
    EXPECT_THAT(host.calls,
                ElementsAre("TarnLoadStageRelSecure(1, 10)", "TarnLoadStageRelSecure(2, -20)",
                            "TarnLoadStageRelSecure(3, 5)", "TarnLoadStageAbs(1, 100)",
                            "TarnLoadStageAbs(2, 200)", "TarnLoadStageAbs(3, -300)", "TarnStartStage(0)"));
}

TEST_F(Stage, PositionsComeFreshFromTheHost) {
    host.position = {{axisX, 1}, {axisY, 2}, {axisZ, 3}};
    EXPECT_EQ(stage.X(), 1);
    EXPECT_EQ(stage.Y(), 2);
    EXPECT_EQ(stage.Z(), 3);
    host.position[axisX] = 9;
    EXPECT_EQ(stage.X(), 9);
}

TEST_F(Stage, AMoveWhoseRunningSumLeaves32BitsIsAnErrorAndIsNotSent) {
    constexpr Long high = std::numeric_limits<Long>::max();
    stage.DZ(high);
    host.calls.clear();
    EXPECT_THROW(stage.DZ(1), ArithmeticError);
    EXPECT_THAT(host.calls, IsEmpty());
    stage.DZ(-1);
    stage.DZ(1);
    EXPECT_EQ(host.calls.size(), 2U);
}

TEST_F(Stage, TheSumsOfTheAxesDoNotMix) {
    constexpr Long high = std::numeric_limits<Long>::max();
    stage.DX(high);
    stage.DY(high);
    stage.DZ(high);
    EXPECT_THROW(stage.DX(1), ArithmeticError);
}

TEST_F(Stage, SumsThatHaveUsedUpHalfOfTheirRangeAreRelievedOnRequestOnly) {
    constexpr Long high = std::numeric_limits<Long>::max();
    stage.DX(high);
    stage.DY(high / 2);
    EXPECT_FALSE(stage.hasRoomFor(axisX, 1));
    EXPECT_THROW(stage.DX(1), ArithmeticError);
    stage.relieveSums();
    EXPECT_TRUE(stage.hasRoomFor(axisX, high));
    EXPECT_FALSE(stage.hasRoomFor(axisY, high)) << "half of the range is still free";
    EXPECT_TRUE(stage.hasRoomFor(axisZ, -high));
    stage.DX(1);
    EXPECT_EQ(host.calls.back(), "TarnLoadStageRelSecure(1, 1)");
}

TEST_F(Stage, AutofocusPassesItsFlag) {
    stage.AutoFocus(-1);
    EXPECT_THAT(host.calls, ElementsAre("TarnAutoFocusExt(-1)"));
}
