#include "standards/StageTarget.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Target : testing::Test {
    StubHost host;
    CTnStage stage{host.tn_lib_proxy(), host.tn_micro_proxy()};

    std::vector<std::string> moves() const { return host.callsOf("TarnLoadStageRelSecure"); }
};

std::string errorOf(const std::array<std::string, 3>& texts) {
    try {
        typedPosition(texts);
        return "";
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

} // namespace

TEST(TypedPosition, IsRoundedHalfToEven) {
    EXPECT_EQ(typedPosition({"12.5", "13,5", " -7 "}), (StagePosition{12, 14, -7}));
}

TEST(TypedPosition, NamesTheFieldAndTheReasonOfAnError) {
    EXPECT_EQ(errorOf({"1", "2", "12abc"}), "Z: \"12abc\" is not a number");
    EXPECT_EQ(errorOf({"", "2", "3"}), "X: Nothing was typed where a number is needed");
    EXPECT_EQ(errorOf({"1", "3000000000", "3"}), "Y: Overflow: the number does not fit into 32 bits");
}

TEST_F(Target, IsReachedByThreeRelativeMovesFromTheStagePosition) {
    host.position = {{axisX, 100}, {axisY, -50}, {axisZ, 7}};
    loadMovesTo(stage, {150, -50, 0});
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 50)", "TarnLoadStageRelSecure(2, 0)",
                                     "TarnLoadStageRelSecure(3, -7)"));
}

TEST_F(Target, AtTheStagePositionStillSendsThreeMovesOfZero) {
    loadMovesTo(stage, {0, 0, 0});
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 0)", "TarnLoadStageRelSecure(2, 0)",
                                     "TarnLoadStageRelSecure(3, 0)"));
}

TEST_F(Target, TooFarAwayFor32BitsIsAnErrorBeforeAnyMove) {
    host.position = {{axisZ, std::numeric_limits<Long>::min()}};
    EXPECT_THROW(loadMovesTo(stage, {1, 2, 3}), ArithmeticError);
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(Target, ForWhichTheSumOfAnyAxisHasNoRoomIsAnErrorBeforeAnyMove) {
    constexpr Long high = std::numeric_limits<Long>::max();
    stage.DZ(high);
    host.calls.clear();
    try {
        loadMovesTo(stage, {1, 2, 3});
        FAIL();
    } catch (const ArithmeticError& error) {
        EXPECT_STREQ(error.what(), "Z: 3 is too far away from where the stage is. Nothing was moved");
    }
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(Target, IsFarBeyondWhatASingleHasAllWholeNumbersOf) {
    EXPECT_FALSE(loadMovesTo(stage, {1 << 24, 0, 0}));
    EXPECT_TRUE(loadMovesTo(stage, {0, -(1 << 24) - 1, 0}));
}
