#include "controls/WindowPlace.h"

#include "tests/support/PrintRect.h"
#include "tests/support/UsersHand.h"

#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>
#include <random>

using namespace ocuva;

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
    WindowPlace* place = nullptr;

    explicit Window(FirstPlace firstPlace = {}) {
        setObjectName(QStringLiteral("frmTried"));
        resize(200, 100);
        place = new WindowPlace(*this, std::move(firstPlace));
    }
};

std::optional<QRect> stored() {
    const auto place = WindowPlaceStore().load(QStringLiteral("frmTried"));
    return place && place->size ? std::optional(QRect(place->corner, *place->size)) : std::nullopt;
}

FirstPlace at(const QPoint& corner) {
    return [corner](QSize size, const std::optional<QRect>& /*present*/) { return QRect(corner, size); };
}

} // namespace

TEST(BroughtOnScreen, LeavesRectanglesOnAScreenUnchanged) {
    for (const QRect& rect : {QRect(0, 0, 10, 10), QRect(990, 790, 10, 10), left, right}) {
        EXPECT_EQ(broughtOnScreen(rect, {left, right}), rect);
    }
}

TEST(BroughtOnScreen, MovesRectanglesPartlyOffTheScreenByTheShortestDistance) {
    EXPECT_EQ(broughtOnScreen({-50, 100, 200, 100}, {left, right}), QRect(0, 100, 200, 100));
    EXPECT_EQ(broughtOnScreen({100, 750, 200, 100}, {left, right}), QRect(100, 700, 200, 100));
    // Half on each: the one with the greater part takes it.
    EXPECT_EQ(broughtOnScreen({950, 200, 200, 100}, {left, right}), QRect(1000, 200, 200, 100));
    EXPECT_EQ(broughtOnScreen({850, 200, 200, 100}, {left, right}), QRect(800, 200, 200, 100));
}

TEST(BroughtOnScreen, MovesRectanglesOnNoScreenToTheNearestOne) {
    EXPECT_EQ(broughtOnScreen({2900, 300, 200, 100}, {left, right}), QRect(2400, 300, 200, 100));
    EXPECT_EQ(broughtOnScreen({2900, 300, 200, 100}, {left}), QRect(800, 300, 200, 100));
    EXPECT_EQ(broughtOnScreen({-5000, -5000, 200, 100}, {left, right}), QRect(0, 0, 200, 100));
}

TEST(BroughtOnScreen, CutsRectanglesLargerThanTheScreenAtTheLowerRight) {
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

TEST_F(PlacedWindow, ComesBackWhereTheUserLeftItAndAsLarge) {
    {
        Window window;
        window.show();
        dragWindow(window, {30, 40, 250, 160});
        window.hide();
    }
    Window again;
    again.show();
    EXPECT_EQ(again.pos(), QPoint(30, 40));
    EXPECT_EQ(again.size(), QSize(250, 160));
}

TEST_F(PlacedWindow, IsNotRememberedWhenTheUserHasNeitherMovedNorSizedIt) {
    {
        Window window(at({11, 12}));
        window.show();
        waitUntilSettled();
        window.resize(300, 200); // the program's own doing
        waitUntilSettled();
        window.hide();
    }
    EXPECT_FALSE(WindowPlaceStore().load(QStringLiteral("frmTried")));
    EXPECT_TRUE(registry().allKeys().isEmpty());
}

TEST_F(PlacedWindow, IsNotRememberedWhereTheWindowSystemPutItWhenItWasShown) {
    Window window;
    window.show();
    window.windowHandle()->setFramePosition({60, 70}); // its answer comes at once
    waitUntilSettled();
    window.hide();
    EXPECT_FALSE(WindowPlaceStore().load(QStringLiteral("frmTried")));
}

TEST_F(PlacedWindow, IsRememberedWithoutASizeThatTheUserHasNotChosen) {
    {
        Window window;
        window.show();
        dragWindow(window, {30, 40, 200, 100});
        window.hide();
    }
    const auto place = WindowPlaceStore().load(QStringLiteral("frmTried"));
    ASSERT_TRUE(place);
    EXPECT_EQ(place->corner, QPoint(30, 40));
    EXPECT_FALSE(place->size);
    Window larger;
    larger.resize(333, 222); // as the program makes it in another session
    larger.show();
    EXPECT_EQ(larger.pos(), QPoint(30, 40));
    EXPECT_EQ(larger.size(), QSize(333, 222));
}

TEST_F(PlacedWindow, ThatTheUserHasNotPlacedComesBackWhereItWasInThisSession) {
    Window window;
    window.show();
    window.windowHandle()->setFramePosition({60, 70}); // where the window system puts it
    waitUntilSettled();
    window.hide();
    window.move(0, 0); // what a window system makes of a window that it has taken down
    window.show();
    EXPECT_EQ(window.pos(), QPoint(60, 70));
}

TEST_F(PlacedWindow, ThatIsHiddenBeforeTheWindowSystemHasSettledComesBackWhereItWas) {
    Window window;
    window.show();
    window.windowHandle()->setFramePosition({60, 70});
    QCoreApplication::processEvents();
    window.hide();
    window.move(0, 0);
    window.show();
    EXPECT_EQ(window.pos(), QPoint(60, 70));
    EXPECT_FALSE(WindowPlaceStore().load(QStringLiteral("frmTried")));
}

TEST_F(PlacedWindow, ThatIsClosedWithItsParentIsRememberedToo) {
    {
        Window window;
        window.show();
        dragWindow(window, {30, 40, 200, 100});
    }
    Window again;
    again.show();
    EXPECT_EQ(again.pos(), QPoint(30, 40));
}

TEST_F(PlacedWindow, IsBroughtBackFromAScreenThatIsGone) {
    WindowPlaceStore().save(QStringLiteral("frmTried"), {QPoint(9000, -4000), QSize(250, 160)});
    Window window;
    window.show();
    EXPECT_TRUE(screen().contains(window.frameGeometry()));
    EXPECT_EQ(window.size(), QSize(250, 160));
}

TEST_F(PlacedWindow, IsNoLargerThanTheScreen) {
    Window window(at({5, 5}));
    window.resize(screen().size() + QSize(300, 200));
    window.show();
    EXPECT_TRUE(screen().contains(window.frameGeometry()));
}

TEST_F(PlacedWindow, ThatTheProgramResizesRightAfterTheUserMovedItIsRememberedWithoutThatSize) {
    Window window;
    window.show();
    dragWindow(window, {30, 40, 200, 100});
    window.resize(400, 300);
    window.hide();
    const auto place = WindowPlaceStore().load(QStringLiteral("frmTried"));
    ASSERT_TRUE(place);
    EXPECT_EQ(place->corner, QPoint(30, 40));
    EXPECT_FALSE(place->size);
}

TEST_F(PlacedWindow, WhoseContentsNeedMoreRoomThanTheScreenScrollsThem) {
    Window window(at({5, 5}));
    auto* column = new QVBoxLayout(&window);
    auto* wide = new QWidget(&window);
    wide->setMinimumSize(screen().width() + 500, 100);
    column->addWidget(wide);
    window.show();
    EXPECT_TRUE(screen().contains(window.frameGeometry()));
    EXPECT_EQ(wide->width(), screen().width() + 500);
    EXPECT_NE(window.findChild<QScrollArea*>(), nullptr);
}

TEST_F(PlacedWindow, OpensAtItsFirstPlaceUntilTheUserHasMovedIt) {
    Window window(at({11, 12}));
    window.show();
    EXPECT_EQ(window.pos(), QPoint(11, 12));
    EXPECT_EQ(window.size(), QSize(200, 100));
    dragWindow(window, {70, 80, 200, 100});
    window.hide();
    window.show();
    EXPECT_EQ(window.pos(), QPoint(70, 80));
}

TEST_F(PlacedWindow, GivesItsFirstPlaceTheOneThatItHasHadInThisSession) {
    std::vector<std::optional<QRect>> asked;
    Window window([&asked](QSize size, const std::optional<QRect>& present) {
        asked.push_back(present);
        return present.value_or(QRect(QPoint(11, 12), size));
    });
    window.show();
    waitUntilSettled();
    window.hide();
    window.show();
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_FALSE(asked[0]);
    ASSERT_TRUE(asked[1]);
    EXPECT_EQ(asked[1]->topLeft(), QPoint(11, 12));
    EXPECT_EQ(window.pos(), QPoint(11, 12));
}

TEST_F(PlacedWindow, IsNotRememberedAsLargeAsTheScreenThatItWasMaximisedOn) {
    Window window;
    window.show();
    dragWindow(window, {30, 40, 210, 110});
    window.hide();
    window.show();
    window.showMaximized();
    QCoreApplication::processEvents();
    window.hide();
    EXPECT_EQ(stored(), QRect(30, 40, 210, 110));
}

TEST_F(PlacedWindow, ThatWasMaximisedIsSoAgainWhenItAsksForItAndGoesBackToItsPlaceBefore) {
    {
        Window window;
        window.show();
        dragWindow(window, {30, 40, 210, 110});
        QTest::qWait(200);
        window.showMaximized();
        QTest::qWait(50);
    }
    Window again;
    again.place->restoreMaximised();
    again.show();
    EXPECT_TRUE(again.isMaximized());
    again.showNormal();
    QTest::qWait(50);
    EXPECT_EQ(QRect(again.pos(), again.size()), QRect(30, 40, 210, 110));
    again.hide();
    EXPECT_FALSE(WindowPlaceStore().loadMaximised(QStringLiteral("frmTried")));
}

TEST_F(PlacedWindow, WithADamagedEntryIsShownAsDesigned) {
    for (const QVariant& damaged : {QVariant(QStringLiteral("nonsense")), QVariant(QRect()), QVariant(17)}) {
        registry().setValue(QStringLiteral("WindowPlaces/frmTried"), damaged);
        Window window;
        window.show();
        EXPECT_EQ(window.size(), QSize(200, 100));
    }
}
