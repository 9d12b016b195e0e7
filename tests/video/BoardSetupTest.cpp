#include "video/BoardSetup.h"

#include "tests/support/SetupRig.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::Each;
using testing::ElementsAre;

namespace {

struct BoardSetupPage : testing::Test {
    StubHost host;
    CTnVideoBoard board{host.tn_video()};
    Settings settings{host.tn_reg()};
    FakeBoardView view;
    BoardSetup setup{board, settings, view};

    void SetUp() override { host.calls.clear(); }

    void expectShownAsInitialised() const {
        EXPECT_TRUE(view.boardLocked);
        EXPECT_EQ(view.initColour, 255);
        EXPECT_FALSE(view.initEnabled);
        EXPECT_EQ(view.shutColour, 65280);
        EXPECT_TRUE(view.shutEnabled);
    }

    void expectShownAsNotInitialised() const {
        EXPECT_FALSE(view.boardLocked);
        EXPECT_EQ(view.initColour, 65280);
        EXPECT_TRUE(view.initEnabled);
        EXPECT_EQ(view.shutColour, 255);
        EXPECT_FALSE(view.shutEnabled);
    }
};

} // namespace

TEST_F(BoardSetupPage, InitialisingStoresTheVgaModeThenSetsTheBoardThenInitialisesThenShowsTheState) {
    view.vgaCheck = 1;
    setup.cmdInit_Click();
    EXPECT_THAT(host.calls, ElementsAre("TarnRegisterSetString(\"tn_video\", \"VGAMode\", \"1\", \"TARN\")",
                                        "TarnVideoSetCurrentBoardType(1)", "TarnVideoBoardInit()",
                                        "TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")"));
    expectShownAsInitialised();
}

TEST_F(BoardSetupPage, OnlyAFullTickSwitchesTheVgaModeOn) {
    for (const auto& [tick, stored] : {std::pair(0, "0"), std::pair(1, "1"), std::pair(2, "0")}) {
        view.vgaCheck = tick;
        setup.cmdInit_Click();
        EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], stored);
    }
}

TEST_F(BoardSetupPage, AnIndexOtherThan0Or1ChoosesBoard0) {
    for (const auto& [index, type] : {std::pair(0, 0), std::pair(1, 1), std::pair(2, 0), std::pair(-1, 0)}) {
        view.boardIndex = index;
        setup.cmdInit_Click();
        EXPECT_EQ(host.boardType, type) << "index " << index;
    }
}

TEST_F(BoardSetupPage, ARefusedInitialisationShowsOnlyInTheIndicators) {
    host.boardInitResult = 0;
    setup.cmdInit_Click();
    expectShownAsNotInitialised();
    EXPECT_THAT(host.callsOf("TarnMessageBoxVB"), testing::IsEmpty());
    EXPECT_THAT(host.logLines, testing::IsEmpty());
}

TEST_F(BoardSetupPage, AfterAShutdownTheIndicatorsStillShowTheBoardAsInitialised) {
    setup.showState();
    host.calls.clear();
    setup.cmdShut_Click();
    EXPECT_EQ(host.calls.front(), "TarnVideoBoardShutdown()");
    expectShownAsInitialised();
}

TEST_F(BoardSetupPage, AShutdownHaltsARunningGrabFirst) {
    board.Grab(nullptr, true);
    host.calls.clear();
    setup.cmdShut_Click();
    EXPECT_EQ(host.calls[0], "TarnVideoBoardHaltGrab()");
    EXPECT_EQ(host.calls[1], "TarnVideoBoardShutdown()");
}

TEST_F(BoardSetupPage, ANewBoardChoiceThatFailsTurnsTheIndicatorsBack) {
    setup.cmdShut_Click();
    host.boardInitResult = 0;
    setup.cmdInit_Click();
    expectShownAsNotInitialised();
}

TEST_F(BoardSetupPage, AfterAShutdownUnlockLetsTheOperatorChooseABoardAndInitialiseIt) {
    setup.showState();
    EXPECT_FALSE(view.shutDownShown);
    setup.cmdShut_Click();
    EXPECT_TRUE(view.shutDownShown);
    EXPECT_TRUE(view.unlockEnabled);
    host.calls.clear();
    setup.cmdUnlock_Click();
    expectShownAsNotInitialised();
    EXPECT_TRUE(view.shutDownShown);
    EXPECT_FALSE(view.unlockEnabled);
    EXPECT_THAT(host.calls, testing::IsEmpty());
    setup.cmdInit_Click();
    EXPECT_THAT(host.callsOf("TarnVideoBoardInit"), testing::SizeIs(1));
    expectShownAsInitialised();
    EXPECT_FALSE(view.shutDownShown);
}

TEST_F(BoardSetupPage, APageOpenedAfterAShutdownOffersUnlockToo) {
    board.Shutdown();
    setup.showState();
    expectShownAsInitialised();
    EXPECT_TRUE(view.shutDownShown);
    EXPECT_TRUE(view.unlockEnabled);
}

TEST_F(BoardSetupPage, UnlockDoesNothingOnABoardThatIsInUse) {
    setup.showState();
    setup.cmdUnlock_Click();
    expectShownAsInitialised();
}

TEST_F(BoardSetupPage, ABoardThatDoesNotComeUpAgainLeavesTheChoiceOpenWithoutTheLine) {
    setup.cmdShut_Click();
    setup.cmdUnlock_Click();
    host.boardInitResult = 0;
    setup.cmdInit_Click();
    expectShownAsNotInitialised();
    EXPECT_FALSE(view.shutDownShown);
}

TEST_F(BoardSetupPage, AClickOnVgaModeStoresItAtOnceAndEnablesTheCameraButtonsToSuit) {
    view.vgaCheck = 1;
    setup.VgaCheck_Click();
    EXPECT_THAT(host.calls, ElementsAre("TarnRegisterSetString(\"tn_video\", \"VGAMode\", \"1\", \"TARN\")",
                                        "TarnRegisterGetInt(\"tn_video\", \"VGAMode\", 0, \"TARN\")"));
    EXPECT_THAT(view.cameraEnabled, Each(false));
    view.vgaCheck = 0;
    setup.VgaCheck_Click();
    EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], "0");
    EXPECT_THAT(view.cameraEnabled, Each(true));
}

TEST_F(BoardSetupPage, TheCameraButtonsCanBeUsedOnlyOutsideVgaModeAndOnAnInitialisedBoard) {
    for (const bool vga : {false, true}) {
        for (const bool initialized : {false, true}) {
            settings.writeVgaMode(vga);
            host.boardInitResult = initialized ? 1 : 0;
            board.Initialize();
            setup.showState();
            EXPECT_THAT(view.cameraEnabled, Each(!vga && initialized)) << vga << initialized;
        }
    }
}

TEST_F(BoardSetupPage, SwitchingVgaModeOnLeavesTheCameraButtonsDisabledThoughTheBoardIsReady) {
    view.vgaCheck = 1;
    setup.cmdInit_Click();
    EXPECT_TRUE(board.IsInitialized());
    EXPECT_THAT(view.cameraEnabled, Each(false));
    view.vgaCheck = 0;
    setup.cmdInit_Click();
    EXPECT_THAT(view.cameraEnabled, Each(true));
}
