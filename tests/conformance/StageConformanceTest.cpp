#include "tests/conformance/HostUnderTest.h"

#include <limits>

namespace {

constexpr TarnLong axes[] = {1, 2, 3};

class StageConformance : public HostConformance {
protected:
    ocuva::TnMicroProxy& stage() { return host().tn_micro_proxy(); }

    TarnLong at(TarnLong axis) {
        TarnLong position = -987654;
        EXPECT_NE(stage().TarnReadStagePos(axis, &position), 0);
        return position;
    }
    bool moving(TarnLong axis) {
        TarnLong status = -1;
        EXPECT_NE(stage().TarnReadStageStatus(axis, 0, &status), 0);
        EXPECT_TRUE(status == 0 || status == 1) << status;
        return status != 0;
    }
    void settle() {
        for (int tries = 0; moving(1) || moving(2) || moving(3); ++tries) {
            ASSERT_LT(tries, 100000) << "the stage does not come to rest";
            underTest().letTimePass(20.0);
        }
    }
    void moveTo(TarnLong axis, TarnLong target) {
        EXPECT_NE(stage().TarnLoadStageAbs(axis, static_cast<TarnSingle>(target)), 0);
        EXPECT_NE(stage().TarnStartStage(axis), 0);
        settle();
    }
    TarnLong lower(TarnLong axis) { return limit(axis, false); }
    TarnLong upper(TarnLong axis) { return limit(axis, true); }

private:
    TarnLong limit(TarnLong axis, bool wantUpper) {
        TarnLong low = 0;
        TarnLong high = 0;
        EXPECT_NE(host().tn_lib_proxy().TarnGetStageLimits(axis, &low, &high), 0);
        return wantUpper ? high : low;
    }
};

// Guards against limits that exclude the stage's own position.
TEST_P(StageConformance, EveryAxisIsInsideItsLimits) {
    for (const TarnLong axis : axes) {
        EXPECT_LT(lower(axis), upper(axis));
        EXPECT_LE(lower(axis), at(axis));
        EXPECT_GE(upper(axis), at(axis));
        EXPECT_FALSE(moving(axis));
    }
}

// Guards against a stage that goes off while the program still loads the other axes.
TEST_P(StageConformance, ALoadedMoveWaitsForItsStart) {
    for (const TarnLong axis : axes) {
        const TarnLong began = at(axis);
        EXPECT_NE(stage().TarnLoadStageRelSecure(axis, 5.0F), 0);
        underTest().letTimePass(500.0);
        EXPECT_EQ(at(axis), began);
        EXPECT_NE(stage().TarnStartStage(axis), 0);
        settle();
        EXPECT_EQ(at(axis), began + 5);
    }
}

// Guards against an end of move that is reported too early: the panels would show an intermediate
// position.
TEST_P(StageConformance, TheStatusSaysMovingUntilTheTargetIsReached) {
    const TarnLong target = at(1) + 2000;
    stage().TarnLoadStageRelSecure(1, 2000.0F);
    EXPECT_NE(stage().TarnStartStage(1), 0);
    EXPECT_TRUE(moving(1));
    settle();
    EXPECT_EQ(at(1), target);
    underTest().letTimePass(1000.0);
    EXPECT_EQ(at(1), target);
}

// Guards against waits that never end: the Z buttons poll the status in a loop.
TEST_P(StageConformance, ALoopThatOnlyAsksForTheStatusEnds) {
    stage().TarnLoadStageRelSecure(3, 10.0F);
    stage().TarnStartStage(3);
    while (moving(3)) {
    }
    EXPECT_FALSE(moving(3));
}

// Guards against a start without a loaded move that counts as a move.
TEST_P(StageConformance, AStartWithNothingLoadedReturnsZero) {
    EXPECT_EQ(stage().TarnStartStage(0), 0);
    for (const TarnLong axis : axes) {
        EXPECT_EQ(stage().TarnStartStage(axis), 0);
        EXPECT_FALSE(moving(axis));
    }
}

// Guards against axes left behind when a click on the image starts all of them at once.
TEST_P(StageConformance, AStartOfAllAxesStartsEveryLoadedOne) {
    const TarnLong x = at(1);
    const TarnLong y = at(2);
    const TarnLong z = at(3);
    stage().TarnLoadStageRelSecure(1, 30.0F);
    stage().TarnLoadStageRelSecure(2, -40.0F);
    EXPECT_NE(stage().TarnStartStage(0), 0);
    settle();
    EXPECT_EQ(at(1), x + 30);
    EXPECT_EQ(at(2), y - 40);
    EXPECT_EQ(at(3), z);
}

// Guards against a crash of the objective into the sample: the program leaves the check to the host.
TEST_P(StageConformance, ARelativeMoveThatWouldLeaveTheLimitsIsRefused) {
    for (const TarnLong axis : axes) {
        const TarnLong began = at(axis);
        EXPECT_EQ(stage().TarnLoadStageRelSecure(axis, static_cast<TarnSingle>(upper(axis) - began + 1)), 0);
        EXPECT_EQ(stage().TarnLoadStageRelSecure(axis, static_cast<TarnSingle>(lower(axis) - began - 1)), 0);
        EXPECT_EQ(stage().TarnStartStage(axis), 0) << "a refused load loads nothing";
        EXPECT_EQ(at(axis), began);
    }
}

// Guards against limits that cannot be reached, and absolute targets beyond them.
TEST_P(StageConformance, AbsoluteTargetsReachTheLimitsAndNoFurther) {
    for (const TarnLong axis : axes) {
        moveTo(axis, upper(axis));
        EXPECT_EQ(at(axis), upper(axis));
        EXPECT_EQ(stage().TarnLoadStageRelSecure(axis, 1.0F), 0);
        EXPECT_EQ(stage().TarnLoadStageAbs(axis, static_cast<TarnSingle>(upper(axis) + 1)), 0);
        moveTo(axis, lower(axis));
        EXPECT_EQ(at(axis), lower(axis));
        EXPECT_EQ(stage().TarnLoadStageAbs(axis, static_cast<TarnSingle>(lower(axis) - 1)), 0);
    }
}

// Guards against undefined conversions: factors and magnifications of 0 give such distances.
TEST_P(StageConformance, InvalidDistancesAreRefused) {
    const TarnSingle infinity = std::numeric_limits<TarnSingle>::infinity();
    for (const TarnSingle value :
         {infinity, -infinity, std::numeric_limits<TarnSingle>::quiet_NaN(), 4e9F, -4e9F}) {
        EXPECT_EQ(stage().TarnLoadStageRelSecure(1, value), 0) << value;
        EXPECT_EQ(stage().TarnLoadStageAbs(1, value), 0) << value;
    }
    EXPECT_EQ(stage().TarnStartStage(1), 0);
}

// Guards against missing a position that is typed or clicked during a move: the program computes the
// distance from a position just read or an image just shown.
TEST_P(StageConformance, ARelativeMoveOfAMovingAxisCountsFromWhereItIs) {
    constexpr TarnLong readLate = 300; // units that an axis may go between the read and the load
    const TarnLong wanted = at(1) - 1000;
    stage().TarnLoadStageRelSecure(1, 3000.0F);
    stage().TarnStartStage(1);
    underTest().letTimePass(60.0);
    EXPECT_NE(stage().TarnLoadStageRelSecure(1, static_cast<TarnSingle>(wanted - at(1))), 0);
    stage().TarnStartStage(1);
    settle();
    EXPECT_NEAR(at(1), wanted, readLate);
}

// Guards against reading a wrong axis, or a crash, with an invalid axis code.
TEST_P(StageConformance, UnknownAxesAreRefused) {
    for (const TarnLong axis : {-1, 4, 1000}) {
        TarnLong a = 11;
        TarnLong b = 22;
        EXPECT_EQ(stage().TarnReadStagePos(axis, &a), 0);
        EXPECT_EQ(stage().TarnReadStageStatus(axis, 0, &a), 0);
        EXPECT_EQ(host().tn_lib_proxy().TarnGetStageLimits(axis, &a, &b), 0);
        EXPECT_EQ(stage().TarnLoadStageAbs(axis, 0.0F), 0);
        EXPECT_EQ(stage().TarnLoadStageRelSecure(axis, 0.0F), 0);
        EXPECT_EQ(stage().TarnStartStage(axis), 0);
        EXPECT_EQ(stage().TarnBacklashStage(axis), 0);
    }
}

// Guards against an approach move that loses the place.
TEST_P(StageConformance, TheBacklashMoveEndsWhereItBegan) {
    for (const TarnLong axis : {0, 1, 2, 3}) {
        const TarnLong before[] = {at(1), at(2), at(3)};
        EXPECT_NE(stage().TarnBacklashStage(axis), 0);
        EXPECT_NE(stage().TarnStartStage(axis), 0);
        EXPECT_TRUE(moving(axis == 0 ? 3 : axis));
        settle();
        EXPECT_EQ(at(1), before[0]);
        EXPECT_EQ(at(2), before[1]);
        EXPECT_EQ(at(3), before[2]);
    }
}

// Guards against a focus call that comes back while Z still moves, or leaves the limits.
TEST_P(StageConformance, AfterTheFocusSearchTheStageIsInsideItsLimits) {
    const TarnLong x = at(1);
    const TarnLong y = at(2);
    const TarnLong z = at(3);
    const TarnLong found = stage().TarnAutoFocusExt(-1);
    EXPECT_FALSE(moving(1) || moving(2) || moving(3));
    EXPECT_EQ(at(1), x);
    EXPECT_EQ(at(2), y);
    EXPECT_GE(at(3), lower(3));
    EXPECT_LE(at(3), upper(3));
    if (found == 0) {
        EXPECT_EQ(at(3), z) << "no focus: back where it began";
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, StageConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
