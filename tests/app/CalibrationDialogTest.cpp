#include "tests/support/WindowRig.h"

#include <QMessageBox>
#include <QTimer>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr const char* keptPoints = "Ocuva.INI|Calibration|Points";

// What a message box said, and what is pressed in it.
struct Box {
    QString title;
    QString text;
    QString more;
    bool noIsDefault = false;
};

struct CalibrationDialog : WindowRig {
    void SetUp() override { startAnew(); }

    void startAnew() {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
        host.logLines.clear();
    }
    void startInVgaMode() {
        host.settings.emplace("TARN|tn_video|VGAMode", "1");
        startAnew();
    }
    frmSetupStage& open() {
        action("Picture")->trigger();
        host.calls.clear();
        return dialog();
    }
    frmSetupStage& dialog() { return window().pictureOnStage().dialog(); }
    void type(std::size_t point, const PointTexts& texts) { dialog().FramePoint->setPoint(point, texts); }
    void typeGoodPoints() {
        type(0, {"0", "0", "-320", "-240", "10"});
        type(1, {"10000", "0", "320", "-240", "12"});
        type(2, {"0", "10000", "-320", "240", "14"});
    }
    void calibrate() {
        Calibration& calibration = window().calibration();
        calibration.points = {true, {{{0, 0, -320, -240, 0}, {10000, 10000, 320, 240, 0}, {}}}};
        calibration.ComputePicturePlan();
        host.planSolution = {0.0, 0.0, 12.0};
        calibration.ComputeStagePlan();
        host.calls.clear();
    }
    static void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    void pick(std::size_t point) { press(dialog().FramePoint->row(point).ButI); }
    void read(std::size_t point) { press(dialog().FramePoint->row(point).ButX); }
    void clickTheMiddle() {
        const QWidget* display = window().panels().milDisp;
        click({display->width() / 2, display->height() / 2});
    }
    // Runs the action, which opens a message box, and presses a button in it.
    Box answer(QMessageBox::StandardButton button, const std::function<void()>& action) {
        Box seen;
        QTimer::singleShot(0, &window(), [&seen, button] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                seen = {box->windowTitle(), box->text(), box->informativeText(),
                        box->defaultButton() == box->button(QMessageBox::No)};
                box->button(button)->click();
            }
        });
        action();
        QCoreApplication::processEvents();
        return seen;
    }
    std::string text(std::size_t point, PointField field) {
        return dialog().FramePoint->box(point, field)->text().toStdString();
    }
    std::string hint() { return dialog().LabelHint->text().toStdString(); }
    std::vector<std::string> moves() const {
        std::vector<std::string> found;
        for (const std::string& call : host.calls) {
            if (call.rfind("TarnLoadStage", 0) == 0 || call.rfind("TarnStartStage", 0) == 0) {
                found.push_back(call);
            }
        }
        return found;
    }
};

using PointSelection = CalibrationDialog;
using MoveToTheCursor = CalibrationDialog;
using LastCalibration = CalibrationDialog;

} // namespace

TEST_F(CalibrationDialog, OpensModelessFromItsItemAndItsShortcut) {
    action("Picture")->trigger();
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_FALSE(dialog().isModal());
    dialog().close();
    QTest::keyClick(&window(), Qt::Key_F3);
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(CalibrationDialog, ItsControlsAreFoundUnderTheirNames) {
    open();
    for (const char* name : {"XI1", "YI2", "XS3", "YS1", "ZS2"}) {
        EXPECT_NE(dialog().findChild<TextBox*>(QString::fromLatin1(name)), nullptr) << name;
    }
    for (const char* name : {"ButI1", "ButI3", "ButX2", "CmdPt", "OKPicture", "CancelPicture"}) {
        EXPECT_NE(dialog().findChild<QPushButton*>(QString::fromLatin1(name)), nullptr) << name;
    }
    EXPECT_NE(dialog().findChild<QFrame*>(QStringLiteral("FramePoint")), nullptr);
    EXPECT_NE(dialog().findChild<QLabel*>(QStringLiteral("LabelPtI1")), nullptr);
    EXPECT_EQ(dialog().optThreePoints->text(), QStringLiteral("3 Points"));
    EXPECT_EQ(dialog().optTwoPoints->text(), QStringLiteral("2 Points"));
}

TEST_F(CalibrationDialog, HasEmptyBoxesBeforeTheFirstCalibrationAndItsPointsAfterwards) {
    open();
    EXPECT_EQ(text(0, PointField::XI), "");
    dialog().close();
    calibrate();
    open();
    EXPECT_EQ(text(1, PointField::XS), "320");
    EXPECT_EQ(text(2, PointField::XI), "");
    EXPECT_TRUE(dialog().optTwoPoints->isChecked());
}

TEST_F(CalibrationDialog, SelectsTheWholeTextOfABoxThatGetsTheFocus) {
    open();
    typeGoodPoints();
    QApplication::setActiveWindow(&dialog());
    TextBox* box = dialog().FramePoint->box(1, PointField::XI);
    QTest::mouseClick(box, Qt::LeftButton);
    EXPECT_EQ(box->selectedText(), QStringLiteral("10000"));
}

TEST_F(CalibrationDialog, WithTwoPointsTheThirdRowCannotBeUsed) {
    open();
    QTest::mouseClick(dialog().optTwoPoints, Qt::LeftButton);
    const PointRows::Row& third = dialog().FramePoint->row(2);
    EXPECT_FALSE(third.ButI->isEnabled() || third.ButX->isEnabled() || third.boxes[0]->isEnabled());
    EXPECT_TRUE(dialog().FramePoint->row(1).ButI->isEnabled());
    QTest::mouseClick(dialog().optThreePoints, Qt::LeftButton);
    EXPECT_TRUE(third.ButI->isEnabled() && third.ButX->isEnabled() && third.boxes[0]->isEnabled());
}

TEST_F(CalibrationDialog, ReadsTheStagePositionIntoThePoint) {
    open();
    host.position = {{axisX, 100}, {axisY, -200}, {axisZ, 30}};
    read(1);
    EXPECT_EQ(text(1, PointField::XS), "100");
    EXPECT_EQ(text(1, PointField::YS), "-200");
    EXPECT_EQ(text(1, PointField::ZS), "30");
    EXPECT_THAT(host.callsOf("TarnReadStagePos"),
                ElementsAre("TarnReadStagePos(1)", "TarnReadStagePos(2)", "TarnReadStagePos(3)"));
    EXPECT_EQ(hint(), "Pick point 1 on the image.");
}

TEST_F(CalibrationDialog, SaysThatAPointWasReadWhileTheStageMoved) {
    open();
    host.status[axisY] = {1};
    read(0);
    EXPECT_THAT(hint(), HasSubstr("while the stage was moving"));
}

TEST_F(CalibrationDialog, OkComputesThePictureThenTheStageKeepsThemAndCloses) {
    open();
    typeGoodPoints();
    host.planSolution = {0.0, 0.0, 12.0};
    press(dialog().OKPicture);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_DOUBLE_EQ(window().calibration().picturePlan().scaleX, 0.064);
    EXPECT_EQ(window().calibration().ComputeStagePosition(5000.0F, 5000.0F), (StagePosition{0, 0, 12}));
    ASSERT_EQ(host.calls.size(), 2U);
    EXPECT_THAT(host.calls[0], HasSubstr("TarnSolvePlan"));
    EXPECT_THAT(host.calls[1], HasSubstr("0,0,-320,-240,10 10000,0,320,-240,12 0,10000,-320,240,14"));
}

TEST_F(CalibrationDialog, CancelComputesAndKeepsNothing) {
    calibrate();
    open();
    typeGoodPoints();
    press(dialog().CancelPicture);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_TRUE(window().calibration().points.twoPoints);
    EXPECT_EQ(host.settings.count(keptPoints), 0U);
}

TEST_F(CalibrationDialog, ABadTextIsReportedByItsNameGetsTheFocusAndChangesNothing) {
    calibrate();
    const CalibrationPoints before = window().calibration().points;
    open();
    QTest::mouseClick(dialog().optThreePoints, Qt::LeftButton);
    typeGoodPoints();
    dialog().FramePoint->box(1, PointField::YS)->setText(QStringLiteral("12abc"));
    QApplication::setActiveWindow(&dialog());
    const Box box = answer(QMessageBox::Ok, [this] { press(dialog().OKPicture); });
    EXPECT_EQ(box.text, QStringLiteral("Point 2, stage Y: \"12abc\" is not a number"));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(dialog().focusWidget(), dialog().FramePoint->box(1, PointField::YS));
    EXPECT_EQ(window().calibration().points, before);
    EXPECT_THAT(host.callsOf("TarnSolvePlan"), IsEmpty());
    EXPECT_EQ(host.settings.count(keptPoints), 0U);
}

TEST_F(CalibrationDialog, PointsThatCannotBeComputedAreReportedAndTheOldCalibrationStays) {
    calibrate();
    const CalibrationPoints before = window().calibration().points;
    open();
    type(0, {"5", "0", "0", "0", "0"});
    type(1, {"5", "10000", "640", "480", "0"});
    const Box box = answer(QMessageBox::Ok, [this] { press(dialog().OKPicture); });
    EXPECT_NE(box.text, QString());
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(window().calibration().points, before);
    EXPECT_EQ(window().calibration().ComputeStagePosition(5000.0F, 5000.0F), (StagePosition{0, 0, 12}));
    EXPECT_EQ(host.settings.count(keptPoints), 0U);
}

TEST_F(CalibrationDialog, WithoutAPlaneIsAcceptedWithEveryZ0AndALogLine) {
    open();
    typeGoodPoints();
    host.planSolution = {1.0, 1.0, 1.0};
    host.results["TarnSolvePlan"] = 0;
    press(dialog().OKPicture);
    EXPECT_EQ(window().calibration().ComputeStagePosition(9000.0F, 100.0F).z, 0);
    EXPECT_THAT(host.logLines, ElementsAre(HasSubstr("no plane")));
}

TEST_F(CalibrationDialog, JudgesThePointsWhileTheyAreTyped) {
    open();
    EXPECT_THAT(dialog().verdict->LabelRemarks->text().toStdString(), HasSubstr("Fill in the points"));
    typeGoodPoints();
    dialog().FramePoint->box(0, PointField::XI)->setText(QStringLiteral("1x"));
    EXPECT_EQ(dialog().verdict->LabelRemarks->text().toStdString(),
              "Point 1, picture X: \"1x\" is not a number");
    typeGoodPoints();
    EXPECT_EQ(dialog().verdict->LabelScale->text().toStdString(),
              "X 640.0, Y 480.0 stage units across the whole picture");
    EXPECT_THAT(dialog().verdict->LabelAngle->text().toStdString(), HasSubstr("90.0"));
    EXPECT_EQ(dialog().verdict->LabelRemarks->text(), QString());
    dialog().FramePoint->box(2, PointField::XS)->setText(QStringLiteral("-300"));
    EXPECT_EQ(dialog().FramePoint->row(2).LabelOff->text(), QStringLiteral("20.0 worst"));
    EXPECT_TRUE(dialog().FramePoint->row(2).LabelOff->font().bold());
    EXPECT_EQ(dialog().FramePoint->row(0).LabelOff->text(), QStringLiteral("0.0"));
    type(2, {"20000", "0", "960", "-240", "0"});
    EXPECT_THAT(dialog().verdict->LabelRemarks->text().toStdString(), HasSubstr("same Y on the picture"));
    EXPECT_EQ(dialog().FramePoint->row(2).LabelOff->text(), QString());
}

TEST_F(CalibrationDialog, HidesThePointFrameAndOpensItAgainForABadText) {
    open();
    press(dialog().CmdPt);
    EXPECT_TRUE(dialog().FramePoint->isHidden());
    press(dialog().CmdPt);
    EXPECT_FALSE(dialog().FramePoint->isHidden());
    press(dialog().CmdPt);
    answer(QMessageBox::Ok, [this] { press(dialog().OKPicture); });
    EXPECT_FALSE(dialog().FramePoint->isHidden());
}

TEST_F(CalibrationDialog, ClosesWithTheProgram) {
    open();
    action("mnuExit")->trigger();
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(PointSelection, ShowsTheHostsMessageAndThenWaitsForTheClick) {
    open();
    pick(1);
    EXPECT_THAT(host.calls, ElementsAre("TarnMessageBoxVB(\"TnOcuvaSelect\", \"Point Selection\", 0)"));
    EXPECT_TRUE(dialog().isSelecting());
    EXPECT_TRUE(dialog().FramePoint->row(1).ButI->isChecked());
    EXPECT_EQ(hint(), "Click point 2 on the image.");
}

TEST_F(PointSelection, OutsideVgaModeTakesTheNextClickInsteadOfMovingAndTheOneAfterItMovesAgain) {
    open();
    pick(2);
    host.calls.clear();
    click({96, 72}); // of 384 x 288
    EXPECT_EQ(text(2, PointField::XI), "2500");
    EXPECT_EQ(text(2, PointField::YI), "2500");
    EXPECT_THAT(moves(), IsEmpty());
    EXPECT_EQ(host.calls, host.callsOf("TarnReadStagePos")) << "only where the stage is is asked";
    EXPECT_FALSE(dialog().isSelecting());
    click({96, 72});
    EXPECT_EQ(moves().size(), 3U);
}

TEST_F(PointSelection, InVgaModeTakesThePointAndAsksForTheMove) {
    startInVgaMode();
    calibrate();
    open();
    pick(0);
    const Box box = answer(QMessageBox::No, [this] { click({96, 72}); });
    EXPECT_EQ(box.text.toStdString(), " Move Stage to X:-160 Y:-120 Z:12 ? ");
    EXPECT_EQ(text(0, PointField::XI), "2500");
    EXPECT_EQ(text(0, PointField::YI), "2500");
    EXPECT_FALSE(dialog().isSelecting());
}

TEST_F(PointSelection, EndsByASecondPressByClosingOrWhenItsRowFallsOutOfUse) {
    open();
    pick(2);
    pick(2);
    EXPECT_FALSE(dialog().isSelecting());
    EXPECT_EQ(host.callsOf("TarnMessageBoxVB").size(), 1U);
    pick(2);
    QTest::mouseClick(dialog().optTwoPoints, Qt::LeftButton);
    EXPECT_FALSE(dialog().isSelecting());
    pick(1);
    press(dialog().CancelPicture);
    EXPECT_FALSE(dialog().isSelecting());
    open();
    pick(1);
    press(dialog().CmdPt);
    EXPECT_FALSE(dialog().isSelecting());
}

TEST_F(PointSelection, MovesOnToAnotherPointThatIsPressed) {
    open();
    pick(0);
    pick(1);
    click({96, 72});
    EXPECT_EQ(text(0, PointField::XI), "");
    EXPECT_EQ(text(1, PointField::XI), "2500");
}

TEST_F(MoveToTheCursor, AsksItsQuestionWithNoAsTheDefaultEvenWhileTheDialogIsClosed) {
    startInVgaMode();
    calibrate();
    const Box box = answer(QMessageBox::No, [this] { clickTheMiddle(); });
    EXPECT_EQ(box.title.toStdString(), "Move Stage to Cursor position");
    EXPECT_EQ(box.text.toStdString(), " Move Stage to X:0 Y:0 Z:12 ? ");
    EXPECT_EQ(box.more, QString());
    EXPECT_TRUE(box.noIsDefault);
}

TEST_F(MoveToTheCursor, SaysThatThereIsNoCalibration) {
    startInVgaMode();
    const Box box = answer(QMessageBox::No, [this] { clickTheMiddle(); });
    EXPECT_EQ(box.text.toStdString(), " Move Stage to X:0 Y:0 Z:0 ? ");
    EXPECT_THAT(box.more.toStdString(), HasSubstr("no calibration"));
}

TEST_F(MoveToTheCursor, OnNoNothingMoves) {
    startInVgaMode();
    calibrate();
    answer(QMessageBox::No, [this] { clickTheMiddle(); });
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MoveToTheCursor, OnYesLoadsThreeTargetsStartsAllAndWaitsForTheAxesInTurn) {
    startInVgaMode();
    calibrate();
    answer(QMessageBox::Yes, [this] { click({96, 72}); });
    ASSERT_GE(host.calls.size(), 7U);
    EXPECT_THAT(std::vector<std::string>(host.calls.begin(), host.calls.begin() + 7),
                ElementsAre("TarnLoadStageAbs(1, -160)", "TarnLoadStageAbs(2, -120)",
                            "TarnLoadStageAbs(3, 12)", "TarnStartStage(0)", "TarnReadStageStatus(1, 0)",
                            "TarnReadStageStatus(2, 0)", "TarnReadStageStatus(3, 0)"));
    EXPECT_TRUE(window().tStageMove->isActive());
}

TEST_F(MoveToTheCursor, SaysWhereTheStageIsInTheEnd) {
    startInVgaMode();
    calibrate();
    open();
    host.position = {{axisX, 0}, {axisY, 0}, {axisZ, 12}};
    answer(QMessageBox::Yes, [this] { clickTheMiddle(); });
    EXPECT_EQ(hint(), "The stage is at X:0 Y:0 Z:12.");
    EXPECT_THAT(host.logLines, IsEmpty());
    host.position[axisZ] = 11; // refused
    answer(QMessageBox::Yes, [this] { clickTheMiddle(); });
    EXPECT_EQ(hint(), "The stage is at X:0 Y:0 Z:11, not where it was sent.");
    EXPECT_EQ(host.logLines.size(), 1U);
}

TEST_F(MoveToTheCursor, WaitsWithoutBlockingTheWindowAndDisablesPickingAndReading) {
    startInVgaMode();
    calibrate();
    open();
    host.status[axisX].assign(1000, 1);
    answer(QMessageBox::Yes, [this] { clickTheMiddle(); });
    EXPECT_TRUE(dialog().tMoveWait->isActive());
    EXPECT_FALSE(dialog().FramePoint->row(0).ButI->isEnabled());
    EXPECT_FALSE(dialog().FramePoint->row(0).ButX->isEnabled());
    host.calls.clear();
    clickTheMiddle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_THAT(moves(), IsEmpty());
    host.status[axisX].clear();
    Q_EMIT dialog().tMoveWait->timeout({});
    EXPECT_FALSE(dialog().tMoveWait->isActive());
    EXPECT_TRUE(dialog().FramePoint->row(0).ButI->isEnabled());
}

TEST_F(MoveToTheCursor, GivesTheKeyboardFocusBackToTheButtonThatHadItUnlessTheOperatorMovedIt) {
    startInVgaMode();
    calibrate();
    open();
    for (const bool movesIt : {false, true}) {
        for (QPushButton* button :
             {dialog().FramePoint->row(1).ButI, dialog().FramePoint->row(0).ButX, dialog().OKPicture}) {
            button->setFocus();
            host.status[axisX].assign(1000, 1);
            answer(QMessageBox::Yes, [this] { clickTheMiddle(); });
            ASSERT_TRUE(dialog().tMoveWait->isActive());
            if (movesIt) {
                dialog().CancelPicture->setFocus();
            }
            host.status[axisX].clear();
            Q_EMIT dialog().tMoveWait->timeout({});
            EXPECT_EQ(dialog().focusWidget(), movesIt ? dialog().CancelPicture : button)
                << button->objectName().toStdString();
        }
    }
}

TEST_F(MoveToTheCursor, ReportsAStalledStageAndStopsWaiting) {
    startInVgaMode();
    calibrate();
    open();
    host.status[axisX].assign(1000, 1);
    answer(QMessageBox::Yes, [this] { clickTheMiddle(); });
    for (int i = 0; i < AxisWait::patienceTicks; ++i) {
        ASSERT_TRUE(dialog().tMoveWait->isActive()) << i;
        Q_EMIT dialog().tMoveWait->timeout({});
    }
    EXPECT_FALSE(dialog().tMoveWait->isActive());
    EXPECT_THAT(hint(), HasSubstr("Axis X"));
    EXPECT_THAT(host.logLines, testing::Contains(HasSubstr("Axis X")));
    EXPECT_TRUE(dialog().FramePoint->row(0).ButX->isEnabled());
}

TEST_F(MoveToTheCursor, APlaceThatHasNoPositionIsReportedAndNothingMoves) {
    startInVgaMode();
    calibrate();
    window().calibration().points.points[1].XS = 2000000000;
    window().calibration().points.points[1].XI = 1;
    window().calibration().ComputePicturePlan();
    const Box box = answer(QMessageBox::Ok, [this] { clickTheMiddle(); });
    EXPECT_NE(box.text, QString());
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(LastCalibration, IsLoadedAtItsFirstUseAndNotAtTheStart) {
    host.settings.emplace(keptPoints, "0,0,-320,-240,0 10000,10000,320,240,0");
    start();
    EXPECT_THAT(host.callsOf("TarnRegisterGetString"), IsEmpty());
    EXPECT_THAT(host.callsOf("TarnSolvePlan"), IsEmpty());
    EXPECT_EQ(window().calibration().ComputeStagePosition(2500.0F, 2500.0F).x, -160);
    EXPECT_TRUE(window().calibration().points.twoPoints);
    EXPECT_EQ(host.callsOf("TarnSolvePlan").size(), 1U);
}

TEST_F(LastCalibration, ServesTheMouseAndTheClickOfTheNextRun) {
    open();
    typeGoodPoints();
    press(dialog().OKPicture);
    startInVgaMode();
    Q_EMIT window().panels().milDisp->mouseMoved(Qt::NoButton, 0, 96 * 15.0F, 72 * 15.0F);
    EXPECT_EQ(panel("X"), "-160");
    const Box box = answer(QMessageBox::No, [this] { click({96, 72}); });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("X:-160 Y:-120"));
}

TEST_F(LastCalibration, ThatWasDamagedOrCannotBeComputedLeavesTheProgramWithoutOne) {
    for (const char* kept : {"rubbish", "5,0,0,0,0 5,10000,640,480,0"}) {
        host.settings[keptPoints] = std::string(kept);
        start();
        EXPECT_EQ(window().calibration().points, CalibrationPoints{}) << kept;
    }
    EXPECT_THAT(host.logLines, testing::Contains(HasSubstr("cannot be used")));
}

TEST_F(LastCalibration, IsPutBackIntoTheBoxesAndUsedAfterOk) {
    open();
    typeGoodPoints();
    press(dialog().OKPicture);
    open();
    type(0, {"1", "2", "3", "4", "5"});
    press(dialog().cmdRestore);
    EXPECT_EQ(text(0, PointField::XS), "-320");
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(hint(), HasSubstr("Press OK"));
}

TEST_F(LastCalibration, IfMissingLeavesTheBoxesUnchanged) {
    open();
    type(0, {"1", "2", "3", "4", "5"});
    press(dialog().cmdRestore);
    EXPECT_EQ(text(0, PointField::ZS), "5");
    EXPECT_THAT(hint(), HasSubstr("No calibration"));
}

TEST_F(LastCalibration, ThatTheHostCouldNotStoreIsStillUsedAndLogged) {
    open();
    typeGoodPoints();
    host.results["TarnRegisterSetString"] = 0;
    press(dialog().OKPicture);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_DOUBLE_EQ(window().calibration().picturePlan().scaleX, 0.064);
    EXPECT_THAT(host.logLines, testing::Contains(HasSubstr("could not be kept")));
}
