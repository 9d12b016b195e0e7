#pragma once
// The stage of a host under test, which may be a device: it keeps its place from one test to the next, and needs
// its time.

#include "tests/conformance/HostUnderTest.h"

#include <array>

inline constexpr TarnLong stageAxes[] = {1, 2, 3};

/// Failures are reported as those of the test that runs.
class StageUnderTest {
public:
    /// Remembers where the stage is.
    explicit StageUnderTest(HostUnderTest& underTest);
    /// Moves to where the stage was at first. Each test that moves the stage ends with it.
    void bringBack();

    TarnLong at(TarnLong axis);
    bool moving(TarnLong axis);
    TarnLong lower(TarnLong axis);
    TarnLong upper(TarnLong axis);

    /// Waits as long as the stage gets on, however far it has to go.
    void settle();
    void moveTo(TarnLong axis, TarnLong target);
    void moveToTheMiddle();
    void loadRelative(TarnLong axis, TarnLong distance);
    /// A distance of so many units that stays inside the limits, up where there is room, else down.
    TarnLong inside(TarnLong axis, TarnLong units);

private:
    ocuva::TnMicroProxy& stage();
    std::array<TarnLong, 2> limits(TarnLong axis);

    HostUnderTest& m_underTest;
    std::array<TarnLong, 3> m_began{};
};
