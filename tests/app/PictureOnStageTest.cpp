#include "tests/support/WindowRig.h"

#include <QTimer>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct MouseOverTheImage : WindowRig {
    void SetUp() override {
        host.settings.emplace("TARN|tn_video|VGAMode", "1");
        startAnew();
    }
    void startAnew() {
        start();
        QCoreApplication::processEvents();
        Calibration& calibration = window().calibration();
        calibration.points = {true, {{{0, 0, -320, 240, 0}, {10000, 10000, 320, -240, 0}, {}}}};
        calibration.ComputePicturePlan();
        host.planSolution = {0.0, 0.0, 12.0};
        calibration.ComputeStagePlan();
        host.calls.clear();
        host.logLines.clear();
    }
    // The signal that a move of the mouse makes: the offscreen platform has no pointer to move.
    void moveMouse(float xTwips, float yTwips) {
        Q_EMIT window().panels().milDisp->mouseMoved(Qt::NoButton, 0, xTwips, yTwips);
    }
    std::vector<std::string> position() { return {panel("X"), panel("Y"), panel("Z")}; }
};

} // namespace

TEST_F(MouseOverTheImage, InVgaModeShowsTheStagePositionUnderItWithoutAHostCall) {
    const QSize twips = window().panels().milDisp->size() * 15;
    moveMouse(static_cast<float>(twips.width()), static_cast<float>(twips.height()));
    EXPECT_THAT(position(), ElementsAre("320", "-240", "12"));
    moveMouse(static_cast<float>(twips.width()) / 4, static_cast<float>(twips.height()) / 2);
    EXPECT_THAT(position(), ElementsAre("-160", "0", "12"));
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MouseOverTheImage, ShowsTheSamePlaceForTheSamePartOfThePictureAtAnyZoom) {
    action("mnuZoom0")->trigger();
    const QSize twips = window().panels().milDisp->size() * 15;
    ASSERT_EQ(twips.width(), 768 * 15);
    moveMouse(static_cast<float>(twips.width()) / 4, static_cast<float>(twips.height()) / 2);
    EXPECT_THAT(position(), ElementsAre("-160", "0", "12"));
}

TEST_F(MouseOverTheImage, OutsideVgaModeChangesNothing) {
    host.settings.erase("TARN|tn_video|VGAMode");
    host.position = {{axisX, 7}, {axisY, 8}, {axisZ, 9}};
    startAnew();
    moveMouse(100.0F, 100.0F);
    EXPECT_THAT(position(), ElementsAre("7", "8", "9"));
}

TEST_F(MouseOverTheImage, WorksOnADisplayWiderThan16BitsOfTwips) {
    window().panels().milDisp->resize(3840, 2400); // 57600 twips wide, 36000 high
    moveMouse(57600.0F, 36000.0F);
    EXPECT_THAT(position(), ElementsAre("320", "-240", "12"));
    bool isAsked = false;
    QTimer::singleShot(0, &window(), [&isAsked] {
        isAsked = true;
        QApplication::activeModalWidget()->close();
    });
    QTest::mouseClick(window().panels().milDisp, Qt::LeftButton, Qt::NoModifier, QPoint(960, 1200));
    EXPECT_TRUE(isAsked);
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(MouseOverTheImage, ShowsTheStagePositionAfterItHasLeft) {
    host.position = {{axisX, 7}, {axisY, 8}, {axisZ, 9}};
    QWidget* display = window().panels().milDisp;
    const auto leave = [display] {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(display, &event);
    };
    moveMouse(0.0F, 0.0F);
    EXPECT_THAT(position(), ElementsAre("-320", "240", "12"));
    leave();
    EXPECT_THAT(position(), ElementsAre("7", "8", "9"));
    host.calls.clear();
    leave(); // nothing was pointed at meanwhile
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MouseOverTheImage, ThatHasNoStagePositionShowsDashesAndLogsOnceUntilOneCanBeComputed) {
    window().calibration().points.points[1].XS = 2000000000;
    window().calibration().ComputePicturePlan();
    for (int i = 0; i < 3; ++i) {
        moveMouse(100000.0F, 10.0F);
    }
    EXPECT_THAT(position(), ElementsAre("\u2013", "\u2013", "\u2013"));
    EXPECT_EQ(host.logLines.size(), 1U);
    moveMouse(0.0F, 0.0F);
    EXPECT_THAT(position(), ElementsAre("-320", "240", "12"));
    moveMouse(100000.0F, 10.0F);
    EXPECT_EQ(host.logLines.size(), 2U);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
