#include "video/CTnVideoBoard.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct VideoBoard : testing::Test {
    StubHost host;
    CTnVideoBoard board{host.tn_video()};

    void SetUp() override { host.calls.clear(); }
};

} // namespace

TEST(VideoBoardCreation, InitialisesAtOnceAndShowsTheHostsAnswer) {
    StubHost host;
    EXPECT_TRUE(CTnVideoBoard(host.tn_video()).IsInitialized());
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardInit()"));
    host.boardInitResult = 0;
    EXPECT_FALSE(CTnVideoBoard(host.tn_video()).IsInitialized());
}

TEST_F(VideoBoard, GrabTwiceInARowStartsTheGrabOnce) {
    board.Grab(nullptr, true);
    board.Grab(nullptr, true);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(1, 1)"));
    EXPECT_TRUE(board.IsGrabbing());
}

TEST_F(VideoBoard, AGrabWithoutTheFlagPassesZero) {
    board.Grab(nullptr, false);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(0, 1)"));
}

TEST_F(VideoBoard, HaltWithoutARunningGrabCallsNothing) {
    board.Halt(nullptr);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(VideoBoard, ShutdownWhileGrabbingHaltsFirstAndStillReadsAsInitialised) {
    board.Grab(nullptr, true);
    host.calls.clear();
    board.Shutdown();
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardHaltGrab()", "TarnVideoBoardShutdown()"));
    EXPECT_TRUE(board.IsInitialized());
    EXPECT_FALSE(board.IsGrabbing());
}

TEST_F(VideoBoard, ShutdownWithoutAGrabOnlyShutsDown) {
    board.Shutdown();
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardShutdown()"));
}

TEST_F(VideoBoard, ShutdownOfABoardThatIsNotInitialisedCallsNothing) {
    host.boardInitResult = 0;
    board.Initialize();
    host.calls.clear();
    board.Shutdown();
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(VideoBoard, WritingTheBoardTypeWhileGrabbingLeavesItGrabbingAndNotInitialised) {
    board.Grab(nullptr, true);
    host.calls.clear();
    board.BoardType(0);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoSetCurrentBoardType(0)"));
    EXPECT_TRUE(board.IsGrabbing());
    EXPECT_FALSE(board.IsInitialized());
}

TEST_F(VideoBoard, ARefusedStartLeavesItNotGrabbing) {
    host.startGrabResult = 0;
    board.GrabToggle(nullptr);
    EXPECT_FALSE(board.IsGrabbing());
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(1, 1)"));
}

TEST_F(VideoBoard, ToggleStartsAndHaltsInTurn) {
    board.GrabToggle(nullptr);
    EXPECT_TRUE(board.IsGrabbing());
    board.GrabToggle(nullptr);
    EXPECT_FALSE(board.IsGrabbing());
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(1, 1)", "TarnVideoBoardHaltGrab()"));
}

TEST_F(VideoBoard, InitialisingAgainAsksTheHostAgainAndForgetsTheGrab) {
    board.Grab(nullptr, true);
    host.calls.clear();
    board.Initialize();
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardInit()"));
    EXPECT_TRUE(board.IsInitialized());
    EXPECT_FALSE(board.IsGrabbing());
    host.boardInitResult = 0;
    board.Initialize();
    EXPECT_FALSE(board.IsInitialized());
}

TEST_F(VideoBoard, TheBoardTypeIsReadFromTheHostEachTime) {
    host.boardType = 1;
    EXPECT_EQ(board.BoardType(), 1);
    host.boardType = 0;
    EXPECT_EQ(board.BoardType(), 0);
    EXPECT_EQ(host.callsOf("TarnVideoGetCurrentBoardType").size(), 2U);
}

TEST_F(VideoBoard, AnUninitialisedBoardStillAsksTheHostToGrab) {
    host.boardInitResult = 0;
    board.Initialize();
    host.calls.clear();
    board.Grab(nullptr, true);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBoardStartGrab(1, 1)"));
}
