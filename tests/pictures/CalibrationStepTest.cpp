#include "pictures/CalibrationStep.h"

#include "pictures/CalibrationField.h"

#include <gmock/gmock.h>

using namespace ocuva;

namespace {

std::array<PointTexts, 3> usableTexts() {
    return {{{"0", "0", "-320", "-240", "10"},
             {"10000", "0", "320", "-240", "12"},
             {"0", "10000", "-320", "240", "14"}}};
}

CalibrationPoints turned(double signX, double signY) {
    const auto x = static_cast<Long>(signX * 320);
    const auto y = static_cast<Long>(signY * 240);
    return {false, {{{0, 0, -x, -y, 0}, {10000, 0, x, -y, 0}, {0, 10000, -x, y, 0}}}};
}

} // namespace

TEST(NextCalibrationStep, PicksAllPointsBeforeAnyIsRead) {
    std::array<PointTexts, 3> texts;
    EXPECT_EQ(nextCalibrationStep(false, texts), (CalibrationStep{CalibrationStep::Kind::Pick, 0}));
    texts[0] = {"0", "0", "", "", ""};
    EXPECT_EQ(nextCalibrationStep(false, texts), (CalibrationStep{CalibrationStep::Kind::Pick, 1}));
    texts = usableTexts();
    texts[0][4].clear();
    texts[2][1].clear();
    EXPECT_EQ(nextCalibrationStep(false, texts), (CalibrationStep{CalibrationStep::Kind::Pick, 2}));
    texts[2][1] = "5";
    EXPECT_EQ(nextCalibrationStep(false, texts), (CalibrationStep{CalibrationStep::Kind::Read, 0}));
}

TEST(NextCalibrationStep, IsToCorrectABoxThatHoldsNoNumber) {
    std::array<PointTexts, 3> texts = usableTexts();
    texts[1][3] = "12abc";
    texts[0][0].clear();
    EXPECT_EQ(nextCalibrationStep(false, texts),
              (CalibrationStep{CalibrationStep::Kind::Correct, 1, PointField::YS}));
}

TEST(NextCalibrationStep, AcceptsOnlyPointsThatCanBeComputed) {
    std::array<PointTexts, 3> texts = usableTexts();
    EXPECT_EQ(nextCalibrationStep(false, texts).kind, CalibrationStep::Kind::Accept);
    texts[2] = {};
    EXPECT_EQ(nextCalibrationStep(true, texts).kind, CalibrationStep::Kind::Unusable)
        << "both points have one Y";
    texts[1][1] = "10000";
    EXPECT_EQ(nextCalibrationStep(true, texts).kind, CalibrationStep::Kind::Accept);
}

TEST(FieldOfACalibration, IsItsWidthAtMagnification100WithTheDirectionOfEachAxis) {
    for (const double x : {-1.0, 1.0}) {
        for (const double y : {-1.0, 1.0}) {
            EXPECT_EQ(fieldOf(turned(x, y), 400), (CalibrationField{2560.0F, 1920.0F, x > 0.0, y > 0.0}));
        }
    }
}

TEST(FieldOfACalibration, IsNoneWithoutAScaleOrAMagnification) {
    EXPECT_EQ(fieldOf({}, 400), std::nullopt);
    EXPECT_EQ(fieldOf(turned(0.0, 1.0), 400), std::nullopt);
    EXPECT_EQ(fieldOf(turned(1.0, 1.0), 0), std::nullopt);
}
