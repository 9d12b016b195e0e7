#include "tests/setup/DialogRig.h"

#include <QTabBar>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SetupDialog : DialogRig {
    std::vector<std::string> visibleFrames() {
        std::vector<std::string> visible;
        for (int i = 0; i < 5; ++i) {
            const auto* frame = dialog->findChild<QWidget*>(QStringLiteral("frsetup%1").arg(i));
            if (frame != nullptr && frame->isVisible()) {
                visible.push_back(frame->objectName().toStdString());
            }
        }
        return visible;
    }
    void clickTab(SetupTab tab) {
        QTabBar* bar = dialog->tsSetup->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                          bar->tabRect(static_cast<int>(tab) - 1).center());
    }
};

} // namespace

TEST_F(SetupDialog, OpensWithTheFirstTabAndItsFrameAlone) {
    open();
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Ocuva Setup Parameters");
    EXPECT_EQ(dialog->shownTab(), SetupTab::Autofocus);
    EXPECT_THAT(visibleFrames(), ElementsAre("frsetup0"));
}

TEST_F(SetupDialog, HasItsFiveTabsInOrder) {
    open();
    std::vector<std::string> captions;
    captions.reserve(static_cast<std::size_t>(dialog->tsSetup->count()));
    for (int i = 0; i < dialog->tsSetup->count(); ++i) {
        captions.push_back(dialog->tsSetup->tabText(i).remove(u'&').toStdString());
    }
    EXPECT_THAT(captions, ElementsAre("Autofocus", "Monitor", "Stage", "Camera", "Board"));
}

TEST_F(SetupDialog, ShowsTheFrameOfTheClickedTabAlone) {
    open();
    for (const SetupTab tab :
         {SetupTab::Board, SetupTab::Monitor, SetupTab::Camera, SetupTab::Stage, SetupTab::Autofocus}) {
        clickTab(tab);
        EXPECT_EQ(dialog->shownTab(), tab);
        EXPECT_THAT(visibleFrames(), ElementsAre("frsetup" + std::to_string(static_cast<int>(tab) - 1)));
    }
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(SetupDialog, AClickOnTheTabThatIsShownDoesNothing) {
    open(SetupTab::Camera);
    dialog->cmdSaveDefault->setEnabled(false); // would be undone by a switch
    clickTab(SetupTab::Camera);
    EXPECT_FALSE(dialog->cmdSaveDefault->isEnabled());
    EXPECT_THAT(visibleFrames(), ElementsAre("frsetup3"));
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(SetupDialog, SaveDefaultIsAvailableOnTheTabsCameraAndBoardOnly) {
    open();
    EXPECT_FALSE(dialog->cmdSaveDefault->isEnabled());
    clickTab(SetupTab::Stage);
    EXPECT_FALSE(dialog->cmdSaveDefault->isEnabled());
    clickTab(SetupTab::Camera);
    EXPECT_TRUE(dialog->cmdSaveDefault->isEnabled());
    clickTab(SetupTab::Monitor);
    EXPECT_FALSE(dialog->cmdSaveDefault->isEnabled());
    clickTab(SetupTab::Board);
    EXPECT_TRUE(dialog->cmdSaveDefault->isEnabled());
    clickTab(SetupTab::Autofocus);
    EXPECT_FALSE(dialog->cmdSaveDefault->isEnabled());
}

TEST_F(SetupDialog, SaveDefaultKeepsBoardAndCameraTypeAndTheReferences) {
    open(SetupTab::Camera);
    QTest::mouseClick(dialog->cmdSaveDefault, Qt::LeftButton);
    const auto done = changes();
    ASSERT_GE(done.size(), 3U);
    EXPECT_EQ(done[0], "TarnSetVideoBoardType(1)");
    EXPECT_EQ(done[1], "TarnSetVideoCameraType(3)");
    EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultContrast100_3"], "5000");
}

TEST_F(SetupDialog, OpeningAndClosingItStoresNothing) {
    open();
    dialog->close();
    open();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(SetupDialog, CloseClosesItAndWhatWasTypedBeforeIsStored) {
    open(SetupTab::Stage);
    dialog->stagePage->txtMag->setFocus();
    QTest::keyClicks(dialog->stagePage->txtMag, QStringLiteral("250"));
    QTest::mouseClick(dialog->cmdClose, Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(settings.readVideoMag(), 250);
}

TEST_F(SetupDialog, EscapeTakesBackWhatWasTypedAndASecondOneClosesTheDialog) {
    open(SetupTab::Stage);
    QTest::keyClicks(dialog->stagePage->txtMag, QStringLiteral("7"));
    QTest::keyClick(dialog->stagePage->txtMag, Qt::Key_Escape);
    EXPECT_EQ(dialog->stagePage->txtMag->text(), QStringLiteral("400"));
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClick(dialog->stagePage->txtMag, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(settings.readVideoMag(), 400);
    open(SetupTab::Monitor);
    QTest::keyClicks(dialog->monitorPage->txtGridWidth, QStringLiteral("x"));
    QTest::keyClick(dialog->monitorPage->txtGridWidth, Qt::Key_Escape);
    QTest::keyClick(dialog->monitorPage->txtGridWidth, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(SetupDialog, SwitchingTheTabTakesOverTheBoxThatIsLeftWithIt) {
    open(SetupTab::Stage);
    dialog->stagePage->txtMag->setFocus();
    QTest::keyClicks(dialog->stagePage->txtMag, QStringLiteral("250"));
    clickTab(SetupTab::Board);
    EXPECT_EQ(settings.readVideoMag(), 250);
}

TEST_F(SetupDialog, GoingToAnotherWindowTakesOverTheBoxThatIsLeftWithIt) {
    open(SetupTab::Stage);
    dialog->stagePage->txtMag->setFocus();
    QTest::keyClicks(dialog->stagePage->txtMag, QStringLiteral("250"));
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(settings.readVideoMag(), 250);
}

TEST_F(SetupDialog, EveryTextBoxSelectsItsWholeTextWhenItGetsTheFocus) {
    host.references = {{1, {10.0, 20.0}}, {2, {30.0, 40.0}}};
    open();
    int boxes = 0;
    for (const SetupTab tab : {SetupTab::Autofocus, SetupTab::Monitor, SetupTab::Stage, SetupTab::Camera}) {
        show(tab);
        for (TextBox* box : dialog->tsSetup->currentWidget()->findChildren<TextBox*>()) {
            box->setFocus(Qt::TabFocusReason);
            EXPECT_EQ(box->selectionStart(), 0) << box->objectName().toStdString();
            EXPECT_EQ(box->selectionLength(), box->text().size()) << box->objectName().toStdString();
            ++boxes;
        }
    }
    EXPECT_EQ(boxes, 11);
}

TEST_F(SetupDialog, OpensWithWhatTheStoresHaveNow) {
    open();
    set("UseTransmittedLight", "1");
    settings.writeVideoMag(123);
    open();
    EXPECT_TRUE(dialog->autofocusPage->chkAutoTransmit->isChecked());
    EXPECT_EQ(text(dialog->stagePage->txtMag), "123");
}
