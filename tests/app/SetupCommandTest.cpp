#include "display/MicroMarkerPanel.h"
#include "setup/frmSetup.h"
#include "tests/support/WindowRig.h"

#include <QMessageBox>
#include <QTimer>

using namespace ocuva;
using testing::Contains;

namespace {

struct SetupRig : WindowRig {
    void SetUp() override {
        for (const auto& [key, value] : {std::pair{"CrossSize", "200"},
                                         {"CrossWidth", "2"},
                                         {"GridSizeX", "120"},
                                         {"GridSizeY", "60"},
                                         {"GridLineWidth", "1"},
                                         {"ShowGrid", "1"},
                                         {"ShowCross", "1"}}) {
            host.settings[std::string("Ocuva.INI|Configuration|") + key] = value;
        }
        start();
        QCoreApplication::processEvents();
    }
    frmSetup& open(SetupTab tab) {
        action("mnuSetup")->trigger();
        frmSetup& dialog = *window().setupDialog();
        QApplication::setActiveWindow(&dialog); // the offscreen platform leaves the main window active
        dialog.tsSetup->setCurrentIndex(static_cast<int>(tab) - 1);
        return dialog;
    }
    static void type(TextBox* box, const char* text) {
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(box, QString::fromUtf8(text));
        QTest::keyClick(box, Qt::Key_Tab);
    }
    double gridPitch() {
        const auto& bars = window().overlays().frGrid().bars();
        return bars[1]->bar().left() - bars[0]->bar().left();
    }
    std::string boxText() {
        QString text;
        QTimer::singleShot(0, &window(), [&text] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                box->accept();
            }
        });
        QCoreApplication::processEvents();
        return text.toStdString();
    }
};

using SetupCommand = SetupRig;

} // namespace

TEST_F(SetupCommand, OpensTheDialogFromItemAndToolbarKeyWhileTheWindowStaysUsable) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuSetup")->trigger(); },
        [this] { toolbar("Setup"); },
    };
    for (const auto& way : ways) {
        way();
        ASSERT_NE(window().setupDialog(), nullptr);
        EXPECT_TRUE(window().setupDialog()->isVisible());
        EXPECT_FALSE(window().setupDialog()->isModal());
        window().setupDialog()->close();
    }
}

TEST_F(SetupCommand, BringsAnOpenDialogToTheFrontAndOpensAFreshOneAfterItWasClosed) {
    frmSetup* dialog = &open(SetupTab::Stage);
    action("mnuSetup")->trigger();
    EXPECT_EQ(window().setupDialog(), dialog);
    EXPECT_EQ(dialog->shownTab(), SetupTab::Stage);
    dialog->close();
    action("mnuSetup")->trigger();
    EXPECT_EQ(window().setupDialog()->shownTab(), SetupTab::Autofocus);
}

TEST_F(SetupCommand, AGridWidthRedrawsTheShownGridAtOnceAndTheSameAfterAZoom) {
    EXPECT_EQ(gridPitch(), 60.0); // 120 image pixels at 1:2
    type(open(SetupTab::Monitor).monitorPage->txtGridWidth, "50");
    EXPECT_EQ(gridPitch(), 30.0);
    EXPECT_EQ(window().fields().GridSizeX, 30);
    action("mnuZoom0")->trigger();
    EXPECT_EQ(gridPitch(), 60.0);
    EXPECT_EQ(window().fields().GridSizeX, 60);
}

TEST_F(SetupCommand, AtOneToOneTheGridIsDrawnInWholeImagePixels) {
    action("mnuZoom0")->trigger();
    type(open(SetupTab::Monitor).monitorPage->txtGridWidth, "50");
    EXPECT_EQ(gridPitch(), 60.0);
}

TEST_F(SetupCommand, TheCrossGrowsWithItsUpDown) {
    const QRect before = window().overlays().frCross().bars()[0]->bar();
    open(SetupTab::Monitor).monitorPage->udCrossSize->stepBy(10);
    EXPECT_GT(window().overlays().frCross().bars()[0]->bar().width(), before.width());
}

TEST_F(SetupCommand, AMagnificationIsShownByMicroMarkerAndStatusBarAtOnce) {
    type(open(SetupTab::Stage).stagePage->txtMag, "200");
    EXPECT_EQ(window().panels().frMicroMarker->lbMicroMarker->text().toStdString(), " 200 \xc2\xb5");
    EXPECT_EQ(panel("Info"), "Still   1:2   200x");
}

TEST_F(SetupCommand, AnInvalidGridIsReportedInABoxAndInTheLog) {
    type(open(SetupTab::Monitor).monitorPage->txtGridWidth, "wide");
    EXPECT_EQ(boxText(), "Width: \"wide\" is not a number");
    EXPECT_THAT(host.logLines, Contains("Error: Width: \"wide\" is not a number\n"));
    EXPECT_EQ(gridPitch(), 60.0);
}

TEST_F(SetupCommand, AMagnificationOf0IsStoredTakesTheMicroMarkerAwayAndSaysSo) {
    type(open(SetupTab::Stage).stagePage->txtMag, "abc");
    EXPECT_EQ(boxText(), "There is no scale at this magnification (Division by zero)");
    EXPECT_EQ(host.settings["TARN.INI|tn_video|VideoMag"], "0");
    EXPECT_FALSE(window().panels().frMicroMarker->isVisible());
}

TEST_F(SetupCommand, AnInversionHoldsForTheNextClickOnTheImage) {
    click(QPoint(10, 10));
    const auto before = host.callsOf("TarnLoadStageRelSecure");
    open(SetupTab::Stage).stagePage->optMoveX[1]->click();
    host.calls.clear();
    click(QPoint(10, 10));
    const auto after = host.callsOf("TarnLoadStageRelSecure");
    ASSERT_EQ(after.size(), 2U);
    EXPECT_NE(after[0], before[0]);
    EXPECT_EQ(after[1], before[1]);
}

TEST_F(SetupCommand, AShutDownBoardIsNoLongerShownAsLive) {
    action("mnuAcq")->trigger();
    EXPECT_TRUE(action("mnuAcq")->isChecked());
    open(SetupTab::Board).boardPage->cmdShut->click();
    EXPECT_FALSE(action("mnuAcq")->isChecked());
    EXPECT_FALSE(window().tbMain->value(QStringLiteral("Acq")));
}

TEST_F(SetupCommand, TheDialogIsClosedFirstWhenTheProgramEnds) {
    frmSetup& dialog = open(SetupTab::Stage);
    dialog.stagePage->txtMag->setFocus();
    QTest::keyClicks(dialog.stagePage->txtMag, QStringLiteral("250"));
    action("mnuExit")->trigger();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(host.settings["TARN.INI|tn_video|VideoMag"], "250");
    EXPECT_EQ(processEnds, 1);
}
