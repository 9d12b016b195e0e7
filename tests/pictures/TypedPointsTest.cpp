#include "pictures/TypedPoints.h"

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

std::array<PointTexts, 3> goodTexts() {
    return {{{"1", "2", "3", "4", "5"},
             {"10000", "-7", "2147483647", "-2147483648", "0"},
             {"6", "7", "8", "9", "10"}}};
}

std::string complaint(bool twoPoints, const std::array<PointTexts, 3>& texts) {
    try {
        typedPoints(twoPoints, texts);
    } catch (const PointFieldError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(TypedCalibrationPoints, AreReadFromTheirBoxes) {
    const CalibrationPoints expected{
        false, {{{1, 2, 3, 4, 5}, {10000, -7, 2147483647, -2147483647 - 1, 0}, {6, 7, 8, 9, 10}}}};
    EXPECT_EQ(typedPoints(false, goodTexts()), expected);
}

TEST(TypedCalibrationPoints, OfTwoLeaveTheThirdRowUnread) {
    std::array<PointTexts, 3> texts = goodTexts();
    texts[2] = {"", "what", "", "", ""};
    const CalibrationPoints points = typedPoints(true, texts);
    EXPECT_TRUE(points.twoPoints);
    EXPECT_EQ(points.points[2], CalibrationPoint{});
    EXPECT_EQ(points.points[1].XS, 2147483647);
}

TEST(TypedCalibrationPoints, AreRoundedHalfToEvenAndMayHaveADecimalCommaAndBlanks) {
    std::array<PointTexts, 3> texts = goodTexts();
    texts[0] = {" 2,5 ", "3.5", "-0.5", "4.5", "+7"};
    EXPECT_EQ(typedPoints(false, texts).points[0], (CalibrationPoint{2, 4, 0, 4, 7}));
}

TEST(TypedCalibrationPoints, NameTheBoxOfABadText) {
    const std::array<const char*, 5> names{"picture X", "picture Y", "stage X", "stage Y", "stage Z"};
    for (std::size_t point = 0; point < 3; ++point) {
        for (std::size_t field = 0; field < names.size(); ++field) {
            std::array<PointTexts, 3> texts = goodTexts();
            texts.at(point).at(field) = std::string("12abc");
            EXPECT_EQ(complaint(false, texts), "Point " + std::to_string(point + 1) + ", " + names.at(field) +
                                                   ": \"12abc\" is not a number");
            texts.at(point).at(field) = std::string("");
            EXPECT_EQ(complaint(false, texts), "Point " + std::to_string(point + 1) + ", " + names.at(field) +
                                                   ": Nothing was typed where a number is needed");
        }
    }
}

TEST(TypedCalibrationPoints, TellWhichBoxItWas) {
    std::array<PointTexts, 3> texts = goodTexts();
    texts[1][3] = std::string("x");
    texts[2][0] = std::string("x"); // the first bad one counts
    try {
        typedPoints(false, texts);
        FAIL();
    } catch (const PointFieldError& error) {
        EXPECT_EQ(error.point(), 1U);
        EXPECT_EQ(error.field(), PointField::YS);
    }
}

TEST(TypedCalibrationPoints, FitInto16BitsOnThePictureAnd32OnTheStage) {
    std::array<PointTexts, 3> texts = goodTexts();
    texts[0][0] = std::string("32767");
    EXPECT_EQ(complaint(false, texts), "");
    texts[0][0] = std::string("32768");
    EXPECT_NE(complaint(false, texts).find("Point 1, picture X: "), std::string::npos);
    texts = goodTexts();
    texts[2][4] = std::string("2147483648");
    EXPECT_NE(complaint(false, texts).find("Point 3, stage Z: "), std::string::npos);
}

TEST(TypedCalibrationPoints, AreShownAsTheyWillBeReadAgain) {
    const CalibrationPoint point{-32768, 32767, -2147483647 - 1, 2147483647, -1};
    EXPECT_EQ(typedPoints(false, {pointTexts(point), goodTexts()[1], goodTexts()[2]}).points[0], point);
}
