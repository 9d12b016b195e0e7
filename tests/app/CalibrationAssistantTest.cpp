// The assistant that walks a calibration, the marks of picked points, and the hint about the next step.

#include "tests/support/WindowRig.h"

#include <QMessageBox>

using namespace ocuva;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using State = CalibrationWalk::State;

namespace {

// A stage that is where it was sent as soon as it is started.
struct WithAStage : WindowRig {
    std::map<int, Long> loaded;
    int actions = 0; // of the operator

    void SetUp() override { begin(); }
    void begin() {
        host.position = {{axisX, 1000}, {axisY, 2000}, {axisZ, 50}};
        host.onCall = [this](const std::string& name) { stageCall(name); };
        start();
        QCoreApplication::processEvents();
        window().UpdateStagePos();
        host.calls.clear();
    }
    void stageCall(const std::string& name) {
        if (name == "TarnLoadStageRelSecure") {
            int axis = 0;
            long distance = 0;
            ASSERT_EQ(
                std::sscanf(host.calls.back().c_str(), "TarnLoadStageRelSecure(%d, %ld)", &axis, &distance),
                2);
            loaded[axis] += static_cast<Long>(distance);
        } else if (name == "TarnStartStage") {
            for (const auto& [axis, distance] : loaded) {
                host.position[axis] += distance;
            }
            loaded.clear();
        } else if (name == "TarnAutoFocusExt") {
            host.position[axisZ] += 3;
        }
    }
    frmSetupStage& dialog() { return window().pictureOnStage().dialog(); }
    const CalibrationWalk& walk() { return dialog().assistant().walk(); }
    void open() {
        ++actions;
        action("Picture")->trigger();
    }
    void press(QPushButton* button) {
        ++actions;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void pick(int x, int y) {
        ++actions;
        click({x, y});
    }
    void enter() {
        ++actions;
        QTest::keyClick(&dialog(), Qt::Key_Return);
    }
    // One tick of the watch of a move, and what follows from its end.
    void moveEnds() {
        Q_EMIT window().tStageMove->timeout({});
        QCoreApplication::processEvents();
    }
    void pickThree() {
        pick(38, 29); // of 384 x 288
        pick(346, 29);
        pick(38, 259);
    }
    void walkTo(State state) {
        open();
        press(dialog().cmdWalk);
        if (state == State::Picking) {
            return;
        }
        pickThree();
        while (walk().state() != state) {
            if (walk().waitsForEnter()) {
                enter();
            } else {
                moveEnds();
            }
        }
    }
    std::string hint() { return dialog().LabelHint->text().toStdString(); }
    std::string text(std::size_t point, PointField field) {
        return dialog().FramePoint->box(point, field)->text().toStdString();
    }
    std::vector<std::string> marks() {
        std::vector<std::string> shown;
        for (const PointMark* mark : window().pictureOnStage().marks().marks()) {
            if (mark->isVisible()) {
                shown.push_back(std::to_string(mark->number()) + '@' + std::to_string(mark->centre().x()) +
                                ',' + std::to_string(mark->centre().y()));
            }
        }
        return shown;
    }
};

using Assistant = WithAStage;
using MarksOfPickedPoints = WithAStage;
using CalibrationHint = WithAStage;

} // namespace

TEST_F(Assistant, CalibratesInTenActionsAndLeavesTheStageWhereItWas) {
    open();
    press(dialog().cmdWalk);
    pickThree();
    EXPECT_THAT(host.callsOf("TarnStartStage"), IsEmpty()) << "nothing moves before Enter";
    for (int i = 0; i < 4; ++i) {
        enter();
        moveEnds();
    }
    EXPECT_EQ(walk().state(), State::Done);
    EXPECT_EQ(host.callsOf("TarnAutoFocusExt").size(), 3U);
    EXPECT_EQ(host.position, (std::map<int, Long>{{axisX, 1000}, {axisY, 2000}, {axisZ, 50}}));
    enter();
    EXPECT_EQ(actions, 10);
    EXPECT_FALSE(dialog().isVisible());
    const Calibration& calibration = window().calibration();
    EXPECT_NEAR(calibration.picturePlan().scaleX, -0.064, 0.0005);
    EXPECT_NEAR(calibration.picturePlan().scaleY, -0.048, 0.0005);
    EXPECT_EQ(calibration.points.points[2].ZS, 59);
    ASSERT_TRUE(calibration.view);
    EXPECT_EQ(calibration.view->place, (ViewPlace{{1000, 2000, 50}, 400}));
    EXPECT_THAT(panel("Info"), Not(HasSubstr("elsewhere")));
}

TEST_F(Assistant, ShowsNoMessageBoxAndSaysAtEachStepWhatItWaitsFor) {
    open();
    press(dialog().cmdWalk);
    EXPECT_THAT(hint(), HasSubstr("Click point 1 of 3"));
    pick(38, 29);
    EXPECT_THAT(hint(), HasSubstr("Click point 2 of 3"));
    pick(346, 29);
    pick(38, 259);
    EXPECT_THAT(host.callsOf("TarnMessageBoxVB"), IsEmpty());
    EXPECT_THAT(hint(), HasSubstr("Press Enter"));
    EXPECT_EQ(dialog().cmdWalk->text(), QStringLiteral("Drive to Point 1"));
    EXPECT_TRUE(dialog().cmdWalk->isDefault());
    enter();
    EXPECT_THAT(hint(), HasSubstr("drives to point 1"));
    enter(); // pressed again meanwhile
    EXPECT_EQ(host.callsOf("TarnStartStage").size(), 1U);
    moveEnds();
    EXPECT_THAT(hint(), HasSubstr("Is point 1 under the cross?"));
    EXPECT_FALSE(dialog().OKPicture->isEnabled());
}

TEST_F(Assistant, LeavesTheTextsReadableButNotEditableWhileItWalks) {
    walkTo(State::AtPoint);
    const auto first = [this] { return dialog().FramePoint->row(0); };
    EXPECT_TRUE(first().boxes[0]->isEnabled());
    EXPECT_TRUE(first().boxes[0]->isReadOnly());
    EXPECT_FALSE(first().ButI->isEnabled() || first().ButX->isEnabled());
    inter.reset();
    begin();
    walkTo(State::Done);
    EXPECT_FALSE(first().boxes[0]->isReadOnly());
    EXPECT_TRUE(first().ButI->isEnabled() && first().ButX->isEnabled());
}

TEST_F(Assistant, ReadsWhereTheOperatorHasCentredThePoint) {
    walkTo(State::AtPoint);
    host.position[axisX] += 11;
    enter();
    EXPECT_EQ(text(0, PointField::XS), std::to_string(walk().readings()[0].x));
    EXPECT_EQ(walk().readings()[0].x, 1257 + 11);
}

TEST_F(Assistant, EndsByEscapeAtAnyStepAndStartsNoMoveThen) {
    for (const State state : {State::Picking, State::Ready, State::DrivingThere, State::AtPoint,
                              State::DrivingBack, State::Done}) {
        inter.reset();
        begin();
        walkTo(state);
        host.calls.clear();
        const auto before = host.position;
        QTest::keyClick(&dialog(), Qt::Key_Escape);
        QCoreApplication::processEvents();
        EXPECT_THAT(host.callsOf("TarnStartStage"), IsEmpty()) << nameOf(state);
        EXPECT_EQ(host.position, before) << nameOf(state);
        EXPECT_EQ(dialog().isVisible(), state != State::Done) << nameOf(state);
        moveEnds();
        EXPECT_THAT(host.callsOf("TarnAutoFocusExt"), IsEmpty()) << nameOf(state);
    }
}

TEST_F(Assistant, EndedAwayFromHomeSaysWhereTheStageIsAndDrivesBackAtThePressOfItsButton) {
    walkTo(State::AtPoint);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    EXPECT_THAT(hint(), AllOf(HasSubstr("is at X:1257"), HasSubstr("started at X:1000 Y:2000 Z:50")));
    EXPECT_EQ(dialog().cmdWalk->text(), QStringLiteral("Drive Back"));
    press(dialog().cmdWalk);
    moveEnds();
    EXPECT_EQ(walk().state(), State::Idle);
    EXPECT_EQ(host.position[axisX], 1000);
}

TEST_F(Assistant, EndedWhileTheStageMovesSaysSoAndWhereTheStageIsWhenItHasStopped) {
    walkTo(State::AtPoint);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    press(dialog().cmdWalk); // drives back
    host.position[axisX] = 1100;
    host.status[axisX].assign(20, 1);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    EXPECT_EQ(walk().state(), State::Idle);
    EXPECT_EQ(hint(), "The assistant has ended. The move that runs goes on to its end.");
    host.status[axisX].clear();
    host.position[axisX] = 1000;
    moveEnds();
    EXPECT_THAT(hint(), HasSubstr("The stage is at X:1000"));
}

TEST_F(Assistant, RefusesToContinueUntilTheStageHasStopped) {
    walkTo(State::AtPoint);
    click({100, 100}); // centres the point
    window().tStageMove->stop();
    host.status[axisX].assign(20, 1);
    enter();
    EXPECT_THAT(hint(), HasSubstr("The stage is moving"));
    host.status[axisX].clear();
    moveEnds();
    EXPECT_THAT(hint(), HasSubstr("Is point 1 under the cross?"));
}

TEST_F(Assistant, SaysThatItFocusesBeforeTheSearchBegins) {
    std::string before;
    const auto stage = host.onCall;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnAutoFocusExt") {
            before = hint();
        }
        stage(name);
    };
    walkTo(State::AtPoint);
    EXPECT_THAT(before, HasSubstr("The focus is searched at point 1"));
}

TEST_F(Assistant, KeepsTheRowsOfPointsInPlaceWithAnyHint) {
    open();
    press(dialog().cmdWalk);
    QCoreApplication::processEvents();
    const int top = dialog().FramePoint->row(2).ButI->mapTo(&dialog(), QPoint()).y();
    pickThree();
    enter();
    moveEnds();
    host.position = {{axisX, -1234567}, {axisY, -1234567}, {axisZ, -123456}};
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    ASSERT_GT(dialog().LabelHint->heightForWidth(dialog().LabelHint->width()),
              dialog().LabelHint->fontMetrics().height());
    EXPECT_EQ(dialog().FramePoint->row(2).ButI->mapTo(&dialog(), QPoint()).y(), top);
}

TEST_F(Assistant, TakesEnterAndEscapeInTheMainWindowToo) {
    walkTo(State::Ready);
    QApplication::setActiveWindow(&window());
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_EQ(walk().state(), State::DrivingThere);
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_EQ(walk().state(), State::Left);
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_EQ(walk().state(), State::Idle);
}

TEST_F(Assistant, DoesNotWalkOnWhileEnterIsHeld) {
    walkTo(State::Ready);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(dialog().cmdWalk, &held);
    EXPECT_EQ(walk().state(), State::Ready);
}

TEST_F(Assistant, ClosedWithItsDialogDrivesNoMore) {
    walkTo(State::DrivingThere);
    dialog().close();
    host.calls.clear();
    moveEnds();
    EXPECT_EQ(walk().state(), State::Idle);
    EXPECT_THAT(host.callsOf("TarnStartStage"), IsEmpty());
    EXPECT_THAT(host.callsOf("TarnAutoFocusExt"), IsEmpty());
}

TEST_F(Assistant, SaysWhyItCannotWalk) {
    host.settings["TARN|tn_video|VGAMode"] = "1";
    inter.reset();
    begin();
    open();
    press(dialog().cmdWalk);
    EXPECT_EQ(walk().state(), State::Idle);
    EXPECT_THAT(hint(), HasSubstr("VGA mode"));
    host.settings["TARN|tn_video|VGAMode"] = "0";
    host.magFactorX = 0.0F;
    inter.reset();
    begin();
    open();
    press(dialog().cmdWalk);
    EXPECT_THAT(hint(), HasSubstr("needs the magnification and the field"));
}

TEST_F(Assistant, OffersFieldAndDirectionsForTheSetUpAndTakesThemOverWithOkAlone) {
    for (const bool wanted : {false, true}) {
        host.settings.clear();
        inter.reset();
        begin();
        open();
        EXPECT_FALSE(dialog().chkTakeOver->isVisible());
        press(dialog().cmdWalk);
        pickThree();
        for (int i = 0; i < 4; ++i) {
            enter();
            moveEnds();
        }
        ASSERT_TRUE(dialog().chkTakeOver->isVisible());
        EXPECT_FALSE(dialog().chkTakeOver->isChecked());
        EXPECT_THAT(dialog().chkTakeOver->text().toStdString(), HasSubstr("X not inverted, Y not inverted"));
        dialog().FramePoint->box(1, PointField::XS)->setText(QStringLiteral("1770")); // of 1257: reversed
        dialog().chkTakeOver->setChecked(wanted);
        host.calls.clear();
        enter();
        EXPECT_EQ(host.callsOf("TarnSetVideoMag100Factors").size(), wanted ? 1U : 0U);
        EXPECT_EQ(host.settings["Ocuva.INI|Configuration|MoveXInverse"], wanted ? "1" : "");
    }
}

TEST_F(MarksOfPickedPoints, AreOnTheImageWithTheirNumbersWhileTheDialogIsOpen) {
    open();
    press(dialog().FramePoint->row(0).ButI);
    pick(96, 72);
    EXPECT_THAT(marks(), testing::ElementsAre("1@96,72"));
    dialog().FramePoint->box(2, PointField::XI)->setText(QStringLiteral("10000"));
    dialog().FramePoint->box(2, PointField::YI)->setText(QStringLiteral("0"));
    EXPECT_THAT(marks(), testing::ElementsAre("1@96,72", "3@383,0"));
    dialog().optTwoPoints->click();
    EXPECT_THAT(marks(), testing::ElementsAre("1@96,72"));
    dialog().close();
    EXPECT_THAT(marks(), IsEmpty());
    open();
    EXPECT_THAT(marks(), IsEmpty()) << "the boxes are those of the calibration again";
}

TEST_F(MarksOfPickedPoints, AreNotShownOnAnotherViewAndComeBackWithIt) {
    open();
    press(dialog().FramePoint->row(0).ButI);
    pick(96, 72);
    click({200, 72}); // drives
    EXPECT_THAT(marks(), IsEmpty()) << "the picture slides away below them";
    moveEnds();
    EXPECT_THAT(marks(), IsEmpty());
    host.position = {{axisX, 1000}, {axisY, 2000}, {axisZ, 50}};
    window().UpdateStagePos();
    EXPECT_THAT(marks(), testing::ElementsAre("1@96,72"));
}

TEST_F(MarksOfPickedPoints, FollowTheSizeOfTheImage) {
    open();
    press(dialog().FramePoint->row(0).ButI);
    pick(96, 72);
    action("mnuZoom0")->trigger();
    EXPECT_THAT(marks(), testing::ElementsAre("1@192,144"));
}

TEST_F(CalibrationHint, FollowsTheTypedTexts) {
    open();
    dialog().FramePoint->setPoint(0, {"0", "0", "", "", ""});
    EXPECT_EQ(hint(), "Pick point 2 on the image.");
    dialog().FramePoint->setPoint(1, {"10000", "0", "", "", ""});
    dialog().FramePoint->setPoint(2, {"0", "10000", "", "", ""});
    EXPECT_EQ(hint(), "Drive the stage to point 1 and read its position.");
    dialog().FramePoint->setPoint(0, {"0", "0", "1", "x", "3"});
    EXPECT_EQ(hint(), "Correct Point 1, stage Y.");
    dialog().FramePoint->setPoint(0, {"0", "0", "1", "2", "3"});
    dialog().FramePoint->setPoint(1, {"10000", "0", "641", "2", "3"});
    dialog().FramePoint->setPoint(2, {"0", "10000", "1", "482", "3"});
    EXPECT_EQ(hint(), "All points are there. If the lines below are good, press OK.");
    dialog().FramePoint->box(2, PointField::YI)->setText(QStringLiteral("0"));
    EXPECT_EQ(hint(), "These points cannot be used: see below.");
}
