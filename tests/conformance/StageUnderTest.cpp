#include "tests/conformance/StageUnderTest.h"

StageUnderTest::StageUnderTest(HostUnderTest& underTest)
    : m_underTest(underTest)
    , m_began{at(1), at(2), at(3)} {}

ocuva::TnMicroProxy& StageUnderTest::stage() { return m_underTest.host().tn_micro_proxy(); }

void StageUnderTest::bringBack() {
    settle();
    for (const TarnLong axis : stageAxes) {
        const TarnLong began = m_began.at(static_cast<std::size_t>(axis - 1));
        if (at(axis) != began) {
            moveTo(axis, began);
        }
        EXPECT_EQ(at(axis), began) << "axis " << axis << " does not go back";
    }
}

TarnLong StageUnderTest::at(TarnLong axis) {
    TarnLong position = -987654;
    EXPECT_NE(stage().TarnReadStagePos(axis, &position), 0);
    return position;
}

bool StageUnderTest::moving(TarnLong axis) {
    TarnLong status = -1;
    EXPECT_NE(stage().TarnReadStageStatus(axis, 0, &status), 0);
    EXPECT_TRUE(status == 0 || status == 1) << status;
    return status != 0;
}

std::array<TarnLong, 2> StageUnderTest::limits(TarnLong axis) {
    std::array<TarnLong, 2> ends{};
    EXPECT_NE(m_underTest.host().tn_lib_proxy().TarnGetStageLimits(axis, &ends[0], &ends[1]), 0);
    return ends;
}

TarnLong StageUnderTest::lower(TarnLong axis) { return limits(axis)[0]; }
TarnLong StageUnderTest::upper(TarnLong axis) { return limits(axis)[1]; }

void StageUnderTest::settle() {
    constexpr double askAgainMs = 20.0;
    constexpr double patienceMs = 5000.0;
    std::array<TarnLong, 3> place{};
    for (double standingMs = 0.0; moving(1) || moving(2) || moving(3); standingMs += askAgainMs) {
        const std::array<TarnLong, 3> now{at(1), at(2), at(3)};
        standingMs = now == place ? standingMs : 0.0;
        place = now;
        ASSERT_LT(standingMs, patienceMs) << "the stage is busy and does not move";
        m_underTest.letTimePass(askAgainMs);
    }
}

void StageUnderTest::moveTo(TarnLong axis, TarnLong target) {
    EXPECT_NE(stage().TarnLoadStageAbs(axis, static_cast<TarnSingle>(target)), 0);
    EXPECT_NE(stage().TarnStartStage(axis), 0);
    settle();
}

void StageUnderTest::moveToTheMiddle() {
    for (const TarnLong axis : stageAxes) {
        const TarnLong middle = (lower(axis) + upper(axis)) / 2;
        if (at(axis) != middle) {
            moveTo(axis, middle);
        }
    }
}

void StageUnderTest::loadRelative(TarnLong axis, TarnLong distance) {
    EXPECT_NE(stage().TarnLoadStageRelSecure(axis, static_cast<TarnSingle>(distance)), 0);
}

TarnLong StageUnderTest::inside(TarnLong axis, TarnLong units) {
    return at(axis) <= upper(axis) - units ? units : -units;
}
