#include "tests/conformance/StageUnderTest.h"

#include <limits>

namespace {

constexpr auto& axes = stageAxes;

class StageConformance : public HostConformance {
protected:
    void TearDown() override { m_stage.bringBack(); }

    ocuva::TnMicroProxy& stage() { return host().tn_micro_proxy(); }
    TarnLong at(TarnLong axis) { return m_stage.at(axis); }
    bool moving(TarnLong axis) { return m_stage.moving(axis); }
    void settle() { m_stage.settle(); }
    void moveTo(TarnLong axis, TarnLong target) { m_stage.moveTo(axis, target); }
    TarnLong lower(TarnLong axis) { return m_stage.lower(axis); }
    TarnLong upper(TarnLong axis) { return m_stage.upper(axis); }
    TarnLong inside(TarnLong axis, TarnLong units) { return m_stage.inside(axis, units); }
    void loadRelative(TarnLong axis, TarnLong distance) { m_stage.loadRelative(axis, distance); }

private:
    StageUnderTest m_stage{underTest()};
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
        const TarnLong way = inside(axis, 5);
        loadRelative(axis, way);
        underTest().letTimePass(500.0);
        EXPECT_EQ(at(axis), began);
        EXPECT_NE(stage().TarnStartStage(axis), 0);
        settle();
        EXPECT_EQ(at(axis), began + way);
    }
}

// Guards against an end of move that is reported too early: the panels would show an intermediate
// position.
TEST_P(StageConformance, TheStatusSaysMovingUntilTheTargetIsReached) {
    const TarnLong way = inside(1, 2000);
    const TarnLong target = at(1) + way;
    loadRelative(1, way);
    EXPECT_NE(stage().TarnStartStage(1), 0);
    EXPECT_TRUE(moving(1));
    settle();
    EXPECT_EQ(at(1), target);
    underTest().letTimePass(1000.0);
    EXPECT_EQ(at(1), target);
}

// Guards against a program that asks once, learns that nothing moves, and reads a place on the way.
TEST_P(StageConformance, AStartedAxisIsBusyAtOnce) {
    for (const TarnLong axis : axes) {
        loadRelative(axis, inside(axis, 50));
        EXPECT_NE(stage().TarnStartStage(axis), 0);
        EXPECT_TRUE(moving(axis)) << "axis " << axis;
        settle();
    }
    for (const TarnLong axis : axes) {
        loadRelative(axis, inside(axis, 50));
    }
    EXPECT_NE(stage().TarnStartStage(0), 0);
    EXPECT_TRUE(moving(1) && moving(2) && moving(3)) << "all axes";
}

// Guards against a window that freezes while the stage is under way.
TEST_P(StageConformance, NoCallWaitsForAMove) {
    TarnLong number = 0;
    TarnLong other = 0;
    const TarnLong way = inside(1, 20000);
    expectAtOnce("load", [&] { loadRelative(1, way); });
    expectAtOnce("start", [&] { stage().TarnStartStage(1); });
    EXPECT_TRUE(moving(1)) << "the start waited for the end";
    expectAtOnce("position", [&] { stage().TarnReadStagePos(1, &number); });
    expectAtOnce("status", [&] { stage().TarnReadStageStatus(1, 0, &number); });
    expectAtOnce("limits", [&] { host().tn_lib_proxy().TarnGetStageLimits(1, &number, &other); });
    expectAtOnce("load while it moves", [&] { loadRelative(1, way < 0 ? 1 : -1); });
    expectAtOnce("start while it moves", [&] { stage().TarnStartStage(1); });
    expectAtOnce("backlash", [&] { stage().TarnBacklashStage(2); });
    expectAtOnce("start of backlash", [&] { stage().TarnStartStage(2); });
    EXPECT_TRUE(moving(2));
}

// Guards against waits that never end: the Z buttons poll the status in a loop.
TEST_P(StageConformance, ALoopThatOnlyAsksForTheStatusEnds) {
    loadRelative(3, inside(3, 10));
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
    const TarnLong wayX = inside(1, 30);
    const TarnLong wayY = inside(2, 40);
    loadRelative(1, wayX);
    loadRelative(2, wayY);
    EXPECT_NE(stage().TarnStartStage(0), 0);
    settle();
    EXPECT_EQ(at(1), x + wayX);
    EXPECT_EQ(at(2), y + wayY);
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
    const TarnLong way = inside(1, 3000);
    const TarnLong wanted = at(1) + way / 3; // on the way already, or still ahead
    loadRelative(1, way);
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
        EXPECT_EQ(a, 11) << "a failed read leaves the last known value";
        EXPECT_EQ(b, 22);
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
