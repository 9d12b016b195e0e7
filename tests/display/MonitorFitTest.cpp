#include "display/MonitorFit.h"

#include <gtest/gtest.h>
#include <limits>

using namespace ocuva;

namespace ocuva {
bool operator==(PixelSize a, PixelSize b) { return a.width == b.width && a.height == b.height; }
void PrintTo(PixelSize size, std::ostream* to) { *to << size.width << " x " << size.height; }
} // namespace ocuva

namespace {

constexpr PixelSize camera{768, 576};
constexpr PixelSize around{162, 200};
constexpr PixelSize hugeScreen{5000, 5000};

PixelSize withAround(PixelSize display) {
    return {display.width + around.width, display.height + around.height};
}

PixelSize fitted(PixelSize display, PixelSize before, PixelSize screen = hugeScreen, PixelSize of = camera) {
    return fittedWindow({of, withAround(display), around, screen, before});
}

} // namespace

TEST(ShownScale, IsThePixelsOfThePicturePerScreenPixel) {
    EXPECT_EQ(shownScale(camera, {384, 288}), (ShownScale{2.0, 2.0, false}));
    EXPECT_EQ(shownScale(camera, {768, 576}), (ShownScale{1.0, 1.0, false}));
    EXPECT_EQ(shownScale(camera, {768, 288}), (ShownScale{1.0, 2.0, true}));
    EXPECT_EQ(shownScale({0, 576}, {384, 288}), std::nullopt);
    EXPECT_EQ(shownScale(camera, {384, 0}), std::nullopt);
    EXPECT_EQ(shownScale({-768, 576}, {384, 288}), std::nullopt);
}

TEST(ShownScale, IsNotStretchedByAPixelThatRoundingTakes) {
    EXPECT_FALSE(shownScale({767, 575}, {384, 288})->stretched);
    EXPECT_FALSE(shownScale({767, 575}, {383, 287})->stretched);
    EXPECT_FALSE(shownScale(camera, {384, 289})->stretched);
    EXPECT_TRUE(shownScale(camera, {384, 291})->stretched);
    EXPECT_TRUE(shownScale(camera, {388, 288})->stretched);
}

TEST(ShownScale, IsWrittenWithAtMostTwoDecimals) {
    EXPECT_EQ(scaleText(1.0), "1:1");
    EXPECT_EQ(scaleText(2.0), "1:2");
    EXPECT_EQ(scaleText(1.9985), "1:2");
    EXPECT_EQ(scaleText(1.456), "1:1.46");
    EXPECT_EQ(scaleText(1.4), "1:1.4");
    EXPECT_EQ(scaleText(2.05), "1:2.05");
    EXPECT_EQ(scaleText(10.0), "1:10");
    EXPECT_EQ(scaleText(0.5), "2:1");
    EXPECT_EQ(scaleText(0.8), "1.25:1");
    EXPECT_EQ(scaleText(0.998), "1:1");
    EXPECT_EQ(scaleText(89478485.0), "1:1000000");
}

TEST(NeededReduction, IsLessThanThatOfTheZoomWhereThePictureIsShownLarger) {
    EXPECT_EQ(neededReduction(camera, {384, 288}, 2), 2);
    EXPECT_EQ(neededReduction(camera, {385, 289}, 2), 2);
    EXPECT_EQ(neededReduction(camera, {600, 450}, 2), 1);
    EXPECT_EQ(neededReduction(camera, {384, 450}, 2), 1) << "one axis is enough";
    EXPECT_EQ(neededReduction(camera, {100, 75}, 2), 2);
    EXPECT_EQ(neededReduction(camera, {384, 288}, 1), 1) << "1:1 is shown pixel for pixel";
    EXPECT_EQ(neededReduction({0, 0}, {384, 288}, 2), 2);
}

TEST(FittedWindow, KeepsAWindowWithTrueProportions) {
    for (const PixelSize display : {PixelSize{384, 288}, {768, 576}, {600, 450}, {601, 450}, {600, 451}}) {
        EXPECT_EQ(fitted(display, {384, 288}), withAround(display));
    }
}

TEST(FittedWindow, FollowsTheAxisThatTheOperatorChangedMore) {
    EXPECT_EQ(fitted({600, 288}, {384, 288}), withAround({600, 450}));
    EXPECT_EQ(fitted({384, 450}, {384, 288}), withAround({600, 450}));
    EXPECT_EQ(fitted({200, 288}, {384, 288}), withAround({200, 150}));
    EXPECT_EQ(fitted({400, 600}, {384, 288}), withAround({800, 600}));
    EXPECT_EQ(fitted({600, 288}, {}), withAround({600, 450})) << "nothing is known of before";
}

TEST(FittedWindow, IsNeverLargerThanTheScreen) {
    for (const PixelSize screen : {PixelSize{1280, 1024}, {1024, 819}, {853, 683}, {640, 512}, {1920, 400}}) {
        for (const PixelSize display : {PixelSize{768, 576}, {1360, 1024}, {5472, 3648}, {9838, 9800}}) {
            const PixelSize window = fitted(display, {384, 288}, screen);
            EXPECT_LE(window.width, screen.width);
            EXPECT_LE(window.height, screen.height);
            EXPECT_FALSE(
                shownScale(camera, {window.width - around.width, window.height - around.height})->stretched);
        }
    }
    EXPECT_EQ(fitted({768, 576}, {384, 288}, {640, 512}), withAround({416, 312}));
}

TEST(FittedWindow, KeepsTheSmallestImageAndItsProportion) {
    EXPECT_EQ(fitted({5, 5}, {384, 288}), withAround({32, 24}));
    EXPECT_EQ(fitted({5, 5}, {384, 288}, hugeScreen, {576, 768}), withAround({24, 32}));
}

TEST(FittedWindow, ForAnImpossiblePictureIsOnlyMovedOntoTheScreen) {
    constexpr int most = std::numeric_limits<int>::max();
    for (const PixelSize absurd : {PixelSize{0, 0}, {-5, 100}, {most, 1}, {1, most}, {-most, -most}}) {
        EXPECT_EQ(fitted({500, 300}, {384, 288}, {1280, 1024}, absurd), withAround({500, 300}));
        EXPECT_EQ(fitted({9000, 300}, {384, 288}, {1280, 1024}, absurd),
                  (PixelSize{1280, 300 + around.height}));
        EXPECT_FALSE(isPlausiblePicture(absurd));
    }
    EXPECT_EQ(fitted({9838, 9800}, {}, {1280, 1024}, {most, most}), (PixelSize{824 + around.width, 1024}));
    EXPECT_TRUE(isPlausiblePicture(camera));
    EXPECT_TRUE(isPlausiblePicture({32767, 1}));
    EXPECT_FALSE(isPlausiblePicture({100000, 100000}));
}
