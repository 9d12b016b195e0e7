#include "tests/support/WindowRig.h"

#include <QPushButton>
#include <QTimer>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Start = WindowRig;

// Writes down each window that comes on the screen, be it for a moment.
struct ShownWindows : QObject {
    std::vector<std::string> names;

    ShownWindows() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && widget != nullptr && widget->isWindow()) {
            names.push_back(widget->objectName().toStdString());
        }
        return false;
    }
};

// The names of the calls, without what was passed.
std::vector<std::string> names(const std::vector<std::string>& calls) {
    std::vector<std::string> result;
    result.reserve(calls.size());
    for (const std::string& call : calls) {
        result.push_back(call.substr(0, call.find('(')));
    }
    return result;
}

} // namespace

TEST_F(Start, ReadsTheViewBeforeTheWindowIsLoadedAndLoadsItInItsOrder) {
    ASSERT_TRUE(start());
    const std::vector<std::string> calls = names(host.calls);
    ASSERT_GE(calls.size(), 16U);
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(calls[i], "TarnRegisterGetInt");
    }
    const std::vector<std::string> load(calls.begin() + 7, calls.begin() + 12);
    EXPECT_THAT(load, ElementsAre("TarnSetVideoBoardType", "TarnVideoBoardInit", "TarnVideoBufferAlloc",
                                  "TarnVideoGetBufferDesc", "TarnVideoBoardFunction"));
    const auto at = [&host = host](const std::string& call) {
        return std::find(host.calls.begin(), host.calls.end(), call) - host.calls.begin();
    };
    const auto vgaMode = at("TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")");
    const auto subscription = at("Subscribe(\"DST_APP=TN_OCUVA_SERVER\")");
    EXPECT_EQ(host.calls[7], "TarnSetVideoBoardType(1)");
    EXPECT_LT(at("TarnReadStagePos(1)"), vgaMode);
    EXPECT_LT(vgaMode, subscription);
    EXPECT_LT(subscription, static_cast<std::ptrdiff_t>(host.calls.size()));
}

TEST_F(Start, HandsTheDisplayToABoardOfTypeOneAfterTheLoad) {
    start();
    ASSERT_EQ(host.displayRequests.size(), 2U);
    EXPECT_EQ(host.displayRequests[1].windowHandle, window().panels().milDisp->hWnd());
    EXPECT_EQ(host.displayRequests[1].zoom, -2);
    EXPECT_EQ(host.displayRequests[1].fullSize, 0);
}

TEST_F(Start, DoesNotHandTheDisplayToABoardOfTypeZero) {
    host.boardType = 0;
    host.results["TarnVideoGetCurrentBoardType"] = 0;
    start();
    EXPECT_EQ(host.displayRequests.size(), 1U);
}

TEST_F(Start, ShowsTheMainWindowAndTakesTheSplashAway) {
    start();
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(inter->splash().isVisible());
    EXPECT_TRUE(inter->flags().startupFinished);
}

TEST_F(Start, ShowsTheSplashAndThenTheMainWindow) {
    const ShownWindows shown;
    start();
    EXPECT_THAT(shown.names, ElementsAre("frmSplash", "frmOcuva"));
}

TEST_F(Start, InServerModeNeitherSplashNorMainWindowAppearsAndMessagesAreAnswered) {
    const ShownWindows shown;
    start("-server");
    QCoreApplication::processEvents();
    EXPECT_THAT(shown.names, IsEmpty());
    host.deliver("OCUVA_IS_SERVER_UP");
    ASSERT_EQ(host.notifier->sends.size(), 1U);
    EXPECT_EQ(host.notifier->sends[0].strId, "OCUVA_SERVER_IS_UP");
    host.deliver("OCUVA_WAKEUP");
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Start, ASecondCopyWakesTheFirstAndMakesNoWindow) {
    anotherCopy = true;
    EXPECT_FALSE(start());
    EXPECT_THAT(host.calls, ElementsAre("TarnOcuvaSendMsgByName(\"OCUVA_WakeUp\")"));
}

TEST_F(Start, ASecondCopyStartedForTheHostEndsWithoutWakingTheFirst) {
    anotherCopy = true;
    EXPECT_FALSE(start("-server"));
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(Start, AClientRunsWhileAnotherCopyRuns) {
    anotherCopy = true;
    EXPECT_TRUE(start("-client"));
    EXPECT_TRUE(window().isVisible());
    EXPECT_THAT(host.messagesByName, IsEmpty());
}

TEST_F(Start, AnyNonZeroLargeIconsNumberChoosesTheLargeOnes) {
    start();
    EXPECT_EQ(window().tbMain->iconSize().width(), smallIconPx);
    host.settings["Ocuva.INI|Configuration|LargeIcons"] = "7";
    start();
    EXPECT_EQ(window().tbMain->iconSize().width(), largeIconPx);
}

TEST_F(Start, LiveImageGrabsFromTheStart) {
    start();
    EXPECT_FALSE(window().cxvbBoard().IsGrabbing());
    host.settings["Ocuva.INI|Configuration|LiveImage"] = "1";
    start();
    EXPECT_TRUE(window().cxvbBoard().IsGrabbing());
    EXPECT_TRUE(action("mnuAcq")->isChecked());
    EXPECT_TRUE(window().tbMain->value(QStringLiteral("Acq")));
}

TEST_F(Start, FullImageShowsThePicturePixelForPixelFromTheStart) {
    host.settings["Ocuva.INI|Configuration|FullImage"] = "1";
    start();
    EXPECT_EQ(window().fields().GrabZoom, 1);
    EXPECT_TRUE(action("mnuZoom0")->isChecked());
    EXPECT_EQ(window().panels().milDisp->width(), 768);
}

TEST_F(Start, AfterTheStartAboutShowsTheSplashWithItsOkButtonWhichClosesOnlyThatWindow) {
    start();
    bool shown = false;
    QTimer::singleShot(0, &window(), [&] {
        auto* ok = inter->splash().findChild<QPushButton*>(QStringLiteral("cmdOk"));
        shown = inter->splash().isVisible() && ok->isVisible();
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    action("mnuAbout")->trigger();
    EXPECT_TRUE(shown);
    EXPECT_FALSE(inter->splash().isVisible());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(processEnds, 0);
}

TEST_F(Start, TheAboutBoxNamesProductAndVersion) {
    start();
    EXPECT_EQ(inter->splash().findChild<QLabel*>(QStringLiteral("lblProduct"))->text(),
              QStringLiteral("Ocuva"));
    EXPECT_TRUE(inter->splash()
                    .findChild<QLabel*>(QStringLiteral("lblVersion"))
                    ->text()
                    .startsWith(QStringLiteral("Version ")));
}

TEST_F(Start, TheToolbarTimerFiresOnceAsSoonAsTheMessageLoopRuns) {
    start();
    EXPECT_TRUE(window().tInitTBMain->isActive());
    QCoreApplication::processEvents();
    EXPECT_FALSE(window().tInitTBMain->isActive());
}

TEST_F(Start, TheTimersHaveTheIntervalsOfTheDesign) {
    start();
    EXPECT_EQ(window().tServerCheckIdle->interval(), 60000);
    EXPECT_EQ(window().tStageMove->interval(), 64);
    EXPECT_FALSE(window().tServerCheckIdle->isActive());
    EXPECT_FALSE(window().tStageMove->isActive());
}

TEST_F(Start, ALayoutThatTheUserMadeComesBack) {
    start();
    window().tbMain->restoreLayout(QStringLiteral("Focus,Acq"));
    Q_EMIT window().tbMain->customized();
    start();
    EXPECT_EQ(window().tbMain->layoutText(), QStringLiteral("Focus,Acq"));
}

TEST_F(Start, WithoutABoardTheWindowStillStartsAndTheLiveButtonIsDisabled) {
    host.boardInitResult = 0;
    host.bufferHandle = -1;
    EXPECT_TRUE(start());
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(window().tbMain->isEnabled(QStringLiteral("Acq")));
}

TEST_F(Start, WakesAnotherCopyOnlyOnceItIsUpAndStartsItselfWhenNoneIsLeft) {
    std::vector<std::string> callsBefore{"not asked"};
    bool isUp = true;
    const auto startBesideAnother = [&](const std::string& commandLine) {
        host.calls.clear();
        callsBefore = {"not asked"};
        inter = std::make_unique<modInter>(StartContext{host,
                                                        windows,
                                                        automation,
                                                        commandLine,
                                                        [] { return true; },
                                                        QStringLiteral("Ocuva (test)"),
                                                        [this] { ++processEnds; },
                                                        modServer::idleTickMs,
                                                        {},
                                                        {},
                                                        [&] {
                                                            callsBefore = host.calls;
                                                            return isUp;
                                                        }});
        return inter->Main();
    };
    EXPECT_FALSE(startBesideAnother(""));
    EXPECT_THAT(callsBefore, IsEmpty());
    EXPECT_THAT(host.calls, ElementsAre("TarnOcuvaSendMsgByName(\"OCUVA_WakeUp\")"));
    EXPECT_FALSE(startBesideAnother("-server"));
    EXPECT_THAT(callsBefore, ElementsAre("not asked"));
    isUp = false;
    EXPECT_TRUE(startBesideAnother(""));
    EXPECT_THAT(host.calls, testing::Not(testing::Contains(testing::HasSubstr("SendMsgByName"))));
    EXPECT_TRUE(window().isVisible());
}
