#include "pictures/Calibration.h"

#include "base/Numbers.h"
#include "hosts/common/services/PlanSolver.h"
#include "tests/support/StubHost.h"

#include <gtest/gtest.h>
#include <limits>

using namespace ocuva;

namespace {

// A stub host whose plane solver is the simulated host's.
class SolvingHost final : public StubHost {
public:
    TarnLong TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                           TarnDouble* solution) override {
        if (solverFails) {
            return 0;
        }
        return hosts::solvePlan(rows, matrix, rightSide, solution) ? 1 : 0;
    }
    bool solverFails = false;
};

struct PictureCalibration : testing::Test {
    SolvingHost host;
    Calibration calibration{host.tn_lib_proxy()};

    void compute() {
        calibration.ComputePicturePlan();
        calibration.ComputeStagePlan();
    }
};

constexpr Integer low = std::numeric_limits<Integer>::min();

} // namespace

TEST_F(PictureCalibration, TurnsPicturePointsIntoStagePositionsOverAllSignsMirrorsAndOrigins) {
    for (const int mirrorX : {-1, 1}) {
        for (const int mirrorY : {-1, 1}) {
            for (const Long origin : {-20000, 0, 12345}) {
                for (const double tilt : {-0.01, 0.0, 0.02}) {
                    const auto truth = [&](Integer xi, Integer yi) {
                        CalibrationPoint point{xi, yi, 0, 0, 0};
                        point.XS = origin + static_cast<Long>(mirrorX * xi * 0.064);
                        point.YS = -origin + static_cast<Long>(mirrorY * yi * 0.048);
                        point.ZS = static_cast<Long>(tilt * point.XS - 2 * tilt * point.YS + 7);
                        return point;
                    };
                    calibration.points = {false, {truth(0, 0), truth(10000, 1000), truth(2000, 9000)}};
                    compute();
                    for (const Integer x : {Integer{0}, Integer{2500}, Integer{9999}}) {
                        for (const Integer y : {Integer{0}, Integer{5000}, Integer{10000}}) {
                            const CalibrationPoint expected = truth(x, y);
                            const StagePosition found = calibration.ComputeStagePosition(x, y);
                            EXPECT_NEAR(found.x, expected.XS, 1);
                            EXPECT_NEAR(found.y, expected.YS, 1);
                            EXPECT_NEAR(found.z, expected.ZS, 3);
                        }
                    }
                }
            }
        }
    }
}

TEST_F(PictureCalibration, TakesThePairThatDiffersMostOnEachAxis) {
    calibration.points = {false, {{{0, 0, 0, 0, 0}, {0, 10000, 50, 1000, 0}, {10000, 50, 1000, 5, 0}}}};
    calibration.ComputePicturePlan();
    EXPECT_DOUBLE_EQ(calibration.picturePlan().scaleX, 0.1); // 1-3; points 1 and 2 have the same X
    EXPECT_DOUBLE_EQ(calibration.picturePlan().offsetX, 0.0);
    EXPECT_DOUBLE_EQ(calibration.picturePlan().scaleY, 0.1); // 1-2
}

TEST_F(PictureCalibration, OfPairsThatDifferEquallyTakesTheFirst) {
    calibration.points = {false, {{{0, 0, 0, 0, 0}, {100, 10, 10, 1, 0}, {100, 20, -70, 2, 0}}}};
    calibration.ComputePicturePlan();
    EXPECT_DOUBLE_EQ(calibration.picturePlan().scaleX, 0.1); // 1-2, not 1-3
}

TEST_F(PictureCalibration, WithTwoPointsEqualOnAnAxisFaultsAndKeepsThePlan) {
    calibration.points = {true, {{{0, 0, 0, 0, 0}, {10000, 10000, 640, 480, 0}, {}}}};
    calibration.ComputePicturePlan();
    const double before = calibration.picturePlan().scaleX;
    calibration.points.points[1].XI = 0;
    EXPECT_THROW(calibration.ComputePicturePlan(), ArithmeticError);
    EXPECT_EQ(calibration.picturePlan().scaleX, before);
}

TEST_F(PictureCalibration, ChecksTheImageDifferencesIn16BitsAndTheStageDifferencesIn32) {
    calibration.points = {true, {{{-20000, 0, 0, 0, 0}, {20000, 10000, 640, 480, 0}, {}}}};
    EXPECT_THROW(calibration.ComputePicturePlan(), ArithmeticError);
    calibration.points = {true, {{{0, 0, 0, 0, 0}, {low, 10000, 640, 480, 0}, {}}}};
    EXPECT_THROW(calibration.ComputePicturePlan(), ArithmeticError); // the absolute value of -32768
    calibration.points = {true, {{{0, 0, -2000000000, 0, 0}, {10000, 10000, 2000000000, 480, 0}, {}}}};
    EXPECT_THROW(calibration.ComputePicturePlan(), ArithmeticError);
}

TEST_F(PictureCalibration, IgnoresTheThirdPointWhenTwoAreUsed) {
    calibration.points = {true,
                          {{{0, 0, 0, 0, 10}, {10000, 10000, 640, 480, 10}, {30000, -30000, 9, 9, 99}}}};
    compute();
    EXPECT_DOUBLE_EQ(calibration.picturePlan().scaleX, 0.064);
    EXPECT_EQ(calibration.ComputeStagePosition(5000, 5000).z, 10);
}

TEST_F(PictureCalibration, WithTwoPointsThePlaneIsLevelAcrossTheLineThroughThem) {
    calibration.points = {true, {{{0, 0, 0, 0, 0}, {10000, 10000, 1000, 0, 100}, {}}}};
    calibration.points.points[1].YS = 0;
    calibration.ComputeStagePlan();
    EXPECT_NEAR(calibration.stagePlan().a, 0.1, 1e-12);
    EXPECT_NEAR(calibration.stagePlan().b, 0.0, 1e-12);
    EXPECT_NEAR(calibration.stagePlan().c, 0.0, 1e-9);
    calibration.points.points[1] = {10000, 10000, 300, 400, 50};
    calibration.ComputeStagePlan();
    EXPECT_NEAR(calibration.stagePlan().a * -400 + calibration.stagePlan().b * 300, 0.0, 1e-9);
    EXPECT_NEAR(calibration.stagePlan().a * 300 + calibration.stagePlan().b * 400, 50.0, 1e-9);
}

TEST_F(PictureCalibration, WithoutASolutionEveryZIsZero) {
    calibration.points = {false, {{{0, 0, 0, 0, 500}, {10000, 0, 640, 0, 600}, {0, 10000, 0, 480, 700}}}};
    compute();
    ASSERT_NE(calibration.ComputeStagePosition(5000, 5000).z, 0);
    host.solverFails = true;
    calibration.ComputeStagePlan();
    for (const Single x : {0.0F, 5000.0F, 10000.0F}) {
        EXPECT_EQ(calibration.ComputeStagePosition(x, x).z, 0);
    }
}

TEST_F(PictureCalibration, PointsOnOneLineHaveNoPlane) {
    calibration.points = {false, {{{0, 0, 0, 0, 5}, {5000, 5000, 100, 100, 6}, {10000, 10000, 200, 200, 7}}}};
    compute();
    EXPECT_EQ(calibration.ComputeStagePosition(5000, 5000).z, 0);
}

TEST_F(PictureCalibration, RoundsHalfToEvenAndTakesZAtTheRoundedPlace) {
    calibration.points = {false, {{{0, 0, 0, 0, 0}, {100, 0, 50, 0, 50}, {0, 100, 0, 50, 0}}}};
    compute();
    const StagePosition point = calibration.ComputeStagePosition(3.0F, 5.0F); // X 1.5, Y 2.5
    EXPECT_EQ(point.x, 2);
    EXPECT_EQ(point.y, 2);
    EXPECT_EQ(point.z, 2);
}

TEST_F(PictureCalibration, APositionThatLeaves32BitsIsAnError) {
    calibration.points = {true, {{{0, 0, 0, 0, 0}, {1, 1, 2000000000, 480, 0}, {}}}};
    calibration.ComputePicturePlan();
    EXPECT_THROW(calibration.ComputeStagePosition(10000.0F, 0.0F), ArithmeticError);
}
