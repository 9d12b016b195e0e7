#include "controls/WindowPlace.h"

#include <QScreen>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>
#include <random>

using namespace ocuva;

// So that a failure tells the rectangles.
void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}

namespace {

const QRect left(0, 0, 1000, 800);
const QRect right(1000, 100, 1600, 1000); // lower and larger, as the second screen of a bench often is

struct PlacedWindow : testing::Test {
    void SetUp() override { registry().clear(); }
    static QSettings registry() {
        return {QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Brem"),
                QStringLiteral("Ocuva")};
    }
    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

struct Window : QWidget {
    explicit Window(WindowPlace::Keeps keeps = WindowPlace::Keeps::PositionAndSize,
                    std::function<QRect(QSize)> firstPlace = {}) {
        setObjectName(QStringLiteral("frmTried"));
        resize(200, 100);
        new WindowPlace(*this, keeps, std::move(firstPlace));
    }
};

} // namespace

TEST(BroughtOnScreen, LeavesWhatIsOnAScreenWhereItIs) {
    for (const QRect& rect : {QRect(0, 0, 10, 10), QRect(990, 790, 10, 10), left, right}) {
        EXPECT_EQ(broughtOnScreen(rect, {left, right}), rect);
    }
}

TEST(BroughtOnScreen, MovesWhatIsPartlyOffItByTheLeastDistance) {
    EXPECT_EQ(broughtOnScreen({-50, 100, 200, 100}, {left, right}), QRect(0, 100, 200, 100));
    EXPECT_EQ(broughtOnScreen({100, 750, 200, 100}, {left, right}), QRect(100, 700, 200, 100));
    // Half on each: the one with the greater part takes it.
    EXPECT_EQ(broughtOnScreen({950, 200, 200, 100}, {left, right}), QRect(1000, 200, 200, 100));
    EXPECT_EQ(broughtOnScreen({850, 200, 200, 100}, {left, right}), QRect(800, 200, 200, 100));
}

TEST(BroughtOnScreen, TakesTheNearestScreenForWhatIsOnNone) {
    EXPECT_EQ(broughtOnScreen({2900, 300, 200, 100}, {left, right}), QRect(2400, 300, 200, 100));
    EXPECT_EQ(broughtOnScreen({2900, 300, 200, 100}, {left}), QRect(800, 300, 200, 100));
    EXPECT_EQ(broughtOnScreen({-5000, -5000, 200, 100}, {left, right}), QRect(0, 0, 200, 100));
}

TEST(BroughtOnScreen, CutsWhatIsLargerThanTheScreenAndShowsItsUpperLeftCorner) {
    EXPECT_EQ(broughtOnScreen({-10, -20, 1200, 900}, {left}), left);
    EXPECT_EQ(broughtOnScreen({500, 10, 1200, 50}, {left}), QRect(0, 10, 1000, 50));
}

TEST(BroughtOnScreen, WithoutAScreenChangesNothing) {
    EXPECT_EQ(broughtOnScreen({-10, -20, 30, 40}, {}), QRect(-10, -20, 30, 40));
}

TEST(BroughtOnScreen, OfAnyRectangleIsWhollyOnOneScreenAndAsLargeAsItWasWhereThereIsRoom) {
    std::mt19937 random(7U);
    const auto any = [&random](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    for (int i = 0; i < 5000; ++i) {
        const QRect rect(any(-4000, 4000), any(-4000, 4000), any(1, 1500), any(1, 1500));
        const QRect brought = broughtOnScreen(rect, {left, right});
        const bool onLeft = left.contains(brought);
        ASSERT_TRUE(onLeft || right.contains(brought));
        ASSERT_EQ(brought.size(), rect.size().boundedTo((onLeft ? left : right).size()));
        ASSERT_EQ(broughtOnScreen(brought, {left, right}), brought);
    }
}

TEST(BesideAWindow, WithoutRoomIsAsMuchSmallerAsItMustBeWhereMostOfItIsLeft) {
    const QSize page(900, 600);
    const QRect low(200, 450, 500, 350); // its frame reaches the lower edge
    EXPECT_EQ(besideWindow(low, page, left, {600, 400}), QRect(100, 0, 900, 444));
    const QRect aside(0, 100, 350, 700);
    EXPECT_EQ(besideWindow(aside, page, left, {600, 400}), QRect(356, 100, 644, 600));
}

TEST(BesideAWindow, WithoutRoomForItsSmallestSizeIsInTheCornerInFull) {
    const QRect wide(50, 150, 900, 500);
    EXPECT_EQ(besideWindow(wide, {900, 600}, left, {600, 400}), QRect(100, 200, 900, 600));
    EXPECT_EQ(besideWindow(wide, {900, 600}, left), QRect(100, 200, 900, 600));
}

TEST(BesideAWindow, IsAtItsRightElseAtItsLeftBelowOrAbove) {
    const QSize size(300, 200);
    EXPECT_EQ(besideWindow({100, 50, 400, 500}, size, left), QRect(506, 50, 300, 200));
    EXPECT_EQ(besideWindow({500, 50, 400, 500}, size, left), QRect(194, 50, 300, 200));
    EXPECT_EQ(besideWindow({100, 50, 800, 500}, size, left), QRect(100, 556, 300, 200));
    EXPECT_EQ(besideWindow({100, 250, 800, 500}, size, left), QRect(100, 44, 300, 200));
}

TEST(BesideAWindow, StaysOnTheScreenBesideOneThatHangsOverItsEdge) {
    EXPECT_EQ(besideWindow({100, -40, 400, 500}, {300, 200}, left), QRect(506, 0, 300, 200));
    EXPECT_EQ(besideWindow({100, 700, 400, 500}, {300, 200}, left), QRect(506, 600, 300, 200));
}

TEST(BesideAWindow, ThatLeavesNoRoomIsTheLowerRightCorner) {
    EXPECT_EQ(besideWindow(left, {300, 200}, left), QRect(700, 600, 300, 200));
    EXPECT_EQ(besideWindow(left, {3000, 200}, left), QRect(0, 600, 1000, 200));
}

TEST_F(PlacedWindow, ComesBackWhereItWasAndAsLargeAsItWas) {
    {
        Window window;
        window.show();
        window.move(30, 40);
        window.resize(250, 160);
        window.hide();
    }
    Window again;
    again.show();
    EXPECT_EQ(again.pos(), QPoint(30, 40));
    EXPECT_EQ(again.size(), QSize(250, 160));
    EXPECT_TRUE(registry().contains(QStringLiteral("WindowPlaces/frmTried")));
}

TEST_F(PlacedWindow, ThatIsClosedWithItsParentIsRememberedToo) {
    {
        Window window;
        window.show();
        window.move(30, 40);
    }
    Window again;
    again.show();
    EXPECT_EQ(again.pos(), QPoint(30, 40));
}

TEST_F(PlacedWindow, ThatKeepsItsPositionOnlyHasTheSizeThatItWasGiven) {
    WindowPlaceStore().save(QStringLiteral("frmTried"), QRect(30, 40, 500, 400));
    Window window(WindowPlace::Keeps::Position);
    window.show();
    EXPECT_EQ(window.pos(), QPoint(30, 40));
    EXPECT_EQ(window.size(), QSize(200, 100));
}

TEST_F(PlacedWindow, IsBroughtBackFromAScreenThatIsGone) {
    WindowPlaceStore().save(QStringLiteral("frmTried"), QRect(9000, -4000, 250, 160));
    Window window;
    window.show();
    EXPECT_TRUE(screen().contains(window.frameGeometry()));
    EXPECT_EQ(window.size(), QSize(250, 160));
}

TEST_F(PlacedWindow, StandsWhereItIsToldTheFirstTimeAndWhereItWasLeftFromThenOn) {
    const auto place = [](QSize size) { return QRect(QPoint(11, 12), size); };
    Window window(WindowPlace::Keeps::PositionAndSize, place);
    window.show();
    EXPECT_EQ(window.pos(), QPoint(11, 12));
    EXPECT_EQ(window.size(), QSize(200, 100));
    window.move(70, 80);
    window.hide();
    window.show();
    EXPECT_EQ(window.pos(), QPoint(70, 80));
}

TEST_F(PlacedWindow, IsNotRememberedAsLargeAsTheScreenThatItWasMaximisedOn) {
    Window window;
    window.show();
    window.move(30, 40);
    window.hide();
    window.show();
    window.showMaximized();
    QCoreApplication::processEvents();
    window.hide();
    EXPECT_EQ(WindowPlaceStore().load(QStringLiteral("frmTried")), QRect(30, 40, 200, 100));
}

TEST_F(PlacedWindow, WithADamagedEntryIsShownAsDesigned) {
    for (const QVariant& damaged : {QVariant(QStringLiteral("nonsense")), QVariant(QRect()), QVariant(17)}) {
        registry().setValue(QStringLiteral("WindowPlaces/frmTried"), damaged);
        Window window;
        window.show();
        EXPECT_EQ(window.size(), QSize(200, 100));
    }
}
