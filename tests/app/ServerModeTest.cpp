#include "controls/HostMessageBox.h"
#include "setup/frmSetup.h"
#include "tests/support/WindowRig.h"

#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include <stdexcept>

using namespace ocuva;
using testing::Contains;
using testing::HasSubstr;

namespace {

struct ServerMode : WindowRig {
    int boxes = 0;
    QTimer boxWatch; // closes what a test must not open, so that a failure does not hang

    ServerMode() {
        QObject::connect(&boxWatch, &QTimer::timeout, &boxWatch, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ++boxes;
                box->reject();
            }
        });
        boxWatch.start(0);
    }
    void startServer() {
        ASSERT_TRUE(start("-server"));
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    static std::vector<std::string> windowsOnScreen() {
        std::vector<std::string> shown;
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible()) {
                shown.push_back(widget->objectName().toStdString());
            }
        }
        return shown;
    }
    // The host's message comes while the program waits in whatever the trigger opens.
    void sleepWhile(const std::function<void()>& waiting) {
        boxWatch.stop();
        QTimer::singleShot(0, &window(), [this] {
            EXPECT_GT(windowsOnScreen().size(), 1u);
            host.deliver("OCUVA_SLEEP");
        });
        waiting();
        EXPECT_THAT(windowsOnScreen(), testing::IsEmpty());
    }
    void failingAt(const char* function) {
        host.onCall = [function](const std::string& name) {
            if (name == function) {
                throw std::runtime_error("no use");
            }
        };
    }
};

} // namespace

TEST_F(ServerMode, FocusesWithoutShowingOrWakingTheWindow) {
    startServer();
    host.deliver("OCUVA_AUTOFOCUS");
    EXPECT_THAT(host.calls, Contains("TarnAutoFocusExt(-1)"));
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(inter->flags().serverMode);
}

TEST_F(ServerMode, SleepHidesTheWindowAndWakeBringsItBackInItsNormalState) {
    start();
    host.deliver("OCUVA_SLEEP");
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(window().isMinimized());
    EXPECT_EQ(window().windowHandle()->windowStates() & Qt::WindowMinimized, Qt::WindowNoState)
        << "a window system that minimises it late would undo a wake";
    EXPECT_TRUE(inter->flags().sleeping);
    host.deliver("OCUVA_WAKEUP");
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowState() & ~Qt::WindowActive, Qt::WindowNoState);
    EXPECT_FALSE(window().tServerCheckIdle->isActive());
}

TEST_F(ServerMode, WakeBringsAMaximisedWindowBackInItsNormalState) {
    start();
    window().showMaximized();
    QCoreApplication::processEvents();
    host.deliver("OCUVA_SLEEP");
    host.deliver("OCUVA_WAKEUP");
    EXPECT_EQ(window().windowState() & ~Qt::WindowActive, Qt::WindowNoState);
}

TEST_F(ServerMode, WakeShowsAWindowThatWasNeverShown) {
    startServer();
    host.deliver("OCUVA_WAKEUP");
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().panels().milDisp->size(), QSize(384, 288));
}

TEST_F(ServerMode, SleepTakesTheOpenDialogsAlongAndWakeBringsThemBackWithWhatWasTyped) {
    start();
    for (const char* command : {"mnuSetup", "mnuMove", "Picture", "mnuManual"}) {
        action(command)->trigger();
    }
    QLineEdit& box = *window().pictureOnStage().dialog().FramePoint->box(0, PointField::XI);
    box.setText(QStringLiteral("1234"));
    const std::vector<std::string> before = windowsOnScreen();
    ASSERT_EQ(before.size(), 5u);
    host.deliver("OCUVA_SLEEP");
    EXPECT_THAT(windowsOnScreen(), testing::IsEmpty());
    host.deliver("OCUVA_SLEEP");
    host.deliver("OCUVA_WAKEUP");
    EXPECT_THAT(windowsOnScreen(), testing::UnorderedElementsAreArray(before));
    EXPECT_EQ(box.text(), QStringLiteral("1234"));
}

TEST_F(ServerMode, AWakeBringsBackOnlyWhatTheSleepHid) {
    start();
    action("mnuMove")->trigger();
    window().standards().moveDialog().close();
    host.deliver("OCUVA_SLEEP");
    host.deliver("OCUVA_WAKEUP");
    EXPECT_THAT(windowsOnScreen(), testing::ElementsAre("frmOcuva"));
}

TEST_F(ServerMode, SleepWaitsForNoAnswerToABoxThatIsOpen) {
    start();
    QCoreApplication::processEvents();
    sleepWhile([this] { action("mnuAbout")->trigger(); });
    host.deliver("OCUVA_WAKEUP");
    EXPECT_THAT(windowsOnScreen(), testing::ElementsAre("frmOcuva"));
    sleepWhile([] { EXPECT_EQ(showHostMessageBox("text", "title", TARN_BOX_YES_NO), TARN_ANSWER_NO); });
}

TEST_F(ServerMode, SleepWaitsForNoListUnderAnotherDialogAndNoMenu) {
    start();
    action("mnuSetup")->trigger();
    auto* sort = window().setupDialog()->findChild<QPushButton*>(QStringLiteral("cmdStandardSort"));
    ASSERT_NE(sort, nullptr);
    sleepWhile([sort] { sort->click(); });
    host.deliver("OCUVA_WAKEUP");
    EXPECT_THAT(windowsOnScreen(), testing::UnorderedElementsAre("frmOcuva", "frmSetup"));
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    sleepWhile([&menu] { menu.exec(QPoint(10, 10)); });
}

TEST_F(ServerMode, ASecondSleepDoesNotRestartTheMinute) {
    start();
    host.deliver("OCUVA_SLEEP");
    const int timer = window().tServerCheckIdle->timerId();
    host.deliver("OCUVA_SLEEP");
    EXPECT_EQ(window().tServerCheckIdle->timerId(), timer)
        << "a timer that is started again has another number";
}

TEST_F(ServerMode, TheIdleMinuteIsAsLongAsTheCompositionSays) {
    inter = std::make_unique<modInter>(StartContext{host, windows, automation, "-server",
                                                    [] { return false; }, QStringLiteral("Ocuva (test)"),
                                                    [this] { ++processEnds; }, 25});
    ASSERT_TRUE(inter->Main());
    EXPECT_EQ(window().tServerCheckIdle->interval(), 25);
}

TEST_F(ServerMode, ASleepingCopyEndsAfterOneMinuteMoreThanItsIdleCount) {
    start("-server");
    window().tServerCheckIdle->setInterval(1);
    host.settings["Ocuva.INI|Server|ServerIdleCount"] = "2";
    int ticks = 0;
    QObject::connect(window().tServerCheckIdle, &QTimer::timeout, &window(), [&ticks] { ++ticks; });
    host.deliver("OCUVA_SLEEP");
    host.deliver("OCUVA_AUTOFOCUS");
    EXPECT_TRUE(QTest::qWaitFor([this] { return processEnds > 0; }));
    EXPECT_EQ(ticks, 3);
    EXPECT_THAT(host.calls.back(), HasSubstr("TarnVideoBoardShutdown"));
}

TEST_F(ServerMode, AFailingFocusIsLoggedOpensNoBoxAndStillStartsTheCountdown) {
    startServer();
    host.settings["Ocuva.INI|Server|ServerIdleCount"] = "7";
    host.deliver("OCUVA_SLEEP");
    failingAt("TarnAutoFocusExt");
    host.deliver("OCUVA_AUTOFOCUS");
    host.onCall = {};
    EXPECT_THAT(host.logLines, Contains("Error: no use\n"));
    EXPECT_THAT(host.calls, Contains(HasSubstr("ServerIdleCount")));
    EXPECT_TRUE(window().tServerCheckIdle->isActive());
    EXPECT_EQ(boxes, 0);
}

TEST_F(ServerMode, AFailureOnTheHostsBehalfOpensNoBoxEvenOverAVisibleWindow) {
    start();
    QCoreApplication::processEvents();
    failingAt("TarnAutoFocusExt");
    host.deliver("OCUVA_AUTOFOCUS");
    failingAt("Send");
    host.deliver("OCUVA_IS_SERVER_UP");
    host.onCall = {};
    EXPECT_EQ(boxes, 0);
    EXPECT_THAT(host.logLines, Contains("Error: no use\n").Times(2));
}

TEST_F(ServerMode, AnErrorBehindAHiddenWindowGoesToTheLogAlone) {
    start();
    host.deliver("OCUVA_SLEEP");
    failingAt("TarnBacklashStage");
    action("mmuBckl")->trigger();
    host.onCall = {};
    EXPECT_EQ(boxes, 0);
    EXPECT_THAT(host.logLines, Contains("Error: no use\n"));
}

TEST_F(ServerMode, AHostsMessageBoxDoesNotOpenWhileNoWindowIsShown) {
    startServer();
    EXPECT_EQ(showHostMessageBox("text", "title", TARN_BOX_OK), TARN_ANSWER_OK);
    EXPECT_EQ(showHostMessageBox("text", "title", TARN_BOX_OK_CANCEL | TARN_BOX_CRITICAL),
              TARN_ANSWER_CANCEL);
    EXPECT_EQ(showHostMessageBox("text", "title", TARN_BOX_YES_NO), TARN_ANSWER_NO);
    EXPECT_EQ(boxes, 0);
}

TEST_F(ServerMode, AHostsMessageBoxOpensOverAVisibleWindow) {
    start();
    QCoreApplication::processEvents();
    EXPECT_EQ(showHostMessageBox("text", "title", TARN_BOX_OK_CANCEL), TARN_ANSWER_CANCEL);
    EXPECT_EQ(boxes, 1);
}
