#include "pictures/CalibrationQuality.h"

#include "pictures/PicturePoint.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <random>

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Kind = CalibrationRemark::Kind;

namespace {

constexpr double fieldX = 640.0;
constexpr double fieldY = 480.0;

// A camera that is turned, whose axes are not square, and that may be mirrored, over a stage.
struct Camera {
    double turnDegrees = 0.0;
    double angleDegrees = 90.0;
    double mirrorX = 1.0;
    double mirrorY = 1.0;
    double originX = 0.0;
    double originY = 0.0;

    CalibrationPoint at(Integer xi, Integer yi) const {
        const double turn = turnDegrees * std::numbers::pi / 180;
        const double other = (turnDegrees + angleDegrees) * std::numbers::pi / 180;
        const double x = mirrorX * fieldX * xi / pictureUnits;
        const double y = mirrorY * fieldY * yi / pictureUnits;
        return {xi, yi,
                static_cast<Long>(std::lround(100 * (originX + x * std::cos(turn) + y * std::cos(other)))),
                static_cast<Long>(std::lround(100 * (originY + x * std::sin(turn) + y * std::sin(other)))),
                0};
    }
    CalibrationPoints points() const { return {false, {at(1000, 1000), at(9000, 1500), at(2000, 9000)}}; }
};

std::vector<Kind> kinds(const CalibrationQuality& quality) {
    std::vector<Kind> found;
    found.reserve(quality.remarks.size());
    for (const CalibrationRemark& remark : quality.remarks) {
        found.push_back(remark.kind);
    }
    return found;
}

std::vector<Kind> remarksOn(const CalibrationPoints& points) { return kinds(calibrationQuality(points)); }

const CalibrationPoints good{false,
                             {{{0, 0, -320, -240, 0}, {10000, 0, 320, -240, 0}, {0, 10000, -320, 240, 0}}}};

} // namespace

TEST(CalibrationQuality, ReportsTheScaleInStageUnitsAcrossThePicture) {
    const CalibrationQuality quality = calibrationQuality(good);
    EXPECT_DOUBLE_EQ(*quality.unitsPerWidth, 640.0);
    EXPECT_DOUBLE_EQ(*quality.unitsPerHeight, 480.0);
    EXPECT_THAT(quality.remarks, IsEmpty());
}

TEST(CalibrationQuality, ComputesAngleAndRotationForAllMirrorsAndOrigins) {
    for (const double mirrorX : {-1.0, 1.0}) {
        for (const double mirrorY : {-1.0, 1.0}) {
            for (const double origin : {-20000.0, 0.0, 12345.0}) {
                for (const double turn : {-20.0, 0.0, 7.0}) {
                    for (const double angle : {80.0, 90.0, 95.0}) {
                        const Camera camera{turn, angle, mirrorX, mirrorY, origin, -origin};
                        const CalibrationQuality quality = calibrationQuality(camera.points());
                        const double seen = mirrorX * mirrorY > 0 ? angle : 180.0 - angle;
                        ASSERT_NEAR(quality.axesAngleDegrees.value(), seen, 0.01);
                        ASSERT_NEAR(quality.turnDegrees.value(), turn, 0.01);
                    }
                }
            }
        }
    }
}

TEST(CalibrationQuality, HasNoResidualWhereTheAxesAreTheStages) {
    const CalibrationQuality quality = calibrationQuality(Camera{}.points());
    for (const CalibrationResidual& residual : *quality.residuals) {
        EXPECT_LT(residual.length(), 1.0);
    }
}

TEST(CalibrationQuality, ResidualsAreWhatTheMapOfEachAxisLeavesOverAndTheLongestIsTheWorst) {
    CalibrationPoints points = good;
    points.points[2].XS += 30; // X is mapped by 1-2, and this is all that it leaves at 3
    points.points[1].YS -= 40; // Y is mapped by 1-3
    const CalibrationQuality quality = calibrationQuality(points);
    EXPECT_NEAR(quality.residuals->at(0).length(), 0.0, 1e-9);
    EXPECT_NEAR(quality.residuals->at(1).y, 40.0, 1e-9);
    EXPECT_NEAR(quality.residuals->at(2).x, -30.0, 1e-9);
    EXPECT_EQ(quality.worst, 1U);
}

TEST(CalibrationQuality, NamesNoWorstPointWhileAllAreWithinTheRoundingOfTheStage) {
    EXPECT_EQ(calibrationQuality(good).worst, std::nullopt);
}

TEST(CalibrationQuality, ATurnedCameraShowsInTheResiduals) {
    const CalibrationQuality quality = calibrationQuality(Camera{5.0}.points());
    EXPECT_GT(quality.residuals->at(*quality.worst).length(), 100 * 20.0);
}

TEST(CalibrationQuality, OfTwoPointsHasAScaleButNeitherAnglesNorResiduals) {
    CalibrationPoints points = good;
    points.twoPoints = true;
    points.points[1].YI = 10000;
    const CalibrationQuality quality = calibrationQuality(points);
    EXPECT_TRUE(quality.isComputable());
    EXPECT_EQ(quality.axesAngleDegrees, std::nullopt);
    EXPECT_EQ(quality.residuals, std::nullopt);
}

TEST(CalibrationQuality, PointsWithoutAnyDifferenceOnAnAxisOfThePictureHaveNoScale) {
    CalibrationPoints points = good;
    for (CalibrationPoint& point : points.points) {
        point.XI = 77;
    }
    const CalibrationQuality quality = calibrationQuality(points);
    EXPECT_FALSE(quality.isComputable());
    EXPECT_THAT(kinds(quality), Contains(Kind::NoXScale));
    EXPECT_THAT(kinds(quality), Not(Contains(Kind::NoYScale)));
    for (CalibrationPoint& point : points.points) {
        point.YI = 77;
    }
    EXPECT_THAT(remarksOn(points), Contains(Kind::NoYScale));
}

TEST(CalibrationQuality, OfTwoPointsDoesNotLookAtTheThird) {
    CalibrationPoints points{true, {{{5, 0, 0, 0, 0}, {5, 10000, 640, 480, 0}, {9, 9, 9, 9, 9}}}};
    EXPECT_THAT(remarksOn(points), ElementsAre(Kind::NoXScale));
}

TEST(CalibrationQuality, NamesPointsThatCoincideOnThePictureOrOnTheStage) {
    CalibrationPoints points = good;
    points.points[2].XI = points.points[1].XI;
    points.points[2].YI = points.points[1].YI;
    points.points[1].YI = points.points[2].YI = 5000; // still a scale on both axes
    points.points[1].YS = 0;
    EXPECT_THAT(calibrationQuality(points).remarks,
                ElementsAre(CalibrationRemark{Kind::SameOnPicture, 1, 2}));
    points = good;
    points.points[2].XS = points.points[0].XS;
    points.points[2].YS = points.points[0].YS;
    points.points[2].ZS = 99;
    EXPECT_THAT(calibrationQuality(points).remarks, Contains(CalibrationRemark{Kind::SameOnStage, 0, 2}));
}

TEST(CalibrationQuality, NamesPointsOnOneLine) {
    const CalibrationPoints line{false,
                                 {{{0, 0, 0, 0, 0}, {5000, 5000, 320, 240, 0}, {10000, 10000, 640, 480, 0}}}};
    const CalibrationQuality quality = calibrationQuality(line);
    EXPECT_THAT(kinds(quality), ElementsAre(Kind::LineOnPicture, Kind::LineOnStage));
    EXPECT_TRUE(quality.isComputable());
    EXPECT_EQ(quality.axesAngleDegrees, std::nullopt);
}

TEST(CalibrationQuality, NamesPointsThatAreNearlyOnOneLine) {
    CalibrationPoints points{false,
                             {{{0, 0, 0, 0, 0}, {5000, 5000, 320, 240, 0}, {10000, 10000, 640, 480, 0}}}};
    points.points[1].XI = 5300;
    points.points[1].XS = 340;
    EXPECT_THAT(remarksOn(points), ElementsAre(Kind::NearLineOnPicture, Kind::NearLineOnStage));
}

TEST(CalibrationQuality, ReportsAStageAxisThatDoesNotChangeAcrossThePicture) {
    CalibrationPoints points = good;
    points.points[1].XS = points.points[0].XS;
    points.points[1].YS += 300;
    points.points[2].XS += 300;
    EXPECT_THAT(remarksOn(points), ElementsAre(Kind::FlatX));
    points = good;
    points.points[2].YS = points.points[0].YS;
    points.points[2].XS += 300;
    points.points[1].YS += 300;
    EXPECT_THAT(remarksOn(points), ElementsAre(Kind::FlatY));
}

TEST(CalibrationQuality, ReportsPointsThatAreTooFarApartToCompute) {
    CalibrationPoints points = good;
    points.points[0].XI = -32768;
    points.points[1].XI = 32767;
    EXPECT_THAT(remarksOn(points), Contains(Kind::OutOfRange));
    points = good;
    points.points[0].XS = -2147483647;
    points.points[1].XS = 2147483647;
    EXPECT_THAT(remarksOn(points), Contains(Kind::OutOfRange));
}

// Whatever the points are: it is computable exactly when the picture plan can be computed, and every number
// that it tells is one.
TEST(CalibrationQuality, AgreesWithThePlanOnWhetherAnyPointsCanBeComputed) {
    std::mt19937 random(20240711);
    std::uniform_int_distribution<int> coarse(-3, 3);
    for (int i = 0; i < 20000; ++i) {
        const int spread = i % 3 == 0 ? 9000 : 1;
        CalibrationPoints points;
        points.twoPoints = i % 2 == 0;
        for (CalibrationPoint& point : points.points) {
            point = {static_cast<Integer>(spread * coarse(random)),
                     static_cast<Integer>(spread * coarse(random)), 700000000 * coarse(random),
                     700000000 * coarse(random), coarse(random)};
        }
        bool computable = true;
        try {
            picturePlanThrough(points);
        } catch (const std::exception&) {
            computable = false;
        }
        const CalibrationQuality quality = calibrationQuality(points);
        ASSERT_EQ(quality.isComputable(), computable) << i;
        ASSERT_TRUE(computable || !quality.remarks.empty()) << i;
        if (quality.axesAngleDegrees) {
            ASSERT_TRUE(*quality.axesAngleDegrees > 0.0 && *quality.axesAngleDegrees < 180.0) << i;
            ASSERT_LE(std::abs(*quality.turnDegrees), 90.0) << i;
        }
    }
}
