#include "video/CameraSetup.h"

#include "tests/support/SetupRig.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct CameraPage : testing::Test {
    ClampingHost host;
    CTnVideoBoard board{host.tn_video()};
    FakeMainWindow mainWindow;
    FakeCameraView view;
    CameraSetup setup{host.tn_video(), board, mainWindow, &view};

    void SetUp() override { host.calls.clear(); }
};

} // namespace

TEST_F(CameraPage, ClickingACameraSetsItsTypeAndRefreshesThePage) {
    for (Long index = 0; index < 4; ++index) {
        setup.optCam_Click(index);
        EXPECT_EQ(host.cameraType, index + 1);
        EXPECT_EQ(view.checkedCamera, index);
    }
    EXPECT_EQ(host.displayRequests.size(), 4U);
    EXPECT_EQ(host.calls.front(), "TarnVideoSetCurrentCameraType(1)");
    EXPECT_EQ(mainWindow.acqWrites, 4);
}

TEST_F(CameraPage, ACameraThatTheHostRefusesGivesNoMessageAndThePageShowsTheOneItHas) {
    host.results["TarnVideoSetCurrentCameraType"] = 0;
    setup.optCam_Click(0);
    EXPECT_EQ(view.checkedCamera, 2);
    EXPECT_EQ(host.displayRequests.size(), 1U);
    EXPECT_THAT(view.texts, Each("50.0"));
    EXPECT_THAT(host.callsOf("TarnMessageBoxVB"), IsEmpty());
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(CameraPage, CheckingTheCameraOfTheHostDoesNotCountAsAClick) {
    view.onOwnCameraCheck = [this](Long index) { setup.optCam_Click(index); };
    setup.refresh(true);
    EXPECT_THAT(host.callsOf("TarnVideoSetCurrentCameraType"), IsEmpty());
    setup.optCam_Click(1);
    EXPECT_THAT(host.callsOf("TarnVideoSetCurrentCameraType"),
                ElementsAre("TarnVideoSetCurrentCameraType(2)"));
}

TEST_F(CameraPage, RefreshChecksTheHostsCameraOnlyOnRequest) {
    setup.refresh(false);
    EXPECT_EQ(view.checkedCamera, -1);
    EXPECT_THAT(host.callsOf("TarnVideoGetCurrentCameraType"), IsEmpty());
    setup.refresh(true);
    EXPECT_EQ(view.checkedCamera, 2);
}

TEST_F(CameraPage, RefreshChecksNoCameraWhenTheHostHasNoneOrOneWithoutAButton) {
    for (const Long type : {0, 5, -1}) {
        host.cameraType = type;
        setup.refresh(true);
        EXPECT_EQ(view.checkedCamera, -1) << type;
    }
}

TEST_F(CameraPage, RefreshOfABoardThatDrawsChecksTheCameraHandsTheDisplayOverAndShowsTheReferences) {
    setup.refresh(true);
    EXPECT_THAT(host.calls,
                ElementsAre("TarnVideoGetCurrentCameraType()", "TarnVideoGetCurrentBoardType()",
                            "TarnVideoBoardFunction(0, {77, -2, 0})", "TarnVideoCameraGetReferences(1)",
                            "TarnVideoCameraGetReferences(1)", "TarnVideoCameraGetReferences(2)",
                            "TarnVideoCameraGetReferences(2)"));
    EXPECT_THAT(view.texts, Each("50.0"));
    EXPECT_THAT(view.sliders, Each(50));
    EXPECT_TRUE(mainWindow.acqEnabled);
}

TEST_F(CameraPage, TheDisplayIsHandedOverWithReduction2AndTheMarkOfNormalZoom) {
    mainWindow.handle = 4711;
    mainWindow.normalZoom = true;
    setup.refresh(false);
    ASSERT_EQ(host.displayRequests.size(), 1U);
    EXPECT_EQ(host.displayRequests[0].windowHandle, 4711);
    EXPECT_EQ(host.displayRequests[0].zoom, -2);
    EXPECT_EQ(host.displayRequests[0].fullSize, -1);
}

TEST_F(CameraPage, RefreshOfAnyOtherBoardHandsNothingOverAndShowsNoReferences) {
    host.boardType = 0;
    setup.refresh(true);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoGetCurrentCameraType()", "TarnVideoGetCurrentBoardType()"));
    EXPECT_THAT(view.texts, Each(""));
    EXPECT_EQ(mainWindow.acqWrites, 1);
}

TEST_F(CameraPage, AcquisitionCanBeUsedOnlyOnAnInitialisedBoard) {
    setup.refresh(false);
    EXPECT_TRUE(mainWindow.acqEnabled);
    host.boardInitResult = 0;
    board.Initialize();
    setup.refresh(false);
    EXPECT_FALSE(mainWindow.acqEnabled);
}

TEST_F(CameraPage, SlidersAndTextBoxesOfThePageSetTheReferences) {
    view.sliders[2] = 10;
    setup.sldReference_Change(CameraReference::Hue);
    view.texts[1] = "20.5";
    setup.txtReference_LostFocus(CameraReference::Brightness);
    EXPECT_EQ(host.references[2].first, 10.0);
    EXPECT_EQ(host.references[1].second, 20.5);
}

TEST_F(CameraPage, EachGainRangeShowsItsOwnLabelAndIsSentToTheBoard) {
    for (Long range = 0; range < 5; ++range) {
        view.gainSlider = range;
        setup.gainChanged();
        EXPECT_TRUE(view.gainSliderVisible);
        EXPECT_FALSE(view.autoGainLabelVisible);
        for (Long index = 0; index < 5; ++index) {
            EXPECT_EQ(view.gainLabelVisible.at(static_cast<std::size_t>(index)), index == range)
                << "label " << index << " at range " << range;
        }
    }
    EXPECT_THAT(host.gains, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_EQ(host.callsOf("TarnVideoBoardFunction").size(), 5U);
}

TEST_F(CameraPage, AutomaticGainHidesSliderAndRangesAtEveryRangeAndIsSentAsMinusOne) {
    view.autoGain = true;
    for (Long range = 0; range < 5; ++range) {
        view.gainSlider = range;
        view.gainLabelVisible.fill(true);
        setup.gainChanged();
        EXPECT_FALSE(view.gainSliderVisible);
        EXPECT_TRUE(view.autoGainLabelVisible);
        EXPECT_THAT(view.gainLabelVisible, Each(false));
    }
    EXPECT_THAT(host.gains, Each(-1));
}

TEST_F(CameraPage, AGainSliderOffItsScaleNeverAsksForAutomaticGain) {
    for (const Long position : {-1, 9}) {
        view.gainSlider = position;
        setup.gainChanged();
    }
    EXPECT_THAT(host.gains, ElementsAre(0, 4));
}

TEST(CameraSetupWithoutAPage, HandsTheDisplayOverAndEnablesAcquisitionWithoutOtherHostCalls) {
    StubHost host;
    CTnVideoBoard board(host.tn_video());
    FakeMainWindow mainWindow;
    CameraSetup setup(host.tn_video(), board, mainWindow);
    host.calls.clear();
    setup.refresh(true);
    EXPECT_THAT(host.calls,
                ElementsAre("TarnVideoGetCurrentBoardType()", "TarnVideoBoardFunction(0, {77, -2, 0})"));
    EXPECT_TRUE(mainWindow.acqEnabled);
}

TEST(CameraSetupWithoutAPage, DoesNothingForThePagesControls) {
    StubHost host;
    CTnVideoBoard board(host.tn_video());
    FakeMainWindow mainWindow;
    CameraSetup setup(host.tn_video(), board, mainWindow);
    host.calls.clear();
    setup.optCam_Click(1);
    setup.sldReference_Change(CameraReference::Hue);
    setup.txtReference_LostFocus(CameraReference::Hue);
    setup.gainChanged();
    EXPECT_THAT(host.calls, IsEmpty());
}
