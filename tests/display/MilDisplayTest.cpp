#include "display/MilDisplay.h"

#include "display/TwipsGeometry.h"

#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <thread>

using namespace ocuva;

namespace {

FramePtr plainFrame(int width, int height, std::uint32_t colour) {
    auto frame = std::make_shared<Frame>();
    frame->width = width;
    frame->height = height;
    frame->pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour);
    return frame;
}

struct LiveDisplay : testing::Test {
    DisplayWindows windows;
    MilDisplay display{windows, nullptr};

    void SetUp() override {
        display.resize(384, 288);
        display.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&display));
    }
    bool waitForFrames(std::uint64_t count) {
        return QTest::qWaitFor([&] { return display.framesShown() >= count; });
    }
};

} // namespace

TEST_F(LiveDisplay, IsBlackBeforeTheFirstFrame) {
    EXPECT_EQ(display.grab().toImage().pixelColor(100, 100), QColor(Qt::black));
}

TEST_F(LiveDisplay, PromptsInTheUpperHalfUntilTheFirstFrame) {
    display.setPrompt(QStringLiteral("Prompt"));
    const QImage prompted = display.grab().toImage();
    const auto isBlack = [&prompted](const QRect& part) {
        QImage black(part.size(), prompted.format());
        black.fill(Qt::black);
        return prompted.copy(part) == black;
    };
    EXPECT_FALSE(isBlack({0, 0, 384, 143}));
    EXPECT_TRUE(isBlack({0, 143, 384, 145}));
    windows.deliver(display.hWnd(), plainFrame(384, 288, 0xff204060));
    ASSERT_TRUE(waitForFrames(1));
    QImage plain(384, 288, QImage::Format_RGB32);
    plain.fill(QColor(0x20, 0x40, 0x60));
    EXPECT_EQ(display.grab().toImage().convertToFormat(QImage::Format_RGB32), plain);
}

TEST_F(LiveDisplay, ShowsAFrameThatAnotherThreadDeliversToItsHandle) {
    std::thread grab([&] { windows.deliver(display.hWnd(), plainFrame(384, 288, 0xff204060)); });
    grab.join();
    ASSERT_TRUE(waitForFrames(1));
    EXPECT_EQ(display.grab().toImage().pixelColor(200, 200), QColor(0x20, 0x40, 0x60));
}

TEST_F(LiveDisplay, FillsItselfWithAFrameOfAnotherSize) {
    windows.deliver(display.hWnd(), plainFrame(64, 48, 0xffa0b0c0));
    ASSERT_TRUE(waitForFrames(1));
    const QImage shown = display.grab().toImage();
    EXPECT_EQ(shown.pixelColor(1, 1), QColor(0xa0, 0xb0, 0xc0));
    EXPECT_EQ(shown.pixelColor(shown.width() - 2, shown.height() - 2), QColor(0xa0, 0xb0, 0xc0));
}

// Pixel for pixel a frame goes out in bands: none may be left out, shifted or doubled.
TEST_F(LiveDisplay, ShowsEveryRowOfAFrameOfItsOwnSize) {
    for (const QSize size : {QSize(384, 288), QSize(101, 7), QSize(50, 1), QSize(33, 127)}) {
        display.setMinimumSize(size);
        display.resize(size);
        auto frame = std::make_shared<Frame>(*plainFrame(size.width(), size.height(), 0));
        for (std::size_t i = 0; i < frame->pixels.size(); ++i) {
            frame->pixels[i] = 0xff000000U | static_cast<std::uint32_t>(i);
        }
        const std::uint64_t before = display.framesShown();
        windows.deliver(display.hWnd(), frame);
        ASSERT_TRUE(waitForFrames(before + 1));
        EXPECT_EQ(display.framesShown(), before + 1);
        // What the window holds, not what a new drawing would show.
        const QImage shown = display.screen()->grabWindow(display.winId()).toImage();
        ASSERT_EQ(shown.size(), display.size());
        for (int row = 0; row < std::min(size.height(), shown.height()); ++row) {
            for (int column = 0; column < size.width(); column += 7) {
                ASSERT_EQ(shown.pixel(column, row),
                          frame->pixels[static_cast<std::size_t>(row * size.width() + column)])
                    << column << ", " << row;
            }
        }
    }
}

TEST_F(LiveDisplay, CountsAFrameWhoseLowerPartIsCovered) {
    QWidget cover(&display);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.setGeometry(0, 144, 384, 144);
    cover.show();
    QTest::qWait(0);
    windows.deliver(display.hWnd(), plainFrame(384, 288, 0xff102030));
    ASSERT_TRUE(waitForFrames(1));
    EXPECT_EQ(display.framesShown(), 1U);
}

TEST_F(LiveDisplay, CountsAFrameOnceEvenIfItIsRepainted) {
    windows.deliver(display.hWnd(), plainFrame(384, 288, 0xff000001));
    ASSERT_TRUE(waitForFrames(1));
    display.repaint();
    display.repaint();
    EXPECT_EQ(display.framesShown(), 1U);
}

TEST_F(LiveDisplay, DropsFramesThatComeFasterThanTheyCanBeDrawn) {
    for (int i = 0; i < 5; ++i) {
        windows.deliver(display.hWnd(), plainFrame(384, 288, 0xff000000U + static_cast<std::uint32_t>(i)));
    }
    ASSERT_TRUE(waitForFrames(1));
    EXPECT_EQ(display.shownFrame()->pixels[0], 0xff000004U);
    EXPECT_EQ(display.framesDropped(), 4U);
}

TEST_F(LiveDisplay, ReportsMousePositionsInTwipsFromItsCorner) {
    QSignalSpy up(&display, &MilDisplay::mouseUp);
    QTest::mouseClick(&display, Qt::LeftButton, Qt::NoModifier, QPoint(100, 40));
    ASSERT_EQ(up.count(), 1);
    EXPECT_EQ(up[0][2].toFloat(), 1500.0F);
    EXPECT_EQ(up[0][3].toFloat(), 600.0F);
    QSignalSpy moved(&display, &MilDisplay::mouseMoved);
    QTest::mouseMove(&display, QPoint(10, 20));
    ASSERT_TRUE(QTest::qWaitFor([&] { return moved.count() > 0; }));
    EXPECT_EQ(moved.last()[2].toFloat(), 150.0F);
}

TEST_F(LiveDisplay, FramesForAnOldHandleDoNoHarm) {
    Long handle = 0;
    {
        const MilDisplay gone(windows, nullptr);
        handle = gone.hWnd();
    }
    windows.deliver(handle, plainFrame(8, 8, 0xffffffff));
    EXPECT_EQ(windows.devicePixelRatio(handle), 1.0);
}

TEST(TwipsGeometry, LengthsBecomeWholePixelsRoundedHalfToEven) {
    EXPECT_EQ(pixelsX(45), 3);
    EXPECT_EQ(pixelsY(170), 11);
    EXPECT_EQ(pixelsX(22), 1);
    EXPECT_EQ(twipsX(24), 360);
    EXPECT_EQ(toPixels({30, 120, 5760, 4320}), QRect(2, 8, 384, 288));
    EXPECT_EQ(toTwips(QRect(2, 8, 384, 288)), (TwipsRect{30, 120, 5760, 4320}));
}

TEST(TwipsGeometry, LengthsBeyondAnyScreenStayWithinWhatAWidgetCanBe) {
    EXPECT_EQ(pixelsX(2147483647), QWIDGETSIZE_MAX);
    EXPECT_EQ(pixelsX(-2147483647), -QWIDGETSIZE_MAX);
}
