#include "display/CrossGeometry.h"
#include "display/GridGeometry.h"
#include "display/OverlayMapping.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr ScreenMetrics screen;
constexpr ImagePoint centre{2880, 2160}; // of 384 x 288 pixels

OverlayMapping mapping(int width = 384, int height = 288) { return {5760, 4320, {width, height}, screen}; }

std::vector<PixelRect> cross(CrossShape shape, const OverlayMapping& onDisplay = mapping()) {
    std::vector<PixelRect> rects;
    for (const OverlayBar& arm : crossArms(centre, shape, screen)) {
        rects.push_back(onDisplay.toDisplay(arm).value_or(PixelRect{}));
    }
    return rects;
}

std::vector<int> lefts(const std::vector<PixelRect>& bars, int count) {
    std::vector<int> result;
    result.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        result.push_back(bars.at(static_cast<std::size_t>(i)).left);
    }
    return result;
}

} // namespace

TEST(CrossGeometry, HasFourArmsFromTheGapToHalfItsSize) {
    EXPECT_THAT(cross({160, 2}), ElementsAre(PixelRect{112, 143, 70, 2}, PixelRect{202, 143, 70, 2},
                                             PixelRect{191, 64, 2, 70}, PixelRect{191, 154, 2, 70}));
}

TEST(CrossGeometry, RoundsGapAndHalfSizeHalfToEven) {
    // 40 / 16 = 2.5 gives 2; 41 / 2 = 20.5 gives 20.
    EXPECT_EQ(cross({40, 2})[1], (PixelRect{194, 143, 18, 2}));
    EXPECT_EQ(cross({41, 2})[1], (PixelRect{195, 143, 17, 2}));
    // 24 / 16 = 1.5 gives 2 as well.
    EXPECT_EQ(cross({24, 2})[1], (PixelRect{194, 143, 10, 2}));
}

TEST(CrossGeometry, LeavesTheMiddleFreeAtEverySize) {
    const PixelRect middle{191, 143, 2, 2};
    for (Long size = 24; size < 2000; ++size) {
        for (const PixelRect& arm : cross({size, 2})) {
            const bool apart = arm.left >= middle.left + middle.width ||
                               middle.left >= arm.left + arm.width || arm.top >= middle.top + middle.height ||
                               middle.top >= arm.top + arm.height;
            ASSERT_TRUE(apart) << size;
        }
    }
}

TEST(CrossGeometry, IsCutOffAtTheEdgesOfTheDisplay) {
    EXPECT_THAT(cross({500, 33}), ElementsAre(PixelRect{0, 128, 161, 33}, PixelRect{223, 128, 161, 33},
                                              PixelRect{176, 0, 33, 113}, PixelRect{176, 175, 33, 113}));
}

TEST(CrossGeometry, WithoutSizeHasNoArms) {
    for (const Long size : {Long{0}, Long{-5}, std::numeric_limits<Long>::min()}) {
        EXPECT_THAT(cross({size, 2}), testing::Each(PixelRect{}));
    }
}

TEST(CrossGeometry, OfAnySizeAndWidthStaysOnTheDisplay) {
    for (const Long size : {Long{1}, Long{7}, Long{100000}, std::numeric_limits<Long>::max()}) {
        for (const Long width : {Long{-1}, Long{0}, Long{1}, std::numeric_limits<Long>::max()}) {
            for (const PixelRect& arm : cross({size, width})) {
                EXPECT_GE(arm.left, 0);
                EXPECT_GE(arm.top, 0);
                EXPECT_LE(arm.left + arm.width, 384);
                EXPECT_LE(arm.top + arm.height, 288);
            }
        }
    }
}

TEST(CrossGeometry, WithoutWidthIsOnePixelThick) {
    EXPECT_EQ(cross({160, 0})[0].height, 1);
    EXPECT_EQ(cross({160, -3})[2].width, 1);
}

TEST(CrossGeometry, StaysInTheMiddleOfAStretchedPictureAsThickAsItWas) {
    EXPECT_THAT(cross({160, 2}, mapping(768, 288)),
                ElementsAre(PixelRect{224, 143, 140, 2}, PixelRect{404, 143, 140, 2},
                            PixelRect{383, 64, 2, 70}, PixelRect{383, 154, 2, 70}));
}

TEST(GridGeometry, BeginsHalfAPitchFromTheCentreAndContinuesInWholePitches) {
    const GridBars grid = gridBars(centre, {100, 96, 2}, mapping(), screen);
    ASSERT_EQ(grid.bars.size(), 4U + 4U);
    EXPECT_THAT(lefts(grid.bars, 4), ElementsAre(41, 141, 241, 341));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(grid.bars[i].width, 2);
        EXPECT_EQ(grid.bars[i].top, 0);
        EXPECT_EQ(grid.bars[i].height, 288);
    }
    // 144 - 48 - 96 = 0: half of that bar is on the display.
    EXPECT_EQ(grid.bars[4], (PixelRect{0, 0, 384, 1}));
    EXPECT_EQ(grid.bars[5], (PixelRect{0, 95, 384, 2}));
    EXPECT_EQ(grid.bars[6], (PixelRect{0, 191, 384, 2}));
    EXPECT_EQ(grid.bars[7], (PixelRect{0, 287, 384, 1}));
}

TEST(GridGeometry, IsSymmetricRoundTheCentreAndEvenlySpacedAtEveryPitch) {
    for (Long pitch = 2; pitch <= 800; ++pitch) {
        const GridBars grid = gridBars(centre, {pitch, 10000, 2}, mapping(), screen);
        for (std::size_t i = 1; i < grid.bars.size(); ++i) {
            const int spacing = grid.bars[i].left - grid.bars[i - 1].left;
            ASSERT_NEAR(spacing, static_cast<int>(pitch), 1) << pitch;
        }
        ASSERT_EQ(grid.bars.size() % 2, 0U) << pitch;
        if (!grid.bars.empty()) {
            const PixelRect& last = grid.bars.back();
            ASSERT_NEAR(grid.bars.front().left, 384 - last.left - last.width, 1) << pitch;
        }
    }
}

TEST(GridGeometry, WiderThanThePictureHasNoBarOnIt) {
    EXPECT_THAT(gridBars(centre, {2000, 1500, 33}, mapping(), screen).bars, IsEmpty());
}

TEST(GridGeometry, BelowTwoPixelsShowsNoGridInsteadOfAFilledPicture) {
    for (const Long pitch : {Long{1}, Long{0}, Long{-1}, std::numeric_limits<Long>::min()}) {
        EXPECT_THAT(gridBars(centre, {pitch, 50, 1}, mapping(), screen).bars, IsEmpty()) << pitch;
        EXPECT_THAT(gridBars(centre, {50, pitch, 1}, mapping(), screen).bars, IsEmpty()) << pitch;
    }
    EXPECT_EQ(gridBars(centre, {2, 2, 1}, mapping(), screen).bars.size(), 192U + 144U);
}

TEST(GridGeometry, CountsThePitchOnTheDisplayNotOnTheInitialImage) {
    EXPECT_THAT(gridBars(centre, {6, 6, 1}, mapping(96, 72), screen).bars, IsEmpty());
    EXPECT_THAT(gridBars(centre, {1, 1, 1}, mapping(1536, 1152), screen).bars, testing::Not(IsEmpty()));
}

TEST(GridGeometry, NeverHidesMoreThanHalfOfThePicture) {
    for (const PixelRect& bar : gridBars(centre, {40, 30, 33}, mapping(), screen).bars) {
        EXPECT_LE(std::min(bar.width, bar.height), 20);
    }
}

TEST(GridGeometry, HasNoOutlinesIfItIsFine) {
    EXPECT_FALSE(gridBars(centre, {7, 50, 1}, mapping(), screen).roomForOutline);
    EXPECT_TRUE(gridBars(centre, {8, 50, 1}, mapping(), screen).roomForOutline);
}

TEST(GridGeometry, OnADisplayWithoutSizeHasNoBars) {
    EXPECT_THAT(gridBars(centre, {50, 50, 1}, mapping(0, 0), screen).bars, IsEmpty());
}

TEST(OverlayMapping, OfAPictureNotYetSizedIsThatOfTheScreen) {
    const OverlayMapping unsized(0, 0, {384, 288}, screen);
    EXPECT_EQ(unsized.pixelsX(150), 10.0);
    EXPECT_EQ(unsized.pixelsY(150), 10.0);
}
