#include "tests/setup/DialogRig.h"

using namespace ocuva;
using testing::ElementsAre;

namespace {

const QColor green(0, 255, 0);
const QColor red(255, 0, 0);

struct BoardPage : DialogRig {
    SetupBoardPage& page() { return *dialog->boardPage; }
    void openWithoutBoard() {
        host.boardInitResult = 0;
        board.Initialize();
        open(SetupTab::Board);
    }
    QStringList boards() {
        QStringList texts;
        for (int i = 0; i < page().cbBoard->count(); ++i) {
            texts.append(page().cbBoard->itemText(i));
        }
        return texts;
    }
    std::vector<bool> choosableCameras() {
        std::vector<bool> enabled;
        for (const QRadioButton* option : dialog->cameraPage->optCam) {
            enabled.push_back(option->isEnabled());
        }
        return enabled;
    }
};

} // namespace

TEST_F(BoardPage, ShowsAnInitialisedBoardLockedWithOnlyShutDownToPress) {
    open(SetupTab::Board);
    EXPECT_EQ(page().cbBoard->currentIndex(), 1);
    EXPECT_FALSE(page().cbBoard->isEnabled());
    EXPECT_FALSE(page().cmdInit->isEnabled());
    EXPECT_TRUE(page().cmdShut->isEnabled());
    EXPECT_EQ(page().shInit->colour(), red);
    EXPECT_EQ(page().shShut->colour(), green);
    EXPECT_THAT(choosableCameras(), ElementsAre(true, true, true, true));
}

TEST_F(BoardPage, ShowsABoardThatIsNotInitialisedReadyToBe) {
    host.boardType = 0;
    openWithoutBoard();
    EXPECT_EQ(page().cbBoard->currentIndex(), 0);
    EXPECT_TRUE(page().cbBoard->isEnabled());
    EXPECT_TRUE(page().cmdInit->isEnabled());
    EXPECT_FALSE(page().cmdShut->isEnabled());
    EXPECT_EQ(page().shInit->colour(), green);
    EXPECT_EQ(page().shShut->colour(), red);
    EXPECT_THAT(choosableCameras(), ElementsAre(false, false, false, false));
    EXPECT_EQ(page().shInit->accessibleName().toStdString(), "The button can be used");
}

TEST_F(BoardPage, InitialisingStoresTheVgaModeSetsTheTypeInitialisesAndShowsTheState) {
    openWithoutBoard();
    host.boardInitResult = 1;
    page().VgaCheck->setChecked(true);
    QTest::mouseClick(page().cmdInit, Qt::LeftButton);
    const auto done = changes();
    ASSERT_GE(done.size(), 3U);
    EXPECT_EQ(done[0], "TarnRegisterSetString(\"tn_video\", \"VGAMode\", \"1\", \"TARN\")");
    EXPECT_EQ(done[1], "TarnVideoSetCurrentBoardType(1)");
    EXPECT_EQ(done[2], "TarnVideoBoardInit()");
    EXPECT_FALSE(page().cmdInit->isEnabled());
    EXPECT_THAT(choosableCameras(), ElementsAre(false, false, false, false));
}

TEST_F(BoardPage, AnInitialisedBoardCanGoLiveAtOnce) {
    openWithoutBoard();
    EXPECT_FALSE(cameraWindow.acqEnabled);
    host.boardInitResult = 1;
    QTest::mouseClick(page().cmdInit, Qt::LeftButton);
    EXPECT_TRUE(cameraWindow.acqEnabled);
    EXPECT_EQ(host.calls.back(), "showAcquisition()");
}

TEST_F(BoardPage, AfterAShutDownTheBoardStillShowsAsInitialisedAndTheMainWindowNoLongerAsLive) {
    open(SetupTab::Board);
    QTest::mouseClick(page().cmdShut, Qt::LeftButton);
    EXPECT_EQ(host.callsOf("TarnVideoBoardShutdown").size(), 1U);
    EXPECT_FALSE(page().cbBoard->isEnabled());
    EXPECT_EQ(page().shInit->colour(), red);
    EXPECT_EQ(page().shShut->colour(), green);
    EXPECT_EQ(host.calls.back(), "showAcquisition()");
}

TEST_F(BoardPage, AClickOnVgaModeCountsAtOnceForTheStoreAndTheCameras) {
    open(SetupTab::Board);
    const QPoint box(8, page().VgaCheck->height() / 2);
    QTest::mouseClick(page().VgaCheck, Qt::LeftButton, Qt::NoModifier, box);
    EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], "1");
    EXPECT_THAT(choosableCameras(), ElementsAre(false, false, false, false));
    QTest::mouseClick(page().VgaCheck, Qt::LeftButton, Qt::NoModifier, box);
    EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], "0");
    EXPECT_THAT(choosableCameras(), ElementsAre(true, true, true, true));
}

TEST_F(BoardPage, ABoardThatWasShutDownIsUnlockedChosenAndInitialisedAgain) {
    open(SetupTab::Board);
    EXPECT_FALSE(page().frShutDown->isVisible());
    QTest::mouseClick(page().cmdShut, Qt::LeftButton);
    EXPECT_TRUE(page().frShutDown->isVisible());
    open(SetupTab::Board); // the next opening knows it too
    ASSERT_TRUE(page().cmdUnlock->isVisible());
    QTest::mouseClick(page().cmdUnlock, Qt::LeftButton);
    ASSERT_TRUE(page().cbBoard->isEnabled());
    page().cbBoard->setCurrentIndex(0);
    QTest::mouseClick(page().cmdInit, Qt::LeftButton);
    EXPECT_EQ(host.boardType, 0);
    EXPECT_TRUE(board.isReady());
    EXPECT_FALSE(page().frShutDown->isVisible());
}

TEST_F(BoardPage, NamesTheBoardsAsTheHostListsThemWhereItDoes) {
    open(SetupTab::Board);
    EXPECT_EQ(boards(), (QStringList{QStringLiteral("Picture on the board's own screen"),
                                     QStringLiteral("Live picture in this program")}));
    host.settings["TARN.INI|tn_video\\boards|0"] = "VGA overlay";
    host.settings["TARN.INI|tn_video\\boards|1"] = "Live = colour";
    host.settings["TARN.INI|tn_video\\boards|2"] = "";
    open(SetupTab::Board);
    EXPECT_EQ(boards(),
              (QStringList{QStringLiteral("VGA overlay"), QStringLiteral("Live = colour"), QString()}));
    EXPECT_EQ(page().cbBoard->currentIndex(), 1);
}

TEST_F(BoardPage, TakesNoEntriesOfAHostThatListsNoneAndNoMoreThanAHundredOfOneThatNeverEnds) {
    host.results["TarnIniEnumNb"] = -1;
    open(SetupTab::Board);
    EXPECT_EQ(boards().size(), 2);
    host.results["TarnIniEnumNb"] = 2000000000;
    open(SetupTab::Board);
    EXPECT_EQ(boards().size(), 100);
}

TEST_F(BoardPage, ShowsTheStoredVgaMode) {
    host.settings["TARN|tn_video|VGAMode"] = "1";
    open(SetupTab::Board);
    EXPECT_TRUE(page().VgaCheck->isChecked());
    EXPECT_THAT(choosableCameras(), ElementsAre(false, false, false, false));
}
