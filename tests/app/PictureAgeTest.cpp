#include "app/PictureAge.h"

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

constexpr StagePosition here{0, 0, 0};
constexpr StagePosition there{100, 0, 0};

PictureAge freshPicture() {
    PictureAge age;
    age.frameShown();
    return age;
}

} // namespace

TEST(PictureAge, NoPictureIsAnOldOne) {
    EXPECT_TRUE(PictureAge().isOld());
    EXPECT_FALSE(freshPicture().isOld());
}

TEST(PictureAge, IsOldFromTheStartOfAMoveUntilTheStageIsBackOrAFrameComes) {
    PictureAge age = freshPicture();
    age.moveStarted(axisAll, here);
    EXPECT_TRUE(age.isOld());
    age.positionRead(there);
    EXPECT_TRUE(age.isOld());
    age.moveStarted(axisX, there);
    age.positionRead(here);
    EXPECT_FALSE(age.isOld());
    age.moveStarted(axisY, here);
    age.frameShown();
    EXPECT_FALSE(age.isOld());
}

TEST(PictureAge, AMoveThatEndsWhereItBeganLeavesThePictureAsItIs) {
    PictureAge age = freshPicture();
    age.moveStarted(axisAll, here);
    age.positionRead(here);
    EXPECT_FALSE(age.isOld());
}

TEST(PictureAge, AMoveOfZAloneAndAPositionWithoutAnyMoveMakeNoPictureOld) {
    PictureAge age = freshPicture();
    age.moveStarted(axisZ, here);
    age.positionRead(there);
    EXPECT_FALSE(age.isOld());
}

TEST(PictureAge, AMoveFromAnUnknownPlaceStaysCounted) {
    PictureAge age = freshPicture();
    age.moveStarted(axisAll, {});
    age.positionRead(here);
    EXPECT_TRUE(age.isOld());
}
