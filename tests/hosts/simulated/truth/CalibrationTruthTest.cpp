// A calibration made through the boundary, against where things really are.

#include "pictures/Calibration.h"
#include "pictures/PicturePoint.h"
#include "tests/hosts/simulated/truth/TruthRig.h"

#include <array>
#include <cmath>
#include <random>

namespace hosts::simulated {
namespace {

using ocuva::Calibration;
using ocuva::CalibrationPoint;
using ocuva::PicturePoint;

struct CalibratedMicroscope : testing::Test {
    // A tilted plane, so that three heights tell all of it.
    TruthRig rig{"[Optics]\nSurfaceCurvature=0\nSurfaceHeight=30\n"};
    Calibration calibration{rig.host->tn_lib_proxy()};
    std::mt19937 random{7};

    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    }
    // Where the stage must stand for a place of the picture to be under the centre: the sample moves under a
    // fixed camera, so a place on the right is reached by going down in X.
    static ocuva::ExactStagePosition
    placeOf(const PicturePoint& at, const ocuva::ExactStagePosition& pictureTakenAt, const FieldSize& field) {
        ocuva::ExactStagePosition place = pictureTakenAt;
        place.x -= (at.XPic / ocuva::pictureUnits - 0.5) * field.width;
        place.y -= (at.YPic / ocuva::pictureUnits - 0.5) * field.height;
        return place;
    }
    // Drives to a place of the picture and into focus there, and reads the stage, as an operator does.
    CalibrationPoint pickAndRead(int xi, int yi, const ocuva::ExactStagePosition& pictureTakenAt) {
        const ocuva::ExactStagePosition place = placeOf({static_cast<float>(xi), static_cast<float>(yi)},
                                                        pictureTakenAt, rig.host->truth().field());
        rig.goTo(1, static_cast<TarnLong>(std::lround(place.x)));
        rig.goTo(2, static_cast<TarnLong>(std::lround(place.y)));
        rig.goTo(3, static_cast<TarnLong>(std::lround(rig.host->truth().bestFocusZ())));
        return {static_cast<ocuva::Integer>(xi), static_cast<ocuva::Integer>(yi), rig.reading(1),
                rig.reading(2), rig.reading(3)};
    }
    // Picture coordinates that are whole stage units of a field of 640 x 480.
    int onWholeUnit(int low, int high) {
        constexpr int step = 125;
        return step * std::uniform_int_distribution<int>(low / step, high / step)(random);
    }
    ocuva::ExactStagePosition takePicture() {
        rig.goTo(1, static_cast<TarnLong>(between(-20000, 20000)));
        rig.goTo(2, static_cast<TarnLong>(between(-20000, 20000)));
        return rig.host->truth().position();
    }
    void compute() {
        calibration.ComputePicturePlan();
        calibration.ComputeStagePlan();
    }
};

TEST_F(CalibratedMicroscope, GivesEveryPlaceOfThePictureWithinHalfAUnitOfTheTruth) {
    ASSERT_DOUBLE_EQ(rig.host->truth().field().width, 640.0);
    for (int picture = 0; picture < 20; ++picture) {
        const ocuva::ExactStagePosition taken = takePicture();
        calibration.points = {false,
                              {{pickAndRead(onWholeUnit(0, 2000), onWholeUnit(0, 2000), taken),
                                pickAndRead(onWholeUnit(8000, 10000), onWholeUnit(0, 3000), taken),
                                pickAndRead(onWholeUnit(0, 3000), onWholeUnit(8000, 10000), taken)}}};
        compute();
        for (int query = 0; query < 200; ++query) {
            const PicturePoint at{static_cast<float>(between(0, 10000)),
                                  static_cast<float>(between(0, 10000))};
            const ocuva::ExactStagePosition truth = placeOf(at, taken, rig.host->truth().field());
            const ocuva::StagePosition found = calibration.ComputeStagePosition(at.XPic, at.YPic);
            ASSERT_NEAR(found.x, truth.x, 0.5001) << at.XPic;
            ASSERT_NEAR(found.y, truth.y, 0.5001) << at.YPic;
        }
    }
}

// Heights are read in whole units, so half a unit comes with each point and half with the answer.
TEST_F(CalibratedMicroscope, GivesTheHeightBetweenThePointsWithinTheRoundingOfTheirs) {
    for (int picture = 0; picture < 20; ++picture) {
        const ocuva::ExactStagePosition taken = takePicture();
        calibration.points = {
            false, {{pickAndRead(0, 0, taken), pickAndRead(10000, 0, taken), pickAndRead(0, 10000, taken)}}};
        compute();
        for (int query = 0; query < 200; ++query) {
            const double x = between(0, 10000);
            const double y = between(0, 10000 - x); // inside the triangle
            const PicturePoint at{static_cast<float>(x), static_cast<float>(y)};
            const ocuva::ExactStagePosition place = placeOf(at, taken, rig.host->truth().field());
            const ocuva::StagePosition found = calibration.ComputeStagePosition(at.XPic, at.YPic);
            ASSERT_NEAR(found.z, rig.host->truth().surfaceHeight(place.x, place.y), 1.01);
        }
    }
}

TEST_F(CalibratedMicroscope, HasTheTwoPointsOnItsLineAndIsLevelAcrossIt) {
    const ocuva::ExactStagePosition taken = takePicture();
    const CalibrationPoint a = pickAndRead(1000, 2000, taken);
    CalibrationPoint b = pickAndRead(9000, 8000, taken);
    b.ZS = a.ZS + 40;
    calibration.points = {true, {{a, b, {}}}};
    compute();
    EXPECT_EQ(calibration.ComputeStagePosition(1000, 2000), (ocuva::StagePosition{a.XS, a.YS, a.ZS}));
    EXPECT_EQ(calibration.ComputeStagePosition(9000, 8000), (ocuva::StagePosition{b.XS, b.YS, b.ZS}));
    const ocuva::StagePlan& plan = calibration.stagePlan();
    EXPECT_NEAR(plan.a * (a.YS - b.YS) + plan.b * (b.XS - a.XS), 0.0, 1e-6);
}

TEST_F(CalibratedMicroscope, WithAllPointsOnOneLineHasNoPlaneAndEveryZIsZero) {
    const ocuva::ExactStagePosition taken = takePicture();
    calibration.points = {
        false,
        {{pickAndRead(1000, 1000, taken), pickAndRead(5000, 5000, taken), pickAndRead(9000, 9000, taken)}}};
    compute();
    EXPECT_EQ(calibration.ComputeStagePosition(5000, 1000).z, 0);
}

} // namespace
} // namespace hosts::simulated
