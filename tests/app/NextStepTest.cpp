// The program's hints on the operator's next step.

#include "tests/support/WindowRig.h"

#include <QLineEdit>
#include <QStatusTipEvent>

using namespace ocuva;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

struct NextStep : WindowRig {
    void SetUp() override { begin(); }
    void begin() {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    StatusPanel& info() { return *window().sbMain->panel(QStringLiteral("Info")); }
    std::string told() { return info().toolTip().toStdString(); }
    std::string prompt() { return window().panels().milDisp->prompt().toStdString(); }
    void pointAt(const QString& tip) {
        QStatusTipEvent event(tip);
        QCoreApplication::sendEvent(window().menuBar(), &event);
    }
    // The set-up and the calibration dialog, open; the one that is asked for is the active window.
    QDialog& dialogWithKeys(const char* name) {
        action("Picture")->trigger();
        action("mnuSetup")->trigger();
        auto* dialog = child<QDialog>(name);
        EXPECT_NE(dialog, nullptr) << name;
        QApplication::setActiveWindow(dialog);
        host.calls.clear();
        return *dialog;
    }
    // Presses a Z button and watches its move for as many ticks as the stage moves, and one more.
    void stepZ(int ticksMoving) {
        window().upDown().cmdUp[0]->click();
        window().tStageMove->stop();
        host.status[axisZ].assign(static_cast<std::size_t>(ticksMoving), 1);
        for (int tick = 0; tick <= ticksMoving; ++tick) {
            QMetaObject::invokeMethod(window().tStageMove, "timeout");
        }
    }
};

} // namespace

TEST_F(NextStep, TheTipOfEachMenuCommandFitsIntoThePanel) {
    for (const QAction* command : window().menuBar()->findChildren<QAction*>()) {
        if (command->menu() == nullptr && !command->isSeparator() && !command->objectName().isEmpty()) {
            const QString tip = command->statusTip();
            EXPECT_FALSE(tip.isEmpty()) << command->objectName().toStdString();
            EXPECT_LE(info().fontMetrics().horizontalAdvance(tip) + 15, info().contentsRect().width())
                << tip.toStdString();
        }
    }
}

TEST_F(NextStep, ATipTakesTheRoomOfTheInformationPanelAloneAndGivesItBack) {
    pointAt(QStringLiteral("Drive to a typed position"));
    EXPECT_EQ(info().tip(), QStringLiteral("Drive to a typed position"));
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
    for (const char* key : {"X", "Y", "Z", "Info"}) {
        EXPECT_TRUE(child<QWidget>(key)->isVisible()) << key;
    }
    const QImage tip = info().grab().toImage();
    pointAt(QString());
    EXPECT_EQ(info().tip(), QString());
    EXPECT_NE(info().grab().toImage(), tip);
}

TEST_F(NextStep, BeforeTheFirstImageTheDisplayAndThePanelTellHowToGetOne) {
    EXPECT_EQ(prompt(), "Live (F7) starts the live image");
    EXPECT_THAT(told(), HasSubstr("Live (F7) starts the live image"));
    action("mnuAcq")->trigger();
    EXPECT_EQ(prompt(), "Waiting for the first image");
    EXPECT_THAT(told(), AllOf(HasSubstr("Click a point of the image"), Not(HasSubstr("F7"))));
}

TEST_F(NextStep, WithoutFramesThePanelAndTheEmptyDisplaySayToCheckTheCamera) {
    action("mnuAcq")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel("Info").rfind("Not live", 0) == 0; }));
    EXPECT_THAT(told(), HasSubstr("Check the camera"));
    EXPECT_THAT(prompt(), HasSubstr("Check the camera"));
}

TEST_F(NextStep, WithoutABoardThePanelSaysSoAndNamesItsPage) {
    host.boardInitResult = 0;
    begin();
    EXPECT_EQ(panel("Info"), "Board not ready   1:2   400x");
    EXPECT_EQ(info().lamp(), QColor(224, 60, 49));
    EXPECT_THAT(told(), HasSubstr("Setup (Alt+T), tab Board"));
    EXPECT_THAT(prompt(), HasSubstr("Setup (Alt+T), tab Board"));
}

TEST_F(NextStep, ABoardThatRefusesLiveIsReportedUntilItAccepts) {
    host.startGrabResult = 0;
    action("mnuAcq")->trigger();
    EXPECT_EQ(panel("Info"), "Still   The board refused");
    EXPECT_THAT(told(), HasSubstr("tab Board"));
    host.startGrabResult = 1;
    action("mnuAcq")->trigger();
    EXPECT_EQ(panel("Info"), "Live   1:2   400x");
    EXPECT_THAT(told(), Not(HasSubstr("tab Board")));
}

TEST_F(NextStep, AfterAShutDownNoHintLeadsToTheLiveImage) {
    action("mnuSetup")->trigger();
    child<QPushButton>("cmdShut")->click();
    EXPECT_EQ(panel("Info"), "Board not ready   1:2   400x");
    EXPECT_THAT(told(), AllOf(HasSubstr("Setup (Alt+T), tab Board"), Not(HasSubstr("F7"))));
    EXPECT_THAT(prompt(), Not(HasSubstr("F7")));
    host.startGrabResult = 0;
    action("mnuAcq")->trigger();
    EXPECT_THAT(told(), AllOf(HasSubstr("Initialize it: Setup (Alt+T), tab Board"), Not(HasSubstr("anew"))));
}

TEST_F(NextStep, AMoveThatTheHostRefusesIsNotReported) {
    stepZ(0);
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
    EXPECT_EQ(panel("Z"), "0");
}

TEST_F(NextStep, ALongMoveSaysThatThePositionFollowsWhenTheStageStops) {
    std::string seen;
    host.onCall = [this, &seen](const std::string& name) {
        if (name == "TarnReadStageStatus" && host.status[axisZ].size() == 1) {
            seen = panel("Info") + '|' + told();
        }
    };
    stepZ(StageWatch::longMoveTicks - 1);
    EXPECT_THAT(seen, Not(HasSubstr("Stage moving")));
    stepZ(StageWatch::longMoveTicks + 1);
    EXPECT_THAT(seen, AllOf(HasSubstr("Still   Stage moving|"), HasSubstr("shown when it stops")));
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
}

TEST_F(NextStep, TheEndOfAMoveLeavesANoteAboutSomethingElse) {
    host.pixelCount = 1;
    QTest::mouseClick(&info(), Qt::LeftButton);
    stepZ(1);
    EXPECT_THAT(panel("Info"), HasSubstr("mean"));
}

TEST_F(NextStep, TheKeysOfTheCommandsWorkInSetupAndInTheCalibrationToo) {
    for (const char* name : {"frmSetupStage", "frmSetup"}) {
        QTest::keyClick(&dialogWithKeys(name), Qt::Key_F4);
        EXPECT_THAT(host.calls, testing::Contains("TarnAutoFocusExt(-1)")) << name;
    }
}

TEST_F(NextStep, NoFunctionKeyDrivesTheStageWhileOneTypesInAField) {
    for (const char* name : {"frmSetupStage", "frmSetup"}) {
        auto* field = dialogWithKeys(name).findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr) << name;
        field->setFocus();
        ASSERT_EQ(QApplication::focusWidget(), field) << name;
        QTest::keyClick(field, Qt::Key_F4);
        QTest::keyClick(field, Qt::Key_F6);
        EXPECT_THAT(host.calls, testing::IsEmpty()) << name;
    }
}

TEST_F(NextStep, TheCalibrationDialogLeadsFromPointToPoint) {
    action("Picture")->trigger();
    frmSetupStage& dialog = window().pictureOnStage().dialog();
    const auto hint = [&dialog] { return dialog.LabelHint->text().toStdString(); };
    dialog.optTwoPoints->click();
    for (const char* point : {"1", "2"}) {
        const std::size_t index = point[0] - '1';
        dialog.FramePoint->row(index).ButI->click();
        EXPECT_EQ(hint(), std::string("Click point ") + point + " on the image.");
        click({20 + 40 * static_cast<int>(index), 30 + 40 * static_cast<int>(index)});
    }
    EXPECT_EQ(hint(), "Drive the stage to point 1 and read its position.");
    dialog.FramePoint->row(0).ButX->click();
    EXPECT_EQ(hint(), "Drive the stage to point 2 and read its position.");
    dialog.FramePoint->row(1).ButX->click();
    EXPECT_EQ(hint(), "All points are there. If the lines below are good, press OK.");
}
