#include "pictures/PicturePoint.h"

#include "base/Numbers.h"

#include <gtest/gtest.h>
#include <limits>

using namespace ocuva;

TEST(PicturePoints, TheRightAndTheLowerEdgeAre10000AtAnyZoom) {
    for (Long length = 1; length <= std::numeric_limits<Integer>::max(); ++length) {
        const auto edge = static_cast<Single>(length);
        ASSERT_EQ(picturePoint(edge, 0.0F, length, 100), (PicturePoint{10000.0F, 0.0F})) << length;
        ASSERT_EQ(picturePoint(0.0F, edge, 100, length), (PicturePoint{0.0F, 10000.0F})) << length;
    }
}

TEST(PicturePoints, AreMeasuredOnEachAxisByItsOwnLength) {
    EXPECT_EQ(picturePoint(1440.0F, 1080.0F, 5760, 4320), (PicturePoint{2500.0F, 2500.0F}));
    EXPECT_EQ(picturePoint(1440.0F, 1080.0F, 2880, 2160), (PicturePoint{5000.0F, 5000.0F}));
    EXPECT_EQ(picturePoint(0.0F, 0.0F, 5760, 4320), (PicturePoint{}));
}

TEST(PicturePoints, AreOutsideTheScaleIfOutsideThePicture) {
    EXPECT_EQ(picturePoint(-100.0F, 300.0F, 100, 200), (PicturePoint{-10000.0F, 15000.0F}));
}

TEST(PicturePoints, OfAPictureWiderOrHigherThan16BitsAreAnError) {
    EXPECT_NO_THROW(picturePoint(0.0F, 0.0F, 32767, 32767));
    EXPECT_THROW(picturePoint(0.0F, 0.0F, 32768, 100), ArithmeticError);
    EXPECT_THROW(picturePoint(0.0F, 0.0F, 100, 32768), ArithmeticError);
}

TEST(PicturePoints, OfAPictureWithoutWidthOrHeightAreAnError) {
    EXPECT_THROW(widePicturePoint(0.0F, 0.0F, 0, 100), ArithmeticError);
    EXPECT_THROW(picturePoint(0.0F, 0.0F, 0, 100), ArithmeticError);
    EXPECT_THROW(picturePoint(0.0F, 0.0F, 100, 0), ArithmeticError);
}

TEST(PicturePointOnAWideScreen, IsTheSameProportionBeyond16Bits) {
    for (const Long width : {100, 5760, 32767, 32768, 57600, 115200, 2147483647}) {
        const auto edge = static_cast<Single>(width);
        EXPECT_FLOAT_EQ(widePicturePoint(edge, 0.0F, width, 100).XPic, 10000.0F) << width;
        EXPECT_FLOAT_EQ(widePicturePoint(0.0F, edge / 4, 100, width).YPic, 2500.0F) << width;
    }
    for (Single x = 0.0F; x < 5760.0F; x += 7.0F) {
        EXPECT_EQ(widePicturePoint(x, x / 2, 5760, 4320), picturePoint(x, x / 2, 5760, 4320));
    }
}
