// The program's window with each host: the operator's actions reach the host, and the display shows the
// host's values.

#include "app/modInter.h"
#include "tests/conformance/StageUnderTest.h"
#include "tests/support/OwnRegistry.h"

#include <QTest>

#include <cmath>

using namespace ocuva;

namespace {

class WindowConformance : public HostConformance {
protected:
    WindowConformance() {
        emptyRegistry();
        stage.moveToTheMiddle();
        start();
    }
    void TearDown() override {
        inter.reset();
        stage.bringBack();
    }

    void start() {
        inter.reset();
        inter = std::make_unique<modInter>(StartContext{host(),
                                                        windows,
                                                        automation,
                                                        "",
                                                        [] { return false; },
                                                        QStringLiteral("Ocuva (test)"),
                                                        [] {},
                                                        modServer::idleTickMs,
                                                        [](const JournalEntry&) {},
                                                        {}});
        EXPECT_TRUE(inter->Main());
    }
    frmOcuva& window() { return inter->mainWindow(); }
    QAction* action(const char* name) { return window().menu().action(name); }
    std::string panel(const char* key) {
        return window().sbMain->panel(QString::fromLatin1(key))->text().toStdString();
    }
    TarnLong at(TarnLong axis) { return stage.at(axis); }
    /// Until the window has seen the end of the move and shows where the stage stands.
    void settle() {
        EXPECT_TRUE(QTest::qWaitFor([this] {
            underTest().letTimePass(100.0);
            return !window().tStageMove->isActive();
        }));
        EXPECT_EQ(panel("X"), std::to_string(at(axisX)));
        EXPECT_EQ(panel("Y"), std::to_string(at(axisY)));
        EXPECT_EQ(panel("Z"), std::to_string(at(axisZ)));
    }

    StageUnderTest stage{underTest()};
    DisplayWindows windows;
    NoAutomation automation;
    std::unique_ptr<modInter> inter;
};

TEST_P(WindowConformance, AClickOnTheImageMovesTheStageByItsDistanceFromTheCentre) {
    QWidget* const display = window().panels().milDisp;
    const QSize size = display->size();
    const TarnLong x = at(axisX);
    const TarnLong y = at(axisY);
    QTest::mouseClick(display, Qt::LeftButton, Qt::NoModifier, {size.width() / 4, size.height() / 4});
    settle();
    // A quarter of the field that the host tells, which is 640 x 480 stage units before anybody sets another.
    EXPECT_NEAR(std::abs(at(axisX) - x), 160, 2);
    EXPECT_NEAR(std::abs(at(axisY) - y), 120, 2);
}

TEST_P(WindowConformance, TheZButtonsStepTheStage) {
    const TarnLong z = at(axisZ);
    window().upDown().cmdUp[0]->click();
    settle();
    const TarnLong step = at(axisZ) - z;
    EXPECT_NE(step, 0);
    window().upDown().cmdUp[0]->click();
    settle();
    EXPECT_EQ(at(axisZ) - z, 2 * step);
}

TEST_P(WindowConformance, ATypedPositionIsDrivenTo) {
    action("mnuMove")->trigger();
    frmMove& dialog = window().standards().moveDialog();
    constexpr const char* target[]{"123", "-45", "6"};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        dialog.txtMove[axis]->setText(QString::fromLatin1(target[axis]));
    }
    dialog.cmdMove->click();
    settle();
    EXPECT_EQ(panel("X") + ' ' + panel("Y") + ' ' + panel("Z"), "123 -45 6");
}

TEST_P(WindowConformance, LiveGrabsUntilItIsSwitchedOff) {
    const bool live = action("mnuAcq")->isChecked();
    action("mnuAcq")->trigger();
    EXPECT_NE(action("mnuAcq")->isChecked(), live);
    action("mnuAcq")->trigger();
    EXPECT_EQ(action("mnuAcq")->isChecked(), live);
}

TEST_P(WindowConformance, OptionsSwitchedOnAreOnAtTheNextStart) {
    for (const char* name : {"mnuCross", "mnuGrid"}) {
        const bool shown = action(name)->isChecked();
        action(name)->trigger();
        start();
        EXPECT_NE(action(name)->isChecked(), shown) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, WindowConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
