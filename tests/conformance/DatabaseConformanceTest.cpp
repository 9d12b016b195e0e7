#include "tests/conformance/HostUnderTest.h"

#include <filesystem>
#include <limits>

namespace {

class DatabaseConformance : public HostConformance {
protected:
    ocuva::TnLibProxy& general() { return host().tn_lib_proxy(); }
};

// Guards against a file dialog that opens nowhere, and against a path with a separator too many.
TEST_P(DatabaseConformance, TheStandardsDirectoryExistsAndEndsWithoutASeparator) {
    GuardedBuffer buffer(1024);
    const TarnLong length = general().TarnGetDirStd(buffer.data(), buffer.size());
    ASSERT_GT(length, 0);
    const std::string path = buffer.text(length);
    EXPECT_TRUE(std::filesystem::is_directory(path)) << path;
    EXPECT_NE(path.back(), '/');
    EXPECT_NE(path.back(), '\\');
    expectBoundedText(path, [&](char* data, TarnLong size) { return general().TarnGetDirStd(data, size); });
}

// Guards against a move to a standard that ends at another one.
TEST_P(DatabaseConformance, TheStagePositionOfAStandardIsRead) {
    const HostUnderTest::Standard standard = underTest().knownStandard();
    const TarnLong handle = general().TarnDbObjectNew("OCUVASTD");
    ASSERT_NE(handle, 0);
    EXPECT_NE(general().TarnDbObjectRead(handle, standard.name.c_str()), 0);
    TarnLong x = 0;
    TarnLong y = 0;
    TarnLong z = 0;
    EXPECT_NE(general().TarnDbGetStagePos(handle, &x, &y, &z), 0);
    EXPECT_EQ(x, standard.x);
    EXPECT_EQ(y, standard.y);
    EXPECT_EQ(z, standard.z);
    EXPECT_NE(general().TarnDbObjectDelete(handle), 0);
}

// Guards against a host that deletes the standard itself with the handle.
TEST_P(DatabaseConformance, FreeingAHandleLeavesTheStandardWhereItIs) {
    const HostUnderTest::Standard standard = underTest().knownStandard();
    for (int round = 0; round < 3; ++round) {
        const TarnLong handle = general().TarnDbObjectNew("OCUVASTD");
        EXPECT_NE(general().TarnDbObjectRead(handle, standard.name.c_str()), 0);
        EXPECT_NE(general().TarnDbObjectDelete(handle), 0);
        EXPECT_EQ(general().TarnDbObjectDelete(handle), 0) << "it was closed already";
    }
}

// Guards against a stage sent to 0, 0, 0 for a standard that could not be read.
TEST_P(DatabaseConformance, WithoutAReadThereIsNoPosition) {
    const TarnLong handle = general().TarnDbObjectNew("OCUVASTD");
    TarnLong x = 1;
    TarnLong y = 2;
    TarnLong z = 3;
    EXPECT_EQ(general().TarnDbGetStagePos(handle, &x, &y, &z), 0);
    EXPECT_EQ(general().TarnDbObjectRead(handle, "/no/such/standard.std"), 0);
    EXPECT_EQ(general().TarnDbObjectRead(handle, ""), 0);
    EXPECT_EQ(general().TarnDbGetStagePos(handle, &x, &y, &z), 0);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    general().TarnDbObjectDelete(handle);
}

// Guards against a crash on a handle that was never given out.
TEST_P(DatabaseConformance, HandlesThatWereNeverGivenOutAreRefused) {
    TarnLong n = 0;
    for (const TarnLong handle : {0, -1, 123456}) {
        EXPECT_EQ(general().TarnDbObjectRead(handle, "x.std"), 0);
        EXPECT_EQ(general().TarnDbGetStagePos(handle, &n, &n, &n), 0);
        EXPECT_EQ(general().TarnDbObjectDelete(handle), 0);
    }
    EXPECT_EQ(general().TarnDbObjectNew("NO SUCH TYPE"), 0);
}

// Guards against a calibration that ties the picture to the wrong places.
TEST_P(DatabaseConformance, ThePlaneThroughThreePointsIsSolved) {
    // 2 x - 3 y + 0.5 at (0, 0), (10, 0) and (0, 10).
    const TarnDouble matrix[] = {0, 0, 1, 10, 0, 1, 0, 10, 1};
    const TarnDouble rightSide[] = {0.5, 20.5, -29.5};
    TarnDouble guarded[] = {77.0, 0.0, 0.0, 0.0, 77.0};
    EXPECT_NE(general().TarnSolvePlan(3, matrix, rightSide, guarded + 1), 0);
    EXPECT_NEAR(guarded[1], 2.0, 1e-12);
    EXPECT_NEAR(guarded[2], -3.0, 1e-12);
    EXPECT_NEAR(guarded[3], 0.5, 1e-12);
    EXPECT_EQ(guarded[0], 77.0);
    EXPECT_EQ(guarded[4], 77.0);
}

// Guards against a calibration from three clicks on one line that sends the stage anywhere.
TEST_P(DatabaseConformance, PointsThatLeaveThePlaneOpenAreRefused) {
    const TarnDouble onOneLine[] = {0, 0, 1, 10, 10, 1, 20, 20, 1};
    const TarnDouble rightSide[] = {1, 2, 3};
    TarnDouble solution[] = {7, 8, 9};
    EXPECT_EQ(general().TarnSolvePlan(3, onOneLine, rightSide, solution), 0);
    const TarnDouble none = std::numeric_limits<TarnDouble>::quiet_NaN();
    const TarnDouble noNumbers[] = {none, 0, 1, 10, 0, 1, 0, 10, 1};
    EXPECT_EQ(general().TarnSolvePlan(3, noNumbers, rightSide, solution), 0);
    for (const TarnLong rows : {-1, 0, 1, 4}) {
        EXPECT_EQ(general().TarnSolvePlan(rows, onOneLine, rightSide, solution), 0);
    }
    EXPECT_EQ(solution[0], 7);
    EXPECT_EQ(solution[1], 8);
    EXPECT_EQ(solution[2], 9);
}

INSTANTIATE_TEST_SUITE_P(Hosts, DatabaseConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
