// The window shows its scale correctly: the host's magnification, the proportions of the picture, its size
// on the screen.

#include "display/MicroMarkerPanel.h"
#include "setup/frmSetup.h"
#include "tests/support/WindowRig.h"

#include <QScreen>
#include <QTimer>

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct TrueScale : WindowRig {
    void SetUp() override { begin(); }
    void begin() {
        inter.reset();
        start();
        QTest::qWait(2 * WindowFit::letGoMs);
        host.calls.clear();
        host.logLines.clear();
    }
    std::string label() { return window().panels().frMicroMarker->lbMicroMarker->text().toStdString(); }
    QSize display() { return window().panels().milDisp->size(); }
    void setMagnification(const char* text) { host.settings["TARN.INI|tn_video|VideoMag"] = text; }
    // Waits until no fit is due any more.
    void letGo() {
        QTest::qWait(WindowFit::letGoMs);
        const auto* timer = window().findChild<QTimer*>(QStringLiteral("tLetGo"));
        ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
        QCoreApplication::processEvents();
    }
    void resizeBy(int width, int height) {
        window().resize(window().width() + width, window().height() + height);
        QCoreApplication::processEvents();
    }
    bool showsMagnification(const char* inPanel, const char* inLabel) {
        return QTest::qWaitFor(
            [&] { return panel("Info").find(inPanel) != std::string::npos && label() == inLabel; }, 2500);
    }
};

using MagnificationBesideTheWindow = TrueScale;
using ResizedWindow = TrueScale;
using WindowOnItsScreen = TrueScale;
using CameraOfAnotherSize = TrueScale;

constexpr const char* marker400 = " 100 \u00b5";
constexpr const char* marker100 = " 500 \u00b5";

} // namespace

TEST_F(MagnificationBesideTheWindow, IsReadAgainAfterAMoveAFocusALiveAndAnActivation) {
    const std::vector<std::function<void()>> moments{
        [this] {
            click({50, 50});
        },
        [this] { window().DoFocus(); },
        [this] { action("mnuAcq")->trigger(); },
        [this] { action("mnuAcq")->trigger(); },
        [this] {
            QApplication::setActiveWindow(nullptr);
            QApplication::setActiveWindow(&window());
        },
    };
    for (const auto& moment : moments) {
        setMagnification("400");
        window().ResizeAll(false);
        ASSERT_TRUE(showsMagnification("400x", marker400));
        setMagnification("100");
        moment();
        EXPECT_TRUE(showsMagnification("100x", marker100)) << label();
    }
}

TEST_F(MagnificationBesideTheWindow, IsReadAgainEachSecondWhileLive) {
    action("mnuAcq")->trigger();
    QTest::qWait(2 * MagnificationWatch::soonMs);
    setMagnification("100");
    EXPECT_TRUE(showsMagnification("100x", marker100));
    setMagnification("0");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window().panels().frMicroMarker->isVisible(); }, 2500));
    EXPECT_THAT(panel("Info"), HasSubstr("   0x"));
    host.logLines.clear();
    QTest::qWait(2 * MagnificationWatch::liveMs);
    EXPECT_THAT(host.logLines, IsEmpty()) << "said once";
}

TEST_F(MagnificationBesideTheWindow, IsFollowedByTheOpenSetUp) {
    action("mnuSetup")->trigger();
    const auto magnification = [this] { return window().setupDialog()->stagePage->txtMag->text(); };
    ASSERT_EQ(magnification(), QStringLiteral("400"));
    action("mnuAcq")->trigger();
    setMagnification("100");
    EXPECT_TRUE(QTest::qWaitFor([&] { return magnification() == QStringLiteral("100"); }, 2500));
}

TEST_F(MagnificationBesideTheWindow, WithAnInvalidFieldIsReadOnce) {
    action("mnuAcq")->trigger();
    host.magFactorX = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window().panels().frMicroMarker->isVisible(); }, 2500));
    host.logLines.clear();
    QTest::qWait(2 * MagnificationWatch::liveMs);
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(MagnificationBesideTheWindow, IsNotReadByAnIdleProgram) {
    setMagnification("100");
    QTest::qWait(MagnificationWatch::liveMs + 5 * MagnificationWatch::soonMs);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(ResizedWindow, ShowsBothScalesWhileStretchedAndTakesTheCamerasProportionsAfterwards) {
    resizeBy(96, 0);
    EXPECT_EQ(panel("Info"), "Still   stretched 1:1.6 x 1:2   400x");
    letGo();
    EXPECT_EQ(display(), QSize(480, 360));
    EXPECT_EQ(panel("Info"), "Still   1:1.6   400x");
    EXPECT_EQ(window().fields().ImageSizeX, 480 * 15);
    EXPECT_EQ(window().fields().InitImageSizeX, 384 * 15) << "a resize, not a zoom";
    resizeBy(0, -72);
    letGo();
    EXPECT_EQ(display(), QSize(384, 288));
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
}

TEST_F(ResizedWindow, AsksTheBoardForTheReductionThatTheShownSizeNeeds) {
    const auto before = host.displayRequests.size();
    resizeBy(96, 72);
    letGo();
    ASSERT_EQ(host.displayRequests.size(), before + 1);
    EXPECT_EQ(host.displayRequests.back().zoom, -1);
    EXPECT_EQ(host.displayRequests.back().fullSize, 0);
    resizeBy(12, 9);
    letGo();
    EXPECT_EQ(host.displayRequests.size(), before + 1) << "asked once";
    resizeBy(-108, -81);
    letGo();
    ASSERT_EQ(host.displayRequests.size(), before + 2);
    EXPECT_EQ(host.displayRequests.back().zoom, -2);
}

TEST_F(ResizedWindow, AsksAgainAfterTheCameraPageHasHandedTheDisplayOver) {
    resizeBy(96, 72);
    letGo();
    ASSERT_EQ(host.displayRequests.back().zoom, -1);
    window().initialiseCamera();
    ASSERT_EQ(host.displayRequests.back().zoom, -2);
    letGo();
    EXPECT_EQ(host.displayRequests.back().zoom, -1);
}

TEST_F(ResizedWindow, ThatIsMaximisedStaysAndSaysThatItIsStretched) {
    window().showMaximized();
    letGo();
    const QSize maximised = window().size();
    EXPECT_THAT(panel("Info"), HasSubstr("stretched 1:"));
    action("mnuZoom0")->trigger();
    letGo();
    EXPECT_EQ(window().size(), maximised);
    EXPECT_LE(window().upDown().frUpDown->geometry().right(), window().width()) << "nothing is cut off";
}

TEST_F(WindowOnItsScreen, IsNeverLargerThanItNorPartlyOffIt) {
    host.bufferDesc.width = 1360;
    host.bufferDesc.height = 1024;
    host.settings["Ocuva.INI|Configuration|FullImage"] = "1";
    begin();
    const QRect screen = window().QWidget::screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window().frameGeometry()));
    EXPECT_EQ(window().fields().GrabZoom, 1);
    const QSize shown = display();
    EXPECT_NEAR(static_cast<double>(shown.width()) / shown.height(), 1360.0 / 1024.0, 0.01);
    EXPECT_THAT(panel("Info"), HasSubstr("Still   1:2."));
    EXPECT_TRUE(window().QWidget::rect().contains(window().sbMain->geometry()));
    window().move(screen.right() - 100, screen.bottom() - 100);
    action("mnuZoom0")->trigger();
    action("mnuZoom0")->trigger();
    letGo();
    EXPECT_TRUE(screen.contains(window().frameGeometry()));
}

TEST_F(CameraOfAnotherSize, ChosenInTheSetUpIsSizedAsByAZoomChange) {
    action("mnuSetup")->trigger();
    auto* ntsc = window().findChild<QAbstractButton*>(QStringLiteral("optCam1"));
    ASSERT_NE(ntsc, nullptr);
    host.bufferDesc.width = 640;
    host.bufferDesc.height = 480;
    ntsc->click();
    EXPECT_EQ(host.calls.back().rfind("TarnVideoBufferAlloc", 0), std::string::npos) << "after the handler";
    letGo();
    EXPECT_EQ(display(), QSize(320, 240));
    EXPECT_EQ(window().fields().GrabSizeX, 640);
    EXPECT_EQ(window().fields().InitImageSizeX, 320 * 15);
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
}
