#include "display/MonitorSizing.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <map>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A window that is only numbers. Its initial layout has 1440 twips right of the monitor frame and 900 below it.
struct WindowOfNumbers : MonitorView {
    static constexpr Long right = 1440;
    static constexpr Long below = 900;

    std::map<MonitorPart, TwipsRect> rects{
        {MonitorPart::milDisp, {30, 120, 5760, 4320}},      {MonitorPart::frImage, {360, 360, 5850, 4490}},
        {MonitorPart::frMonitor, {180, 600, 6570, 5210}},   {MonitorPart::frUpDown, {6930, 600, 1080, 5210}},
        {MonitorPart::frMicroMarker, {0, 3840, 5760, 480}}, {MonitorPart::tbMain, {0, 0, 8190, 465}},
    };
    ScreenMetrics metrics;
    Long width = 180 + 6570 + right;
    Long height = 600 + 5210 + below;
    bool maximised = false;
    bool normalZoom = false;
    std::vector<std::pair<Long, Long>> overlayCentres; // y, x
    int refreshes = 0;
    std::function<void()> onSetWindowSize;
    std::function<void()> onRedraw;

    ScreenMetrics screen() const override { return metrics; }
    TwipsRect rect(MonitorPart part) const override { return rects.at(part); }
    void setRect(MonitorPart part, const TwipsRect& rect) override { rects[part] = rect; }
    Long windowWidth() const override { return width; }
    Long windowHeight() const override { return height; }
    bool windowIsMaximised() const override { return maximised; }
    void setWindowSize(Long newWidth, Long newHeight) override {
        width = newWidth;
        height = newHeight;
        if (onSetWindowSize) {
            onSetWindowSize();
        }
    }
    Long displayHandle() const override { return 77; }
    bool normalZoomIsChecked() const override { return normalZoom; }
    void redrawOverlays(Long centreY, Long centreX) override {
        overlayCentres.emplace_back(centreY, centreX);
        if (onRedraw) {
            onRedraw();
        }
    }
    void refreshState() override { ++refreshes; }
};

struct Sizing : testing::Test {
    StubHost host;
    Settings settings{host.tn_reg()};
    WindowOfNumbers window;
    MonitorSizing sizing{host.tn_video(), host.tn_log(), settings, window};

    void start() {
        sizing.ComputeInitialSize();
        sizing.ResizeAll(true);
    }
    void zoom(Integer divisor) {
        window.normalZoom = divisor == 1;
        sizing.ComputeImageSize(true, divisor);
        sizing.ResizeAll(true);
    }
    void userResizes(Long width, Long height) {
        window.width = width;
        window.height = height;
        sizing.ComputeImageSize(false, 2);
        sizing.ResizeAll(false);
    }
};

} // namespace

TEST_F(Sizing, TheStartShowsTheBufferReducedByTwo) {
    start();
    EXPECT_EQ(sizing.fields().GrabSizeX, 768);
    EXPECT_EQ(sizing.fields().GrabSizeY, 576);
    EXPECT_EQ(sizing.fields().GrabZoom, 2);
    EXPECT_EQ(sizing.fields().ImageSizeX, 384 * 15);
    EXPECT_EQ(sizing.fields().ImageSizeY, 288 * 15);
    EXPECT_EQ(sizing.fields().InitImageSizeX, 384 * 15);
    EXPECT_EQ(sizing.fields().InitImageSizeY, 288 * 15);
}

TEST_F(Sizing, TheBufferIsAllocatedAndDescribedBeforeTheBoardGetsTheZoom) {
    sizing.ComputeInitialSize();
    ASSERT_GE(host.calls.size(), 3U);
    EXPECT_EQ(host.calls[0].rfind("TarnVideoBufferAlloc", 0), 0U);
    EXPECT_EQ(host.calls[1].rfind("TarnVideoGetBufferDesc", 0), 0U);
    EXPECT_EQ(host.calls[2].rfind("TarnVideoBoardFunction", 0), 0U);
    ASSERT_EQ(host.displayRequests.size(), 1U);
    EXPECT_EQ(host.displayRequests[0].windowHandle, 77);
    EXPECT_EQ(host.displayRequests[0].zoom, -2);
    EXPECT_EQ(host.displayRequests[0].fullSize, 0);
}

TEST_F(Sizing, TheFramesSurroundTheImageToTheTwip) {
    start();
    EXPECT_EQ(window.rects[MonitorPart::milDisp], (TwipsRect{30, 120, 5760, 4320}));
    EXPECT_EQ(window.rects[MonitorPart::frImage], (TwipsRect{360, 360, 5760 + 90, 4320 + 170}));
    EXPECT_EQ(window.rects[MonitorPart::frMonitor], (TwipsRect{180, 465 + 135, 5850 + 720, 4490 + 720}));
    EXPECT_EQ(window.rects[MonitorPart::frUpDown], (TwipsRect{180 + 6570 + 180, 465 + 135, 1080, 5210}));
    EXPECT_EQ(window.rects[MonitorPart::frMicroMarker], (TwipsRect{0, 4320 - 480, 5760, 480}));
    EXPECT_EQ(window.width, 180 + 6570 + WindowOfNumbers::right);
    EXPECT_EQ(window.height, 600 + 5210 + WindowOfNumbers::below);
}

TEST_F(Sizing, TheDisplaysInsetFollowsTheScreensPixel) {
    window.metrics = {12.0, 20.0};
    start();
    EXPECT_EQ(window.rects[MonitorPart::milDisp], (TwipsRect{33, 115, 384 * 12, 288 * 20}));
}

TEST_F(Sizing, AZoomChangeRefitsTheWindowRoundTheImage) {
    start();
    zoom(1);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].width, 768 * 15);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].height, 576 * 15);
    EXPECT_EQ(window.width, 180 + (768 * 15 + 810) + WindowOfNumbers::right);
    EXPECT_EQ(host.displayRequests.back().zoom, -1);
    EXPECT_EQ(host.displayRequests.back().fullSize, -1);
    zoom(2);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].width, 384 * 15);
    EXPECT_EQ(host.displayRequests.back().zoom, -2);
}

TEST_F(Sizing, AZoomChangeHalvesOrDoublesTheCrossSizeAndTheGridStepsAndLeavesTheBars) {
    host.settings["Ocuva.INI|Configuration|CrossSize"] = "100";
    host.settings["Ocuva.INI|Configuration|GridSizeX"] = "81";
    host.settings["Ocuva.INI|Configuration|GridSizeY"] = "63";
    start();
    EXPECT_EQ(sizing.fields().CrossSize, 50);
    EXPECT_EQ(sizing.fields().GridSizeX, 40); // 40.5, ties to even
    EXPECT_EQ(sizing.fields().GridSizeY, 32); // 31.5
    EXPECT_EQ(sizing.fields().CrossWidth, 33);
    EXPECT_EQ(sizing.fields().GridLineWidth, 33);
    zoom(1);
    EXPECT_EQ(sizing.fields().CrossSize, 100);
    EXPECT_EQ(sizing.fields().GridSizeX, 81);
    EXPECT_EQ(sizing.fields().GridSizeY, 63);
    EXPECT_EQ(sizing.fields().CrossWidth, 33);
}

TEST_F(Sizing, WithTheWindowMaximisedAZoomChangeDoesNotResizeTheWindow) {
    start();
    window.maximised = true;
    const Long width = window.width;
    zoom(1);
    EXPECT_EQ(window.width, width);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].width, 768 * 15);
}

TEST_F(Sizing, AUserResizeGivesTheImageTheWindowsFreeRoom) {
    start();
    const Long width = window.width;
    const Long height = window.height;
    userResizes(width + 1500, height + 300);
    EXPECT_EQ(sizing.fields().ImageSizeX, 5760 + 1500);
    EXPECT_EQ(sizing.fields().ImageSizeY, 4320 + 300);
    EXPECT_EQ(sizing.fields().InitImageSizeX, 5760);
    EXPECT_EQ(sizing.fields().GrabZoom, 2);
    EXPECT_EQ(window.width, width + 1500);
    userResizes(width, height);
    EXPECT_EQ(sizing.fields().ImageSizeX, 5760);
    EXPECT_EQ(sizing.fields().ImageSizeY, 4320);
}

TEST_F(Sizing, AWindowDraggedSmallerThanTheFramesNeedGivesASmallestImageNeverANegativeOne) {
    start();
    userResizes(100, 100);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].width, 360);
    EXPECT_EQ(window.rects[MonitorPart::milDisp].height, 360);
}

TEST_F(Sizing, WithoutABoardTheDisplaysSizeReplacesTheBuffers) {
    host.bufferHandle = -1;
    start();
    EXPECT_TRUE(host.callsOf("TarnVideoGetBufferDesc").empty());
    EXPECT_EQ(sizing.fields().GrabSizeX, 768);
    EXPECT_EQ(sizing.fields().GrabSizeY, 576);
    EXPECT_EQ(sizing.fields().ImageSizeX, 5760);
}

TEST_F(Sizing, ABufferWithoutWidthOrHeightIsReplacedByTheDisplaysSize) {
    host.bufferDesc.height = 0;
    start();
    EXPECT_EQ(sizing.fields().GrabSizeX, 768);
    EXPECT_EQ(sizing.fields().GrabSizeY, 576);
}

TEST_F(Sizing, TheOverlaysCentreOnHalfTheInitialImageHeightFirst) {
    host.bufferDesc.width = 770;  // 385 pixels: 2887.5 twips
    host.bufferDesc.height = 574; // 287 pixels: 2152.5 twips
    start();
    EXPECT_THAT(window.overlayCentres, ElementsAre(std::make_pair(Long{2152}, Long{2888})));
    userResizes(window.width + 3000, window.height + 3000);
    EXPECT_EQ(window.overlayCentres.back(), std::make_pair(Long{2152}, Long{2888}));
    EXPECT_EQ(window.refreshes, 2);
}

TEST_F(Sizing, TheMicroMarkersBottomMeetsTheBottomOfTheSmallerOfImageAndInitialImage) {
    start();
    userResizes(window.width, window.height - 600);
    EXPECT_EQ(window.rects[MonitorPart::frMicroMarker].top, 4320 - 600 - 480);
    userResizes(window.width, window.height + 1500);
    EXPECT_EQ(window.rects[MonitorPart::frMicroMarker].top, 4320 - 480);
    EXPECT_EQ(window.rects[MonitorPart::frMicroMarker].width, 5760);
}

TEST_F(Sizing, WhileBusyNothingIsComputedAndNoHostFunctionCalled) {
    start();
    host.calls.clear();
    sizing.setBusy(true);
    userResizes(20000, 20000);
    sizing.ComputeImageSize(true, 1);
    EXPECT_EQ(sizing.fields().ImageSizeX, 5760);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(Sizing, FittingTheWindowDoesNotSizeTheImageFromTheWindow) {
    start();
    bool wasBusy = false;
    window.onSetWindowSize = [&] {
        wasBusy = sizing.isBusy();
        sizing.ComputeImageSize(false, 2);
    };
    zoom(1);
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(sizing.isBusy());
    EXPECT_EQ(sizing.fields().ImageSizeX, 768 * 15);
}

TEST_F(Sizing, AnErrorWhileComputingTheSizeIsOneLogLineAndKeepsWhatWasSet) {
    start();
    host.logLines.clear();
    sizing.ComputeImageSize(true, 0);
    EXPECT_THAT(host.logLines, ElementsAre("ERROR computing image size: Division by zero\r\n"));
    EXPECT_EQ(sizing.fields().GrabZoom, 0);
    EXPECT_EQ(sizing.fields().ImageSizeX, 5760);
}

TEST_F(Sizing, AnErrorWhileResizingIsOneLogLine) {
    start();
    host.logLines.clear();
    host.bufferDesc.width = 286331150; // 2147483625 twips: fits, but not with the frames round it
    zoom(2);
    ASSERT_EQ(host.logLines.size(), 1U);
    EXPECT_EQ(host.logLines[0].rfind("ERROR resizing: ", 0), 0U);
    EXPECT_EQ(host.logLines[0].substr(host.logLines[0].size() - 2), "\r\n");
}

TEST_F(Sizing, AMarkerThatCannotBeComputedIsOneLogLineAndTheStateIsStillRefreshed) {
    start();
    host.logLines.clear();
    window.onRedraw = [] { throw ArithmeticError("Division by zero"); };
    sizing.ResizeAll(false);
    EXPECT_THAT(host.logLines, ElementsAre("ERROR resizing: Division by zero\r\n"));
    EXPECT_EQ(window.refreshes, 2);
}
