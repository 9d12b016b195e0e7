#include "display/OverlayFigure.h"

#include "display/MicroMarkerPanel.h"
#include "display/MilDisplay.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

// Relative luminance as text and signs are judged by; 21 is black on white, 3 the least for a graphic.
double luminance(const QColor& colour) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}
double contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

FramePtr plainFrame(std::uint32_t colour) {
    auto frame = std::make_shared<Frame>();
    frame->width = 384;
    frame->height = 288;
    frame->pixels.assign(384U * 288U, colour);
    return frame;
}

// All that is painted of a control, in its pixels.
struct PaintedRegion : QObject {
    QRegion region;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

struct CountPaints : QObject {
    int paints = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

struct OnTheLiveImage : testing::Test {
    DisplayWindows windows;
    MilDisplay display{windows, nullptr};
    OverlayFigure frGrid{QStringLiteral("frGrid"), &display};
    OverlayFigure frCross{QStringLiteral("frCross"), &display};
    MicroMarkerPanel frMicroMarker{&display};

    void SetUp() override {
        display.setStyleSheet(overlayStyleSheet());
        display.resize(384, 288);
        display.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&display));
        frMicroMarker.hide();
    }
    QImage over(std::uint32_t colour) {
        const auto next = display.framesShown() + 1;
        windows.deliver(display.hWnd(), plainFrame(colour));
        EXPECT_TRUE(QTest::qWaitFor([&] { return display.framesShown() >= next; }));
        return display.grab().toImage();
    }
    void showAll() {
        frGrid.place({{100, 0, 1, 288}, {200, 0, 1, 288}, {0, 50, 384, 1}, {0, 150, 384, 1}});
        frCross.place({{112, 143, 70, 2}, {202, 143, 70, 2}, {191, 64, 2, 70}, {191, 154, 2, 70}});
        frMicroMarker.place(display.size(), 60, QStringLiteral(" 100 \u00b5"));
        frGrid.show(true);
        frCross.show(true);
        frMicroMarker.show();
    }
};

} // namespace

TEST_F(OnTheLiveImage, EveryOverlayIsVisibleOnEveryBackground) {
    showAll();
    for (std::uint32_t grey = 0; grey <= 255; grey += 5) {
        const QImage picture = over(0xff000000U | grey << 16U | grey << 8U | grey);
        const QColor ground =
            QColor::fromRgb(static_cast<int>(grey), static_cast<int>(grey), static_cast<int>(grey));
        const auto readable = [&](QPoint core, QPoint outline) {
            const QColor a = picture.pixelColor(core);
            const QColor b = picture.pixelColor(outline);
            ASSERT_GE(contrast(a, b), 7.0) << grey << " at " << core.x() << ", " << core.y();
            ASSERT_GE(std::max(contrast(a, ground), contrast(b, ground)), 3.0) << grey;
        };
        readable({150, 143}, {150, 142}); // cross
        readable({191, 100}, {190, 100});
        readable({100, 20}, {99, 20}); // grid
        readable({300, 50}, {300, 51});
        const auto& bar = frMicroMarker.LineMicroMarker()[0];
        const int x = (bar.X1 + bar.X2) / 2;
        readable({x, frMicroMarker.y() + bar.Y1}, {x, frMicroMarker.y() + bar.Y1 - 2});
    }
}

TEST_F(OnTheLiveImage, TheScalesBarIsRoundedHalfToEvenToWholePixels) {
    for (const auto& [barPixels, drawn] : {std::pair{60.5, 60}, {61.5, 62}, {60.51, 61}, {0.5, 0}}) {
        frMicroMarker.place(display.size(), barPixels, QStringLiteral(" 100 \u00b5"));
        const auto& [bar, leftTick, rightTick] = frMicroMarker.LineMicroMarker();
        EXPECT_EQ(bar.X2 - bar.X1, drawn) << barPixels;
        EXPECT_EQ(leftTick.X1, bar.X1);
        EXPECT_EQ(leftTick.X2, bar.X1);
        EXPECT_EQ(rightTick.X1, bar.X2);
        EXPECT_EQ(rightTick.X2, bar.X2);
    }
}

TEST_F(OnTheLiveImage, TheLabelShowsBothItsColours) {
    showAll();
    for (const std::uint32_t ground : {0xff000000U, 0xffffffffU}) {
        const QImage picture = over(ground);
        const QRect label = frMicroMarker.lbMicroMarker->geometry().translated(frMicroMarker.pos());
        int light = 0;
        int dark = 0;
        for (int y = label.top(); y <= label.bottom(); ++y) {
            for (int x = label.left(); x <= label.right(); ++x) {
                light += picture.pixelColor(x, y).lightness() > 200 ? 1 : 0;
                dark += picture.pixelColor(x, y).lightness() < 60 ? 1 : 0;
            }
        }
        EXPECT_GT(light, 20);
        EXPECT_GT(dark, 20);
    }
}

TEST_F(OnTheLiveImage, NoOutlineCrossesAnotherBarOfTheSameFigure) {
    showAll();
    const QImage picture = over(0xff808080U);
    const QColor core = picture.pixelColor(100, 20);
    for (int x = 90; x <= 110; ++x) {
        EXPECT_EQ(picture.pixelColor(x, 50), core) << x;
    }
    for (int y = 40; y <= 60; ++y) {
        EXPECT_EQ(picture.pixelColor(100, y), core) << y;
    }
}

TEST_F(OnTheLiveImage, AThickBarIsHollow) {
    frCross.place({{100, 100, 80, 33}});
    frCross.show(true);
    const QImage picture = over(0xff3060a0U);
    EXPECT_EQ(picture.pixelColor(140, 116), QColor(0x30, 0x60, 0xa0));
    EXPECT_NE(picture.pixelColor(140, 100), QColor(0x30, 0x60, 0xa0));
    EXPECT_NE(picture.pixelColor(140, 132), QColor(0x30, 0x60, 0xa0));
}

TEST_F(OnTheLiveImage, BarsAreSmallControlsOfTheDisplayWithoutWindowsOfTheirOwn) {
    showAll();
    for (const OverlayFigure* figure : {&frGrid, &frCross}) {
        ASSERT_EQ(figure->bars().size(), 4U);
        for (const BarFrame* bar : figure->bars()) {
            EXPECT_EQ(bar->parentWidget(), &display);
            EXPECT_EQ(bar->internalWinId(), 0U);
            EXPECT_TRUE(bar->isVisible());
        }
    }
    EXPECT_EQ(frCross.bars()[2]->objectName(), QStringLiteral("frCross2"));
}

TEST_F(OnTheLiveImage, AFrameIsDrawnOnceWithAndWithoutOverlays) {
    CountPaints counter;
    display.installEventFilter(&counter);
    for (int i = 0; i < 5; ++i) {
        over(0xff101010U);
    }
    const int without = counter.paints;
    showAll();
    over(0xff101010U);
    counter.paints = 0;
    for (int i = 0; i < 5; ++i) {
        over(0xff101010U);
    }
    EXPECT_EQ(counter.paints, without);
}

TEST_F(OnTheLiveImage, AHiddenFigureIsRepaintedWithAMarginForFractionalScreenScales) {
    over(0xff808080);
    frCross.place({{112, 143, 70, 2}}, true);
    frCross.show(true);
    QCoreApplication::processEvents();
    PaintedRegion painted;
    display.installEventFilter(&painted);
    frCross.show(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !painted.region.isEmpty(); }));
    EXPECT_TRUE(painted.region.contains(QRect(110, 141, 74, 6)));
    painted.region = {};
    frCross.show(true);
    frCross.place({{112, 203, 70, 2}}, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return painted.region.contains(QRect(110, 141, 74, 6)); }));
}

TEST_F(OnTheLiveImage, BarsThatAreLeftOverDisappearAndComeBackWhenNeeded) {
    showAll();
    frGrid.place({{100, 0, 1, 288}});
    EXPECT_TRUE(frGrid.bars()[0]->isVisible());
    EXPECT_FALSE(frGrid.bars()[3]->isVisible());
    frGrid.place({{100, 0, 1, 288}, {0, 20, 384, 1}, {0, 40, 384, 1}, {0, 60, 384, 1}, {0, 80, 384, 1}});
    ASSERT_EQ(frGrid.bars().size(), 5U);
    EXPECT_TRUE(frGrid.bars()[4]->isVisible());
    frGrid.show(false);
    EXPECT_FALSE(frGrid.bars()[4]->isVisible());
}

TEST_F(OnTheLiveImage, BarsOfAHiddenFigureStayHiddenWhenTheyAreMoved) {
    frCross.place({{10, 10, 20, 2}});
    EXPECT_FALSE(frCross.bars()[0]->isVisible());
}

TEST_F(OnTheLiveImage, TheMarkersBarHasATickAtEachEnd) {
    frMicroMarker.place({384, 288}, 60.4, QStringLiteral(" 100 \u00b5"));
    const auto& [bar, left, right] = frMicroMarker.LineMicroMarker();
    EXPECT_EQ(bar.X2 - bar.X1, 60);
    EXPECT_EQ(bar.Y1, bar.Y2);
    EXPECT_EQ(left.X1, left.X2);
    EXPECT_EQ(left.X1, bar.X1);
    EXPECT_EQ(right.X1, right.X2);
    EXPECT_EQ(right.X1, bar.X2);
    EXPECT_LT(left.Y1, bar.Y1);
    EXPECT_GT(left.Y2, bar.Y1);
    EXPECT_EQ(frMicroMarker.geometry().bottom(), 287);
    EXPECT_EQ(frMicroMarker.width(), 384);
    EXPECT_LT(frMicroMarker.lbMicroMarker->geometry().bottom(), left.Y1);
}

TEST_F(OnTheLiveImage, AFigureOfManyBarsLooksTheSameAndIsOneControl) {
    std::vector<PixelRect> bars;
    QImage expected(384, 288, QImage::Format_RGB32);
    expected.fill(0xff808080U);
    {
        std::vector<QRect> rects;
        for (int x = 4; x < 384; x += 8) {
            bars.push_back({x, 0, 1, 288});
            rects.emplace_back(x, 0, 1, 288);
        }
        OverlayWidget colours(&display);
        colours.setProperty("coreColour", QColor(0xd8, 0xec, 0xff));
        colours.setProperty("outlineColour", QColor(0x10, 0x10, 0x10));
        QPainter painter(&expected);
        figureRegions(rects, true).paint(painter, colours);
    }
    ASSERT_GT(bars.size(), OverlayFigure::mostSeparateBars);
    frGrid.place(bars);
    frGrid.show(true);
    EXPECT_EQ(over(0xff808080U).convertToFormat(QImage::Format_RGB32), expected);
    int visible = 0;
    for (const auto* child : display.findChildren<BarFrame*>()) {
        visible += child->isVisible() ? 1 : 0;
    }
    EXPECT_EQ(visible, 1);

    frGrid.place({{100, 0, 1, 288}, {200, 0, 1, 288}});
    EXPECT_TRUE(frGrid.bars()[0]->isVisible());
    EXPECT_EQ(over(0xff808080U).pixelColor(104, 20), QColor(0x80, 0x80, 0x80)) << "nothing is left of it";
    EXPECT_EQ(over(0xff808080U).pixelColor(100, 20), QColor(0xd8, 0xec, 0xff));
}
