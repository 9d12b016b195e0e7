// Each action of the operator is carried out once, and the panel describes it correctly.

#include "display/TwipsGeometry.h"
#include "setup/frmSetup.h"
#include "standards/frmStdList.h"
#include "tests/support/WindowRig.h"

#include <QMessageBox>
#include <QTimer>

#include <map>
#include <set>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

struct Hands : WindowRig {
    void SetUp() override {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    std::vector<std::string> moves() const { return host.callsOf("TarnLoadStageRelSecure"); }
    MilDisplay& image() { return *window().panels().milDisp; }
    QToolButton* up() { return window().upDown().cmdUp[0]; }
    void endMove() {
        for (int i = 0; i < 200 && window().tStageMove->isActive(); ++i) {
            QTest::qWait(5);
        }
    }
    void showFrame() {
        const auto frame = std::make_shared<Frame>();
        frame->width = 2;
        frame->height = 2;
        frame->pixels.assign(4, 0xff808080);
        windows.deliver(image().hWnd(), frame);
        QCoreApplication::processEvents();
        image().repaint();
    }
};

using InputDuringACall = Hands;
using FocusOfTheControls = Hands;
using AnOldPicture = Hands;
using ADistanceNoStageGoes = Hands;

} // namespace

TEST_F(Hands, NoCommandRepeatsItselfWhileItsKeyIsHeld) {
    for (const QAction* action : window().findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty()) {
            EXPECT_FALSE(action->autoRepeat()) << action->objectName().toStdString();
        }
    }
}

TEST_F(Hands, ADoubleClickOnTheImageIsOneClick) {
    QTest::mouseClick(&image(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 180));
    QTest::mouseDClick(&image(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 180));
    QTest::mouseRelease(&image(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 180));
    EXPECT_EQ(moves().size(), 2U);
    QTest::mouseClick(&image(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 180));
    EXPECT_EQ(moves().size(), 4U);
}

TEST_F(InputDuringACall, IsDroppedDuringAFocusSearchOfTheOperatorOrTheHost) {
    const std::vector<std::function<void()>> ways{[this] { action("mnuFocus")->trigger(); },
                                                  [this] { host.deliver("OCUVA_AUTOFOCUS"); }};
    for (const auto& way : ways) {
        std::string said;
        host.onCall = [this, &said](const std::string& name) {
            if (name == "TarnAutoFocusExt") {
                said = panel("Info");
                click({250, 180});
                QTest::mouseClick(up(), Qt::LeftButton);
                QTest::keyClick(&window(), Qt::Key_F9);
                EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
            }
        };
        host.calls.clear();
        way();
        host.onCall = {};
        EXPECT_EQ(said, "Focusing…");
        EXPECT_THAT(moves(), IsEmpty());
        EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    click({250, 180});
    EXPECT_EQ(moves().size(), 2U) << "input is taken again after the search";
}

TEST_F(InputDuringACall, IsDroppedWhileAZButtonWaitsAndThePanelSaysSo) {
    host.status[axisZ] = {1, 1, 1};
    std::vector<std::string> said;
    host.onCall = [this, &said](const std::string& name) {
        if (name == "TarnReadStageStatus") {
            said.push_back(panel("Info"));
            QTest::mouseClick(up(), Qt::LeftButton);
        }
    };
    QTest::mouseClick(up(), Qt::LeftButton);
    host.onCall = {};
    ASSERT_EQ(said.size(), 4U);
    EXPECT_THAT(said[1], "Waiting for Z…");
    EXPECT_EQ(said[3], "Waiting for Z…");
    EXPECT_EQ(moves().size(), 1U);
    EXPECT_THAT(panel("Info"), Not(HasSubstr("Waiting")));
}

TEST_F(InputDuringACall, IsDroppedInTheMoveDialogTheBacklashTheBoardAndTheCalibration) {
    action("mnuMove")->trigger();
    frmMove& dialog = window().standards().moveDialog();
    int presses = 0;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnLoadStageRelSecure" || name == "TarnBacklashStage" ||
            name == "TarnVideoBoardStartGrab") {
            ++presses;
            QTest::mouseClick(dialog.cmdMove, Qt::LeftButton);
            QTest::mouseClick(up(), Qt::LeftButton);
        }
    };
    QTest::mouseClick(dialog.cmdMove, Qt::LeftButton);
    EXPECT_EQ(moves().size(), 3U);
    action("mmuBckl")->trigger();
    action("mnuAcq")->trigger();
    EXPECT_EQ(moves().size(), 3U);
    EXPECT_EQ(presses, 5);
}

TEST_F(InputDuringACall, IsDroppedWhileTheBoardIsInitialisedOrShutDown) {
    action("mnuSetup")->trigger();
    SetupBoardPage& page = *window().setupDialog()->boardPage;
    std::string said;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnVideoBoardShutdown") {
            said = panel("Info");
            QTest::mouseClick(up(), Qt::LeftButton);
        }
    };
    page.cmdShut->click();
    EXPECT_EQ(said, "Shutting the board down…");
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(InputDuringACall, IsDroppedWhileTheListOfStandardsIsReadOrStored) {
    for (const char* name : {"/std/Gold.std", "/std/Pyrite.std"}) {
        host.dbObjects[name] = {1, 2, 3};
        window().standards().list().AppendStandard(name, false);
    }
    std::map<std::string, std::set<std::string>> said; // during the calls of each name
    host.onCall = [&](const std::string& name) {
        said[name].insert(panel("Info"));
        if (name == "TarnDbObjectRead" || name == "TarnRegisterSetString") {
            EXPECT_NE(QGuiApplication::overrideCursor(), nullptr) << name;
            QTest::mouseClick(up(), Qt::LeftButton);
            QTest::keyClick(QApplication::activeWindow(), Qt::Key_Escape);
        }
    };
    int opened = 0;
    QTimer::singleShot(0, &window(), [&opened] {
        auto* const dialog = qobject_cast<frmStdList*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = dialog->rows().count();
        dialog->lvwStdEntries->topLevelItem(1)->setSelected(true);
        dialog->cmdUp->click();
        dialog->accept();
    });
    action("mnuSetup")->trigger();
    window().setupDialog()->stagePage->cmdStandardSort->click();
    host.onCall = {};
    EXPECT_EQ(opened, 2);
    EXPECT_THAT(said["TarnDbObjectRead"], ElementsAre("Reading the standards…"));
    EXPECT_THAT(said["TarnRegisterSetString"], ElementsAre("Storing the standards…"));
    EXPECT_THAT(moves(), IsEmpty());
    EXPECT_THAT(panel("Info"), Not(HasSubstr("standards")));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Hands, AfterASearchThePanelSaysFromWhereToWhereZWent) {
    host.position[axisZ] = 100;
    window().UpdateStagePos();
    host.onCall = [this](const std::string& name) {
        if (name == "TarnAutoFocusExt") {
            host.position[axisZ] = 112;
        }
    };
    action("mnuFocus")->trigger();
    EXPECT_THAT(panel("Info"), HasSubstr("Z 100 -> 112"));
}

TEST_F(Hands, AfterASearchDuringAMoveThePanelDoesNotClaimWhereZCameFrom) {
    host.status[axisX] = {1};
    window().SyncStageMove(axisAll);
    host.position[axisZ] = 112;
    action("mnuFocus")->trigger();
    EXPECT_THAT(panel("Info"), testing::EndsWith("Z 112"));
    EXPECT_EQ(journal.back().what, "focus");
    EXPECT_FALSE(journal.back().from.has_value());
}

TEST_F(FocusOfTheControls, IsOnTheImageAtTheStart) {
    EXPECT_EQ(window().focusWidget(), &image());
    QTest::keyClick(&image(), Qt::Key_Space);
    QTest::keyClick(&image(), Qt::Key_Return);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(FocusOfTheControls, IsTakenByZButtonsFromTabOnly) {
    for (const auto* row : {&window().upDown().cmdUp, &window().upDown().cmdDown}) {
        for (const QToolButton* button : *row) {
            EXPECT_EQ(button->focusPolicy(), Qt::TabFocus);
        }
    }
}

TEST_F(FocusOfTheControls, EscapeInTheSetupStoresNothing) {
    action("mnuSetup")->trigger();
    frmSetup& setup = *window().setupDialog();
    setup.tsSetup->setCurrentIndex(2);
    QApplication::setActiveWindow(&setup); // the offscreen platform leaves the main window active
    TextBox* box = setup.stagePage->txtMag;
    box->setFocus();
    host.calls.clear();
    QTest::keyClick(box, Qt::Key_7);
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_TRUE(setup.isVisible());
    EXPECT_EQ(box->text().toStdString(), "400");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(setup.isVisible());
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(FocusOfTheControls, EscapeInAnUpDownBoxOfTheSetupStoresNothing) {
    action("mnuSetup")->trigger();
    frmSetup& setup = *window().setupDialog();
    setup.tsSetup->setCurrentIndex(1);
    QApplication::setActiveWindow(&setup);
    QSpinBox* box = setup.monitorPage->udCrossSize;
    box->setFocus();
    box->selectAll();
    host.calls.clear();
    QTest::keyClick(box, Qt::Key_7);
    QTest::keyClick(box, Qt::Key_Escape);
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(setup.isVisible());
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(AnOldPicture, IsReportedByAClickThatStillMovesIfThereIsNoPicture) {
    click({192 + 96, 144 + 72});
    EXPECT_EQ(moves().size(), 2U);
    EXPECT_THAT(panel("Info"), HasSubstr("The picture is old: moved by -160, -120"));
}

TEST_F(AnOldPicture, IsOneFromBeforeAMoveWithLiveOff) {
    showFrame();
    click({192 + 96, 144 + 72});
    EXPECT_THAT(panel("Info"), Not(HasSubstr("old")));
    host.position = {{axisX, -160}, {axisY, -120}};
    endMove();
    click({192 + 96, 144 + 72});
    EXPECT_THAT(panel("Info"), HasSubstr("The picture is old: moved by -160, -120"));
    showFrame();
    click({192 + 96, 144 + 72});
    EXPECT_EQ(moves().size(), 6U);
}

TEST_F(AnOldPicture, IsNotOneThatTheHostRefusedToMoveAwayFrom) {
    showFrame();
    click({192 + 96, 144 + 72});
    endMove();
    click({192 + 96, 144 + 72});
    EXPECT_THAT(panel("Info"), Not(HasSubstr("old")));
}

TEST_F(AnOldPicture, IsNotOneThatOnlyZHasLeft) {
    showFrame();
    QTest::mouseClick(up(), Qt::LeftButton);
    host.position[axisZ] = 1;
    endMove();
    click({192 + 96, 144 + 72});
    EXPECT_THAT(panel("Info"), Not(HasSubstr("old")));
}

TEST_F(AnOldPicture, IsOneThatHasNotBeenLiveForAWhile) {
    action("mnuAcq")->trigger();
    showFrame();
    for (int i = 0; i < 40 && panel("Info").find("Not live") == std::string::npos; ++i) {
        QTest::qWait(50);
    }
    click({192 + 96, 144 + 72});
    EXPECT_THAT(panel("Info"), HasSubstr("The picture is old: moved by -160, -120"));
}

TEST_F(ADistanceNoStageGoes, IsSentReportedAsOutOfReachAndDoesNotBlockLaterMoves) {
    action("mnuMove")->trigger();
    frmMove& dialog = window().standards().moveDialog();
    for (int i = 0; i < 3; ++i) {
        host.calls.clear();
        dialog.txtMove[0]->setText(QStringLiteral("2147483000"));
        QTest::mouseClick(dialog.cmdMove, Qt::LeftButton);
        EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 2147483008)",
                                         "TarnLoadStageRelSecure(2, 0)", "TarnLoadStageRelSecure(3, 0)"));
        endMove();
        EXPECT_THAT(panel("Info"), HasSubstr("X 2147483000 is out of reach"));
    }
    host.calls.clear();
    dialog.txtMove[0]->setText(QStringLiteral("1000"));
    QTest::mouseClick(dialog.cmdMove, Qt::LeftButton);
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 1000)", "TarnLoadStageRelSecure(2, 0)",
                                     "TarnLoadStageRelSecure(3, 0)"));
    endMove();
    EXPECT_THAT(panel("Info"), Not(HasSubstr("reach")))
        << "a usual move that the host refuses is not reported";
}
