#include "display/LengthConversion.h"

#include "tests/support/StubHost.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Lengths : testing::Test {
    StubHost host;
    LengthConversion conversion{host.tn_log()};
};

constexpr const char* toStageFailed = "Overflow in frame to stage conversion";
constexpr const char* toFrameFailed = "Overflow in stage to frame conversion";
constexpr Long high = std::numeric_limits<Long>::max();

} // namespace

TEST_F(Lengths, TheWholeFieldSpansTheFactorTimes100ByTheMagnification) {
    EXPECT_EQ(conversion.frameToStage(400, 2560.0F, {5760, 5760}), 640);
    EXPECT_EQ(conversion.frameToStage(100, 2560.0F, {5760, 5760}), 2560);
    EXPECT_EQ(conversion.stageToFrame(400, 2560.0F, 640, 5760), 5760);
}

TEST_F(Lengths, RoundHalfToEven) {
    // A field of 10 units over 20 twips: one twip is half a unit.
    EXPECT_EQ(conversion.frameToStage(100, 10.0F, {1, 20}), 0);
    EXPECT_EQ(conversion.frameToStage(100, 10.0F, {3, 20}), 2);
    EXPECT_EQ(conversion.frameToStage(100, 10.0F, {5, 20}), 2);
    EXPECT_EQ(conversion.frameToStage(100, 10.0F, {-3, 20}), -2);
    EXPECT_EQ(conversion.stageToFrame(100, 20.0F, 1, 10), 0);
    EXPECT_EQ(conversion.stageToFrame(100, 20.0F, 3, 10), 2);
}

TEST_F(Lengths, AMagnificationOfZeroGivesZeroAndOneLogLine) {
    EXPECT_EQ(conversion.frameToStage(0, 2560.0F, {100, 5760}), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toStageFailed));
    host.logLines.clear();
    EXPECT_EQ(conversion.stageToFrame(0, 2560.0F, 100, 5760), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toFrameFailed));
}

TEST_F(Lengths, AFieldOfZeroHasNoFrameLength) {
    EXPECT_EQ(conversion.stageToFrame(400, 0.0F, 100, 5760), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toFrameFailed));
}

TEST_F(Lengths, AFullLengthOfZeroHasNoStageLength) {
    EXPECT_EQ(conversion.frameToStage(400, 2560.0F, {100, 0}), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toStageFailed));
}

TEST_F(Lengths, AResultThatLeaves32BitsGivesZeroAndOneLogLine) {
    EXPECT_EQ(conversion.frameToStage(1, 2560.0F, {high, 1}), 0);
    EXPECT_EQ(conversion.stageToFrame(high, 1.0F, high, high), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toStageFailed, toFrameFailed));
}

TEST_F(Lengths, InvalidFieldFactorsGiveZeroAndOneLogLine) {
    EXPECT_EQ(conversion.frameToStage(400, std::numeric_limits<Single>::quiet_NaN(), {1, 2}), 0);
    EXPECT_EQ(conversion.stageToFrame(400, std::numeric_limits<Single>::quiet_NaN(), 1, 2), 0);
    EXPECT_THAT(host.logLines, ElementsAre(toStageFailed, toFrameFailed));
}

TEST_F(Lengths, ToTheStageAndBackReturnsTheFrameLengthUpToRounding) {
    for (const Long magnification : {50, 100, 400, 1000}) {
        for (const Single factor : {1280.0F, 2560.0F, 12345.6F}) {
            for (const Long length : {-5760, -1001, -1, 0, 1, 15, 999, 2880, 5760}) {
                const Long stage = conversion.frameToStage(magnification, factor, {length, 5760});
                const Long back = conversion.stageToFrame(magnification, factor, stage, 5760);
                const double field = static_cast<double>(factor) * 100.0 / magnification;
                const double twipsPerUnit = 5760.0 / field;
                EXPECT_LE(std::abs(back - length), 0.5 * twipsPerUnit + 0.5)
                    << magnification << ' ' << length;
            }
        }
    }
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(Lengths, APairIsConvertedBothWaysWithTheMagnificationOfTheMoment) {
    Settings settings{host.tn_reg()};
    const MagnificationStore magnification{settings, host.tn_lib_proxy()};
    const PairConversion pair{magnification, conversion};
    const StagePair stage = pair.frameToStage({576, 432}, {5760, 4320});
    EXPECT_EQ(stage.x, 64);
    EXPECT_EQ(stage.y, 48);
    host.settings["TARN.INI|tn_video|VideoMag"] = "200";
    EXPECT_EQ(pair.frameToStage({576, 432}, {5760, 4320}).x, 128);
    const FramePair frame = pair.stageToFrame({128, 96}, {5760, 4320});
    EXPECT_EQ(frame.x, 576);
    EXPECT_EQ(frame.y, 432);
    EXPECT_EQ(host.callsOf("TarnGetVideoMag100Factors").size(), 3U);
}
