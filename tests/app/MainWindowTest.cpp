#include "display/TwipsGeometry.h"
#include "setup/frmSetup.h"
#include "tests/support/UsersHand.h"
#include "tests/support/WindowRig.h"

#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QWheelEvent>

#include <limits>

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct MainWindow : WindowRig {
    void SetUp() override {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    std::vector<std::string> moves() const { return host.callsOf("TarnLoadStageRelSecure"); }
    std::vector<std::string> stageCommands() const {
        std::vector<std::string> commands;
        for (const char* name : {"TarnLoadStageRelSecure", "TarnLoadStageAbs", "TarnStartStage",
                                 "TarnBacklashStage", "TarnAutoFocusExt"}) {
            const std::vector<std::string> calls = host.callsOf(name);
            commands.insert(commands.end(), calls.begin(), calls.end());
        }
        return commands;
    }
    // Closes the message box that the next action opens, and tells its text.
    void expectMessageBox(QString& text) {
        QTimer::singleShot(0, &window(), [&text] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            text = box->text();
            box->accept();
        });
    }
};

using MainMenuBar = MainWindow;
using ClickOnTheImage = MainWindow;
using ZButtons = MainWindow;
using LeavingTheProgram = MainWindow;
using MonitorGeometry = MainWindow;

} // namespace

TEST_F(MainMenuBar, HasEveryEntryWithItsCaptionAndShortcut) {
    const std::tuple<const char*, const char*, const char*> entries[]{
        {"mmuOpen", "&Open", "Ctrl+O"},
        {"mnuSaveAs", "&Save As...", "Ctrl+S"},
        {"mnuExit", "&Exit", "Ctrl+Q"},
        {"mnuAcq", "&Live", "F7"},
        {"mnuZoom0", "&Normal (1:1)", ""},
        {"mnuZoom1", "&Zoom out (1:2)", ""},
        {"mnuCross", "&Cross", "F9"},
        {"mnuGrid", "&Grid", "F5"},
        {"mnuMicroMarker", "&MicroMarker", ""},
        {"mnuMove", "&Move...", "F8"},
        {"mmuBckl", "&Backlash", "F6"},
        {"mnuStandard", "&Standard", ""},
        {"mnuFocus", "&Autofocus", "F4"},
        {"Picture", "&Picture", "F3"},
        {"mnuSetup", "Se&tup...", ""},
        {"mnuAbout", "&About...", ""},
        {"mnuManual", "&Manual", "F1"},
        {"mnuKeys", "&Keys", ""},
        {"mnuWhatsThis", "&What's This?", "Shift+F1"},
        {"mnuPackReport", "&Pack Report...", ""},
    };
    for (const auto& [name, caption, shortcut] : entries) {
        EXPECT_EQ(action(name)->text().toStdString(), caption);
        EXPECT_EQ(action(name)->shortcut().toString().toStdString(), shortcut) << name;
    }
    EXPECT_TRUE(action("mnuSep")->isSeparator());
    QStringList titles;
    for (const QAction* entry : window().menuBar()->actions()) {
        titles << entry->text();
    }
    EXPECT_EQ(titles.join(u'|').toStdString(), "&File|&View|&Stage|Se&tup...|&About...|&Help");
}

TEST_F(MainMenuBar, TheStandardItemAndTheStandardButtonDoNothing) {
    action("mnuStandard")->trigger();
    toolbar("Standard");
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_EQ(processEnds, 0);
}

TEST_F(MainMenuBar, TheLiveCommandHasTheSameEffectFromItsItemItsShortcutAndItsToolbarKey) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuAcq")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_F7); },
        [this] { toolbar("Acq"); },
    };
    for (const auto& way : ways) {
        host.calls.clear();
        way();
        EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(1, 1)"));
        EXPECT_TRUE(action("mnuAcq")->isChecked());
        EXPECT_TRUE(window().tbMain->value(QStringLiteral("Acq")));
        host.calls.clear();
        way();
        EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardHaltGrab()"));
        EXPECT_FALSE(action("mnuAcq")->isChecked());
        EXPECT_FALSE(window().tbMain->value(QStringLiteral("Acq")));
    }
}

TEST_F(MainMenuBar, TheZoomHasTheSameEffectFromBothItsItemsAndItsToolbarKey) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuZoom0")->trigger(); },
        [this] { action("mnuZoom1")->trigger(); },
        [this] { toolbar("Zoom"); },
    };
    for (const auto& way : ways) {
        way();
        EXPECT_EQ(window().fields().GrabZoom, 1);
        EXPECT_TRUE(action("mnuZoom0")->isChecked());
        EXPECT_FALSE(action("mnuZoom1")->isChecked());
        EXPECT_TRUE(window().tbMain->value(QStringLiteral("Zoom")));
        EXPECT_EQ(host.displayRequests.back().zoom, -1);
        way();
        EXPECT_EQ(window().fields().GrabZoom, 2);
        EXPECT_FALSE(action("mnuZoom0")->isChecked());
        EXPECT_TRUE(action("mnuZoom1")->isChecked());
        EXPECT_FALSE(window().tbMain->value(QStringLiteral("Zoom")));
    }
}

TEST_F(MainMenuBar, ARefusedGrabLetsTheLiveButtonSpringBack) {
    host.startGrabResult = 0;
    toolbar("Acq");
    EXPECT_FALSE(window().tbMain->value(QStringLiteral("Acq")));
    EXPECT_FALSE(action("mnuAcq")->isChecked());
}

TEST_F(MainMenuBar, BacklashIsLoadedStartedAndWatchedOnAllAxes) {
    host.status[axisX] = {1};
    action("mmuBckl")->trigger();
    EXPECT_THAT(host.calls, ElementsAre("TarnBacklashStage(0)", "TarnStartStage(0)"));
    EXPECT_TRUE(window().tStageMove->isActive());
}

TEST_F(MainMenuBar, AutofocusAsksTheHostRestartsTheGrabOnceAndShowsThePosition) {
    action("mnuAcq")->trigger();
    for (const auto& way : {std::function<void()>([this] { action("mnuFocus")->trigger(); }),
                            std::function<void()>([this] { QTest::keyClick(&window(), Qt::Key_F4); }),
                            std::function<void()>([this] { toolbar("Focus"); })}) {
        host.calls.clear();
        way();
        EXPECT_THAT(host.calls,
                    ElementsAre("TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")",
                                "TarnAutoFocusExt(-1)", "TarnReadStagePos(1)", "TarnReadStagePos(2)",
                                "TarnReadStagePos(3)", "TarnVideoBoardHaltGrab()",
                                "TarnVideoBoardStartGrab(1, 1)", "TarnReadStagePos(1)", "TarnReadStagePos(2)",
                                "TarnReadStagePos(3)"));
        EXPECT_TRUE(window().cxvbBoard().IsGrabbing());
    }
}

TEST_F(MainMenuBar, AutofocusDoesNothingAtAllInVgaMode) {
    host.settings["TARN|tn_video|VGAMode"] = "1";
    const std::string before = panel("Info");
    action("mnuFocus")->trigger();
    EXPECT_THAT(host.calls, ElementsAre("TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")"));
    EXPECT_EQ(panel("Info"), before);
}

TEST_F(ClickOnTheImage, BringsThePointToTheCentreByTwoRelativeMovesAndAWatchOnAllAxes) {
    // 384 x 288 pixels show 640 x 480 units.
    click({192 + 96, 144 + 72});
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, -160)", "TarnLoadStageRelSecure(2, -120)"));
    EXPECT_EQ(host.calls.back(), "TarnStartStage(0)");
    EXPECT_TRUE(window().tStageMove->isActive());
}

TEST_F(ClickOnTheImage, ObeysTheInversionsOfTheMoment) {
    host.settings["Ocuva.INI|Configuration|MoveXInverse"] = "1";
    click({192 + 96, 144 + 72});
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 160)", "TarnLoadStageRelSecure(2, -120)"));
}

TEST_F(ClickOnTheImage, AsksMagnificationThenFactorsThenViewBeforeAnyMove) {
    click({10, 10});
    ASSERT_GE(host.calls.size(), 11U);
    EXPECT_EQ(host.calls[0], "TarnRegisterGetInt(\"tn_video\", \"VideoMag\", 400, \"TARN.INI\")");
    EXPECT_EQ(host.calls[1], "TarnGetVideoMag100Factors()");
    EXPECT_EQ(host.calls[2], "TarnRegisterGetInt(\"Configuration\", \"LiveImage\", 0, \"Ocuva.INI\")");
    EXPECT_EQ(host.calls[9].rfind("TarnLoadStageRelSecure(1, ", 0), 0U);
    EXPECT_EQ(host.calls[10].rfind("TarnLoadStageRelSecure(2, ", 0), 0U);
}

TEST_F(ClickOnTheImage, UsesTheDisplaysOwnSizeAfterTheWindowWasResized) {
    window().resize(window().width() + 192, window().height());
    QCoreApplication::processEvents();
    ASSERT_EQ(window().panels().milDisp->width(), 576);
    host.calls.clear();
    click({288 + 144, 144});
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, -160)", "TarnLoadStageRelSecure(2, 0)"));
}

TEST_F(ClickOnTheImage, WithOtherButtonsOrDraggedOffTheImageMovesNothing) {
    click({50, 50}, Qt::RightButton);
    click({50, 50}, Qt::MiddleButton);
    QWidget* display = window().panels().milDisp;
    QTest::mousePress(display, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    QTest::mouseRelease(display, Qt::LeftButton, Qt::NoModifier, QPoint(-20, 50));
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(ClickOnTheImage, InVgaModeMovesNothingByItself) {
    host.settings["TARN|tn_video|VGAMode"] = "1";
    start();
    host.calls.clear();
    QTimer::singleShot(0, &window(), [] { QApplication::activeModalWidget()->close(); });
    click({50, 50});
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(ClickOnTheImage, TakesTheVgaModeOfTheStartNotOfTheMoment) {
    host.settings["TARN|tn_video|VGAMode"] = "1";
    click({50, 50});
    EXPECT_EQ(moves().size(), 2U);
}

TEST_F(ClickOnTheImage, ThatCannotBeComputedIsReportedAndNothingMoves) {
    // A field so wide that the middle is -2^31 units away: its sign cannot be changed.
    host.settings["TARN.INI|tn_video|VideoMag"] = "100";
    host.magFactorX = 4294967296.0F;
    QString text;
    expectMessageBox(text);
    click({0, 144});
    EXPECT_THAT(moves(), IsEmpty());
    EXPECT_TRUE(text.contains(QStringLiteral("Overflow"))) << text.toStdString();
    EXPECT_THAT(host.logLines, Contains(testing::HasSubstr("Overflow")));
}

TEST_F(ZButtons, StepZByTheirDistances) {
    const char* steps[]{"1", "2", "5", "10"};
    for (std::size_t i = 0; i < 4; ++i) {
        host.calls.clear();
        QTest::mouseClick(window().upDown().cmdUp.at(i), Qt::LeftButton);
        EXPECT_THAT(host.calls, ElementsAre("TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")",
                                            "TarnReadStageStatus(3, 0)",
                                            std::string("TarnLoadStageRelSecure(3, ") + steps[i] + ")",
                                            "TarnStartStage(3)"));
        host.calls.clear();
        QTest::mouseClick(window().upDown().cmdDown.at(i), Qt::LeftButton);
        EXPECT_EQ(moves(),
                  std::vector<std::string>{std::string("TarnLoadStageRelSecure(3, -") + steps[i] + ")"});
    }
}

TEST_F(ZButtons, DoNothingInVgaMode) {
    host.settings["TARN|tn_video|VGAMode"] = "-1";
    const std::string before = panel("Info");
    for (QToolButton* button : window().upDown().cmdUp) {
        QTest::mouseClick(button, Qt::LeftButton);
    }
    for (QToolButton* button : window().upDown().cmdDown) {
        QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_THAT(host.calls, testing::Each("TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")"));
    EXPECT_FALSE(window().tStageMove->isActive());
    EXPECT_EQ(panel("Info"), before);
}

TEST_F(MainWindow, MovesNothingByAnyOtherKey) {
    // Digits, letters, arrows and the like: there is nothing that they could mean.
    QTest::keyClicks(&window(), QStringLiteral("0123456789abcdefghijklmnopqrstuvwxyz+-*/.,"));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
                              Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Delete, Qt::Key_Escape}) {
        QTest::keyClick(&window(), key);
    }
    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window().panels().milDisp, &wheel);
    EXPECT_THAT(stageCommands(), IsEmpty());
}

TEST_F(MainWindow, HasNoZButtonUnderTheSpaceBarWhenItOpens) {
    QApplication::setActiveWindow(&window());
    const QWidget* focused = window().focusWidget();
    EXPECT_FALSE(focused != nullptr && window().upDown().frUpDown->isAncestorOf(focused));
}

TEST_F(MainWindow, WatchesAMoveToItsEndAndGivesTheFrameItsColourBack) {
    const QColor before = window().panels().frMonitor->fillColour();
    host.status[axisX] = {1, 1, 1};
    click({50, 50});
    bool wasOrange = false;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        wasOrange = wasOrange || window().panels().frMonitor->fillColour() == QColor(255, 192, 0);
        return !window().tStageMove->isActive();
    }));
    EXPECT_TRUE(wasOrange);
    EXPECT_EQ(window().panels().frMonitor->fillColour(), before);
}

TEST_F(MainWindow, AClickOnAPanelOfTheStatusBarReadsTheStageAgain) {
    host.position = {{axisX, -12}, {axisY, 34567}, {axisZ, 8}};
    QTest::mouseClick(window().sbMain->panel(QStringLiteral("X")), Qt::LeftButton);
    EXPECT_EQ(panel("X"), "-12");
    EXPECT_EQ(panel("Y"), "34567");
    EXPECT_EQ(panel("Z"), "8");
    EXPECT_THAT(host.calls, ElementsAre("TarnReadStagePos(1)", "TarnReadStagePos(2)", "TarnReadStagePos(3)"));
}

TEST_F(MainWindow, TheLetterOfAPanelOfTheStatusBarIsPartOfThePanel) {
    host.position = {{axisX, 12}, {axisY, 0}, {axisZ, 0}};
    StatusPanel* const panelX = window().sbMain->panel(QStringLiteral("X"));
    const QPoint onLetter(10, panelX->height() / 2);
    QTest::mouseClick(panelX, Qt::LeftButton, Qt::NoModifier, onLetter);
    EXPECT_EQ(panel("X"), "12");
    EXPECT_EQ(window().childAt(panelX->mapTo(&window(), onLetter)), panelX);
    QTest::mouseDClick(panelX, Qt::LeftButton, Qt::NoModifier, onLetter);
    EXPECT_TRUE(window().standards().moveDialog().isVisible());
}

TEST_F(MainWindow, APanelOfThePositionShowsItsLetterAndHasRoomForTheLongestPosition) {
    StatusPanel* const panelX = window().sbMain->panel(QStringLiteral("X"));
    const auto left = [panelX] {
        return panelX->grab({0, 0, panelX->width() / 4, panelX->height()}).toImage();
    };
    panelX->setText(QString());
    const QImage letter = left();
    panelX->setText(QStringLiteral("-2147483"));
    EXPECT_EQ(left(), letter); // the number leaves the letter alone
    panelX->setText(QString());
    panelX->setCaption(QString());
    EXPECT_NE(left(), letter);
}

TEST_F(MainWindow, APanelOfTheStatusBarCanBeUsedWithTheKeyboard) {
    host.position = {{axisX, 5}};
    StatusPanel* const panelY = window().sbMain->panel(QStringLiteral("Y"));
    EXPECT_EQ(panelY->focusPolicy(), Qt::TabFocus);
    QTest::keyClick(panelY, Qt::Key_Space);
    EXPECT_EQ(panel("X"), "5");
    EXPECT_FALSE(window().standards().moveDialog().isVisible());
    QTest::keyClick(panelY, Qt::Key_Return);
    EXPECT_TRUE(window().standards().moveDialog().isVisible());
    host.pixelCount = 1;
    host.pixelSum = 42;
    QTest::keyClick(window().sbMain->panel(QStringLiteral("Info")), Qt::Key_Space);
    EXPECT_THAT(panel("Info"), testing::HasSubstr("mean 42.0"));
}

TEST_F(MainWindow, ItsPanelsAndItsMonitorFrameHaveNamesForScreenReaders) {
    EXPECT_EQ(window().sbMain->panel(QStringLiteral("X"))->toolTip(),
              QStringLiteral("Stage X current position"));
    EXPECT_EQ(window().sbMain->panel(QStringLiteral("Y"))->toolTip(),
              QStringLiteral("Stage Y current position"));
    EXPECT_EQ(window().sbMain->panel(QStringLiteral("Z"))->toolTip(),
              QStringLiteral("Stage Z current position"));
    EXPECT_EQ(window().panels().frMonitor->toolTip(),
              QStringLiteral("Click to move the stage to the current position"));
    EXPECT_EQ(window().sbMain->panel(QStringLiteral("nothing")), nullptr);
}

TEST_F(MainWindow, ItsControlsAreFoundUnderTheirNames) {
    for (const char* name : {"tbMain", "sbMain", "frMonitor", "frImage", "milDisp", "frUpDown",
                             "frMicroMarker", "cmdUp0", "cmdUp3", "cmdDown0", "cmdDown3"}) {
        EXPECT_NE(child<QWidget>(name), nullptr) << name;
    }
    for (const char* name : {"tServerCheckIdle", "tStageMove", "tInitTBMain"}) {
        EXPECT_NE(child<QTimer>(name), nullptr) << name;
    }
}

TEST_F(MonitorGeometry, TheWindowFitsRoundTheReducedImageAtTheStart) {
    EXPECT_EQ(window().panels().milDisp->geometry(), QRect(2, 8, 384, 288));
    const QRect monitor = window().panels().frMonitor->geometry();
    EXPECT_EQ(monitor.width(), 384 + 54);
    EXPECT_EQ(window().panels().frImage->geometry(), QRect(24, 24, 390, 299));
    const QRect upDown = window().upDown().frUpDown->geometry();
    EXPECT_EQ(upDown.top(), monitor.top());
    EXPECT_EQ(upDown.height(), monitor.height());
    EXPECT_EQ(monitor.left(), window().width() - upDown.right() - 1);
    EXPECT_EQ(upDown.left() - monitor.right() - 1, monitor.left());
}

TEST_F(MonitorGeometry, TheWindowComesBackWhereTheUserMovedItInTheSizeOfTheImage) {
    const QSize size = window().size();
    dragWindow(window(), {QPoint(33, 44), size});
    action("mnuZoom0")->trigger(); // another size, but not of the user's choice
    window().close();
    start();
    EXPECT_EQ(window().pos(), QPoint(33, 44));
    EXPECT_EQ(window().size(), size);
}

TEST_F(MonitorGeometry, TheWindowComesBackInTheSizeThatTheUserGaveIt) {
    const QSize size = window().size();
    dragWindow(window(), {QPoint(33, 44), size + QSize(50, 50)});
    const QRect image = window().panels().milDisp->geometry();
    window().close();
    host.calls.clear();
    start();
    EXPECT_EQ(window().size(), size + QSize(50, 50));
    EXPECT_EQ(window().panels().milDisp->geometry(), image);
    EXPECT_EQ(window().fields().InitImageSizeX, 384 * 15); // a size like any other that the user gives
}

TEST_F(MonitorGeometry, ARememberedSizeDoesNotChangeTheOrderOfTheStart) {
    const QSize size = window().size();
    dragWindow(window(), {QPoint(33, 44), size + QSize(50, 50)});
    window().close();
    emptyRegistry();
    host.calls.clear();
    start();
    // Without what was passed: window handles are others at each start.
    const auto names = [this] {
        std::vector<std::string> functions;
        for (const std::string& call : host.calls) {
            functions.push_back(call.substr(0, call.find('(')));
        }
        return functions;
    };
    const std::vector<std::string> usual = names();
    window().close();
    WindowPlaceStore().save(QStringLiteral("frmOcuva"), {QPoint(33, 44), size + QSize(50, 50)});
    host.calls.clear();
    start();
    std::vector<std::string> now = names();
    ASSERT_GE(now.size(), usual.size());
    now.resize(usual.size());
    EXPECT_EQ(now, usual);
}

TEST_F(MonitorGeometry, TheWindowComesBackMaximised) {
    window().showMaximized();
    QCoreApplication::processEvents();
    window().close();
    start();
    EXPECT_TRUE(window().isMaximized());
    window().showNormal();
    QCoreApplication::processEvents();
    window().close();
    start();
    EXPECT_FALSE(window().isMaximized());
}

TEST_F(MonitorGeometry, AServerCopyThatIsWokenIsNotMaximised) {
    window().showMaximized();
    QCoreApplication::processEvents();
    window().close();
    start("-server");
    host.deliver("OCUVA_WAKEUP");
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(window().isMaximized());
}

TEST_F(MonitorGeometry, ZoomingInAndOutBringsTheWindowBackToItsSize) {
    const QSize before = window().size();
    action("mnuZoom0")->trigger();
    EXPECT_EQ(window().panels().milDisp->size(), QSize(768, 576));
    EXPECT_EQ(window().size(), before + QSize(384, 288));
    action("mnuZoom0")->trigger();
    EXPECT_EQ(window().size(), before);
}

TEST_F(MonitorGeometry, MaximisedTheWindowKeepsItsSizeOnAZoomChange) {
    window().showMaximized();
    QCoreApplication::processEvents();
    const QSize maximised = window().size();
    action("mnuZoom0")->trigger();
    EXPECT_EQ(window().size(), maximised);
    EXPECT_EQ(window().panels().milDisp->size(), QSize(768, 576));
}

TEST_F(MonitorGeometry, TheDisplayFollowsTheWindowAndStopsAtTheSmallestImage) {
    window().resize(window().width() + 100, window().height() + 50);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().panels().milDisp->size(), QSize(484, 338));
    window().resize(10, 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().panels().milDisp->size(), QSize(24, 24));
}

TEST_F(LeavingTheProgram, ShutsTheBoardDownAndEndsTheProcess) {
    action("mnuAcq")->trigger();
    host.calls.clear();
    action("mnuExit")->trigger();
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardHaltGrab()", "TarnVideoBoardShutdown()"));
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(processEnds, 1);
}

TEST_F(LeavingTheProgram, ByTheWindowsFrameBehavesExactlyLikeTheMenu) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuExit")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier); },
        [this] { window().close(); },
    };
    for (const auto& way : ways) {
        start();
        action("mnuAcq")->trigger();
        action("mnuSetup")->trigger();
        action("mnuMove")->trigger();
        QApplication::setActiveWindow(&window());
        processEnds = 0;
        host.calls.clear();
        way();
        EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardHaltGrab()", "TarnVideoBoardShutdown()"));
        EXPECT_FALSE(window().setupDialog()->isVisible());
        EXPECT_FALSE(window().standards().moveDialog().isVisible());
        EXPECT_FALSE(window().isVisible());
        EXPECT_EQ(processEnds, 1);
    }
}

TEST_F(LeavingTheProgram, HappensOnlyOnce) {
    action("mnuExit")->trigger();
    action("mnuExit")->trigger();
    window().close();
    EXPECT_EQ(processEnds, 1);
}

TEST_F(LeavingTheProgram, ASleepingServerLeavesTheSameWay) {
    host.deliver("OCUVA_SLEEP");
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(window().tServerCheckIdle->isActive());
    host.calls.clear();
    window().tServerCheckIdle->setInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return processEnds > 0; }));
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardShutdown()"));
    EXPECT_EQ(processEnds, 1);
}
