#include "tests/hosts/simulated/truth/TruthRig.h"

#include <algorithm>

namespace hosts::simulated {
namespace {

using testing::Each;

struct Video : TruthRig {
    Video() {
        gain(2);
        live();
    }
    void fault(const std::string& line) { configure("[Faults]\n" + line + "\n"); }
    void driveX() {
        micro().TarnLoadStageRelSecure(1, 5000.0F);
        micro().TarnStartStage(1);
    }
};

bool sameRows(const ocuva::Frame& a, const ocuva::Frame& b, int from, int to) {
    const auto at = [](const ocuva::Frame& frame, int row) {
        return frame.pixels.begin() + static_cast<std::ptrdiff_t>(row) * frame.width;
    };
    return std::equal(at(a, from), at(a, to), at(b, from));
}

TEST(FaultyCamera, AFrozenOneDeliversNothingUntilItThaws) {
    Video rig;
    const ocuva::FramePtr before = rig.frameAfter();
    rig.fault("Camera=frozen");
    EXPECT_EQ(rig.frameAfter(60000.0)->number, before->number) << "no frame for a minute";
    rig.fault("");
    EXPECT_GT(rig.frameAfter()->number, before->number);
}

TEST(FaultyCamera, AStuckPictureDoesNotFollowTheStage) {
    Video rig;
    const ocuva::FramePtr before = rig.frameAfter();
    rig.fault("Camera=stuck");
    rig.driveX();
    const ocuva::FramePtr stuck = rig.frameAfter(400.0);
    EXPECT_EQ(stuck->pixels, before->pixels);
    EXPECT_GT(stuck->number, before->number) << "frames go on coming";
    rig.fault("");
    EXPECT_NE(rig.frameAfter()->pixels, before->pixels);
}

TEST(FaultyCamera, ABlackPictureIsBlackAndLightReturns) {
    Video rig;
    rig.fault("Camera=black");
    EXPECT_THAT(rig.frameAfter()->pixels, Each(0xff000000U));
    rig.fault("Camera=off");
    EXPECT_GT(rig.greyAfter().mean, 30.0);
}

TEST(FaultyCamera, ALatePictureShowsWhereTheStageWas) {
    Video rig;
    const ocuva::FramePtr before = rig.frameAfter();
    rig.fault("Camera=late");
    rig.driveX();
    EXPECT_EQ(rig.frameAfter(200.0)->pixels, before->pixels);
    const ocuva::FramePtr after = rig.frameAfter(5000.0);
    EXPECT_NE(after->pixels, before->pixels);
    rig.fault("");
    EXPECT_EQ(rig.frameAfter()->pixels, after->pixels) << "it arrives in the end";
}

TEST(FaultyCamera, ATornPictureIsWrongInItsLowerHalfOnly) {
    Video rig;
    const ocuva::FramePtr whole = rig.frameAfter();
    rig.fault("Camera=torn");
    const ocuva::FramePtr torn = rig.frameAfter();
    EXPECT_TRUE(sameRows(*whole, *torn, 0, whole->height / 2));
    EXPECT_FALSE(sameRows(*whole, *torn, whole->height / 2, whole->height));
}

TEST(FaultyBoard, ThatRefusesIsNotReadyUntilTheFaultIsGone) {
    Video rig;
    rig.fault("BoardRefuses=1");
    EXPECT_EQ(rig.video().TarnVideoBoardInit(), 0);
    EXPECT_EQ(rig.video().TarnVideoBoardStartGrab(1, 1), 0);
    rig.fault("BoardRefuses=0");
    EXPECT_NE(rig.video().TarnVideoBoardInit(), 0);
    EXPECT_NE(rig.video().TarnVideoBoardStartGrab(1, 1), 0);
}

TEST(FaultyBoard, AGrabThatStopsByItselfStopsAfterThatManyFrames) {
    Video rig;
    rig.fault("GrabStopsByItself=7");
    rig.video().TarnVideoBoardHaltGrab();
    const std::int64_t before = rig.host->camera().lastFrameNumber();
    rig.video().TarnVideoBoardStartGrab(1, 1);
    rig.clock->advance(60000.0);
    EXPECT_EQ(rig.host->camera().lastFrameNumber(), before + 7);
}

TEST(FaultyFocus, ThatFindsNothingLeavesZWhereItWas) {
    Video rig;
    rig.goTo(3, 5);
    rig.fault("Focus=nothing");
    EXPECT_EQ(rig.micro().TarnAutoFocusExt(-1), 0);
    EXPECT_EQ(rig.reading(3), 5);
    rig.fault("");
    EXPECT_NE(rig.micro().TarnAutoFocusExt(-1), 0);
    EXPECT_NEAR(rig.host->truth().defocus(), 0.0, 1.5);
}

} // namespace
} // namespace hosts::simulated
