#include "controls/DialogPlace.h"

#include "tests/support/PrintRect.h"

#include <gtest/gtest.h>
#include <random>

using namespace ocuva;

namespace {

const QRect screen(0, 0, 1000, 800);

// A main window with its parts where they are in the real one.
Surroundings mainWindowAt(const QRect& frame, const QRect& onScreen = screen) {
    Surroundings around;
    around.screen = onScreen;
    around.mainWindow = frame;
    around.watched = {{frame.left() + 20, frame.top() + 80, frame.width() - 90, frame.height() - 110},
                      {frame.right() - 60, frame.top() + 60, 50, frame.height() - 90}};
    around.hint = {frame.left(), frame.bottom() - 24, frame.width(), 25};
    return around;
}

int covered(const QRect& dialog, const Surroundings& around) {
    int pixels = 0;
    for (const QRect& rect : around.watched) {
        const QRect common = dialog & rect;
        pixels += common.isEmpty() ? 0 : common.width() * common.height();
    }
    return pixels;
}

} // namespace

TEST(FreeRectangles, AreTheLargestOnesAroundTheOccupiedOnes) {
    EXPECT_EQ(freeRectangles(screen, {}), QList<QRect>{screen});
    EXPECT_EQ(freeRectangles(screen, {{100, 50, 400, 500}}),
              (QList<QRect>{{500, 0, 500, 800}, {0, 0, 100, 800}, {0, 550, 1000, 250}, {0, 0, 1000, 50}}));
    EXPECT_EQ(freeRectangles(screen, {screen}), QList<QRect>{});
    EXPECT_EQ(freeRectangles(screen, {{2000, 0, 10, 10}}), QList<QRect>{screen});
    EXPECT_EQ(freeRectangles(screen, {{0, 0, 500, 800}, {500, 0, 500, 700}}),
              (QList<QRect>{{500, 700, 500, 100}}));
}

TEST(DialogPlace, IsRightOfTheMainWindowOtherwiseLeftBelowOrAbove) {
    const QSize size(300, 200);
    EXPECT_EQ(dialogPlace(mainWindowAt({100, 50, 400, 500}), size), QRect(506, 50, 300, 200));
    EXPECT_EQ(dialogPlace(mainWindowAt({500, 50, 400, 500}), size), QRect(194, 50, 300, 200));
    EXPECT_EQ(dialogPlace(mainWindowAt({100, 50, 800, 500}), size), QRect(100, 556, 300, 200));
    EXPECT_EQ(dialogPlace(mainWindowAt({100, 250, 800, 500}), size), QRect(100, 44, 300, 200));
}

TEST(DialogPlace, IsOnTheScreenNextToAMainWindowThatHangsOverItsEdge) {
    EXPECT_EQ(dialogPlace(mainWindowAt({100, -40, 400, 500}), {300, 200}), QRect(506, 0, 300, 200));
    EXPECT_EQ(dialogPlace(mainWindowAt({100, 700, 400, 500}), {300, 200}), QRect(506, 600, 300, 200));
}

TEST(DialogPlace, IsOnTheScreenOfTheMainWindow) {
    const QRect second(1000, 100, 1600, 1000);
    EXPECT_EQ(dialogPlace(mainWindowAt({1100, 200, 400, 500}, second), {300, 200}),
              QRect(1506, 200, 300, 200));
}

TEST(DialogPlace, HasNoGapIfThereIsNoRoomForOne) {
    EXPECT_EQ(dialogPlace(mainWindowAt({0, 0, 700, 800}), {300, 200}), QRect(700, 0, 300, 200));
}

TEST(DialogPlace, OverTheMainWindowIsClearOfImagePanelAndStatusBarWhereThereIsRoom) {
    const Surroundings around = mainWindowAt({0, 200, 1000, 600});
    const QRect place = dialogPlace(around, {400, 270});
    EXPECT_TRUE(isClear(place, around)) << testing::PrintToString(place);
    EXPECT_TRUE(place.intersects(around.mainWindow));
}

TEST(DialogPlace, CoversTheStatusBarBeforeItCoversTheImage) {
    Surroundings around = mainWindowAt({0, 0, 1000, 800});
    around.watched = {{0, 0, 1000, 500}};
    around.hint = {0, 600, 1000, 25};
    const QRect place = dialogPlace(around, {400, 250});
    EXPECT_EQ(covered(place, around), 0);
    EXPECT_TRUE(place.intersects(around.hint));
}

TEST(DialogPlace, CoversAsLittleOfTheImageAsPossibleAndNeverTheStatusBar) {
    const Surroundings around = mainWindowAt(screen);
    const QRect place = dialogPlace(around, {300, 200});
    EXPECT_TRUE(screen.contains(place));
    EXPECT_FALSE(place.intersects(around.hint));
    for (int x = 0; x <= 700; x += 10) {
        for (int y = 0; y <= 600; y += 10) {
            const QRect other(x, y, 300, 200);
            if (!other.intersects(around.hint)) {
                ASSERT_LE(covered(place, around), covered(other, around)) << x << ',' << y;
            }
        }
    }
}

TEST(DialogPlace, IsMadeSmallerIfPossibleBeforeItCoversAnything) {
    const QSize page(900, 600);
    EXPECT_EQ(dialogPlace(mainWindowAt({200, 450, 500, 350}), page, {600, 400}), QRect(100, 0, 900, 444));
    EXPECT_EQ(dialogPlace(mainWindowAt({0, 100, 350, 700}), page, {600, 400}), QRect(356, 100, 644, 600));
    const QRect wide(50, 150, 900, 500);
    EXPECT_EQ(dialogPlace(mainWindowAt(wide), page, {600, 400}).size(), page); // no room for the smallest
}

TEST(DialogPlace, ThatMayNotBeMadeSmallerKeepsItsSize) {
    EXPECT_EQ(dialogPlace(mainWindowAt({0, 100, 350, 700}), {900, 600}).size(), QSize(900, 600));
}

TEST(DialogPlace, OfADialogLargerThanTheScreenIsTheScreen) {
    EXPECT_EQ(dialogPlace(mainWindowAt({100, 100, 400, 400}), {3000, 2000}), screen);
}

TEST(DialogPlace, OverAMainWindowThatIsNotShownIsOnTheScreen) {
    Surroundings around;
    around.screen = screen;
    EXPECT_EQ(dialogPlace(around, {300, 200}), QRect(0, 0, 300, 200));
}

TEST(DialogPlace, AvoidsTheOtherDialogsWhereItCan) {
    Surroundings around = mainWindowAt({0, 0, 300, 500});
    around.dialogs = {{306, 0, 280, 200}};
    EXPECT_EQ(dialogPlace(around, {280, 300}), QRect(306, 206, 280, 300)); // below it, next to the window
    around.dialogs = {{306, 0, 694, 200}};
    EXPECT_EQ(dialogPlace(around, {280, 300}), QRect(306, 206, 280, 300));
    around.dialogs = {{306, 0, 694, 800}, {0, 506, 306, 294}};
    EXPECT_EQ(dialogPlace(around, {280, 300}), QRect(306, 0, 280, 300)); // rather than the main window
}

TEST(DialogPlace, OfAnyDialogIsOnTheScreenAndClearIfThereIsRoom) {
    std::mt19937 random(11U);
    const auto any = [&random](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    for (int i = 0; i < 600; ++i) {
        const QRect frame(any(-100, 600), any(-50, 500), any(250, 1000), any(250, 800));
        const Surroundings around = mainWindowAt(frame);
        const QSize size(any(100, 700), any(60, 500));
        const QRect place = dialogPlace(around, size);
        ASSERT_TRUE(screen.contains(place));
        ASSERT_EQ(place.size(), size);
        if (covered(place, around) == 0) {
            continue;
        }
        for (int x = 0; x <= screen.width() - size.width(); x += 7) {
            for (int y = 0; y <= screen.height() - size.height(); y += 7) {
                ASSERT_GT(covered({QPoint(x, y), size}, around), 0) << x << ',' << y;
            }
        }
    }
}

TEST(ClearOfHint, MovesADialogThatCoversTheStatusBarByTheLeastDistance) {
    const Surroundings around = mainWindowAt({100, 50, 400, 500});
    const QRect over(150, 400, 200, 130);
    EXPECT_EQ(clearOfHint(over, around), QRect(150, 395, 200, 130));
    EXPECT_EQ(clearOfHint({450, 500, 200, 130}, around), QRect(500, 500, 200, 130));
    const QRect elsewhere(600, 100, 200, 130);
    EXPECT_EQ(clearOfHint(elsewhere, around), elsewhere);
}

TEST(ClearOfHint, LeavesADialogThatHasNoOtherPlace) {
    Surroundings around = mainWindowAt(screen);
    around.hint = {0, 400, 1000, 25};
    const QRect large(0, 0, 1000, 790);
    EXPECT_EQ(clearOfHint(large, around), large);
}
