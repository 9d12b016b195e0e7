#include "pictures/CalibrationWalk.h"

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>

using namespace ocuva;
using State = CalibrationWalk::State;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

// A stage that arrives on request, and a picture of 640 x 480 units whose X runs against the stage's.
struct Walk : testing::Test, CalibrationWalkActions {
    StagePosition at{1000, 2000, 50};
    StagePosition target = at;
    std::vector<std::string> done;
    CalibrationWalk walk{*this};

    StagePosition position() override { return at; }
    StagePosition offsetTo(const PicturePoint& point) override {
        return {static_cast<Long>((5000.0F - point.XPic) * 0.064F),
                static_cast<Long>((point.YPic - 5000.0F) * 0.048F), 0};
    }
    void driveBy(const StagePosition& distance) override {
        target = {at.x + distance.x, at.y + distance.y, at.z + distance.z};
        done.push_back("drive to " + std::to_string(target.x) + ' ' + std::to_string(target.y) + ' ' +
                       std::to_string(target.z));
    }
    void focus() override {
        at.z += 3;
        done.emplace_back("focus");
    }
    void arrive() {
        at = target;
        walk.arrived();
    }
    void pickThree() {
        walk.pick({1000.0F, 1000.0F});
        walk.pick({9000.0F, 1000.0F});
        walk.pick({1000.0F, 9000.0F});
    }
    // Into that state by the shortest way.
    void walkTo(State state) {
        walk.start(3);
        if (state == State::Picking) {
            return;
        }
        pickThree();
        if (state == State::Ready) {
            return;
        }
        walk.enter();
        if (state == State::Left) {
            walk.leave();
            return;
        }
        while (walk.state() != state) {
            if (walk.waitsForEnter()) {
                walk.enter();
            } else {
                arrive();
            }
        }
    }
};

constexpr std::array allStates{State::Idle,    State::Picking,     State::Ready, State::DrivingThere,
                               State::AtPoint, State::DrivingBack, State::Done,  State::Left};

} // namespace

TEST_F(Walk, OfThreePointsTakesThreePicksAndFourEntersAndComesBack) {
    walk.start(3);
    EXPECT_EQ(walk.state(), State::Picking);
    pickThree();
    EXPECT_EQ(walk.state(), State::Ready);
    EXPECT_THAT(done, IsEmpty()) << "nothing drives before the first Enter";
    for (std::size_t point = 0; point < 3; ++point) {
        walk.enter();
        EXPECT_EQ(walk.state(), State::DrivingThere);
        EXPECT_EQ(walk.point(), point);
        arrive();
        EXPECT_EQ(walk.state(), State::AtPoint);
    }
    walk.enter();
    EXPECT_EQ(walk.state(), State::DrivingBack);
    arrive();
    EXPECT_EQ(walk.state(), State::Done);
    EXPECT_EQ(at, (StagePosition{1000, 2000, 50}));
    EXPECT_THAT(walk.readings(), ElementsAre(StagePosition{1256, 1808, 53}, StagePosition{744, 1808, 56},
                                             StagePosition{1256, 2192, 59}));
    EXPECT_THAT(done, ElementsAre("drive to 1256 1808 50", "focus", "drive to 744 1808 53", "focus",
                                  "drive to 1256 2192 56", "focus", "drive to 1000 2000 50"));
    walk.leave();
    EXPECT_EQ(walk.state(), State::Idle);
}

TEST_F(Walk, OfTwoPointsEndsAfterTwo) {
    walk.start(2);
    walk.pick({1000.0F, 1000.0F});
    walk.pick({9000.0F, 9000.0F});
    for (int i = 0; i < 3; ++i) {
        walk.enter();
        arrive();
    }
    EXPECT_EQ(walk.state(), State::Done);
    EXPECT_EQ(walk.readings().size(), 2U);
}

TEST_F(Walk, ReadsThePlaceThatTheOperatorHasCentredAtAPoint) {
    walkTo(State::AtPoint);
    at.x += 7; // a click on the point
    walk.arrived();
    EXPECT_EQ(walk.state(), State::AtPoint) << "the end of that move is not the walk's";
    walk.enter();
    EXPECT_THAT(walk.readings(), ElementsAre(StagePosition{1263, 1808, 53}));
    EXPECT_EQ(target.x, 744) << "the next point does not lie off by the correction";
}

TEST_F(Walk, AtAPointThatWasMissedNeitherFocusesNorReadsButTriesAgain) {
    walkTo(State::DrivingThere);
    walk.arrived(); // refused: the stage is where it was
    EXPECT_TRUE(walk.hasMissed());
    EXPECT_THAT(done, ElementsAre(HasSubstr("drive")));
    walk.enter();
    EXPECT_EQ(walk.state(), State::DrivingThere);
    EXPECT_THAT(walk.readings(), IsEmpty());
    arrive();
    EXPECT_FALSE(walk.hasMissed());
}

TEST_F(Walk, WantsThePointsAgainWhenTheStageWasMovedAfterThePicks) {
    walkTo(State::Ready);
    at.x += 100;
    walk.enter();
    EXPECT_EQ(walk.state(), State::Picking);
    EXPECT_TRUE(walk.wasMoved());
    EXPECT_EQ(walk.home().x, 1100);
    EXPECT_THAT(done, IsEmpty());
    pickThree();
    walk.enter();
    EXPECT_EQ(walk.state(), State::DrivingThere);
}

TEST_F(Walk, LeftAtAnyStepStartsNoMoveAndLeavesTheStageWhereItIs) {
    for (const State state : allStates) {
        walk.leave();
        walk.leave();
        ASSERT_EQ(walk.state(), State::Idle);
        at = {1000, 2000, 50};
        if (state != State::Idle) {
            walkTo(state);
        }
        done.clear();
        const StagePosition before = at;
        walk.leave();
        const bool isAway =
            state == State::DrivingThere || state == State::AtPoint || state == State::DrivingBack;
        EXPECT_EQ(walk.state(), isAway ? State::Left : State::Idle) << nameOf(state);
        walk.arrived();
        EXPECT_THAT(done, IsEmpty()) << nameOf(state) << ": not even a focus at the end of the move that ran";
        EXPECT_EQ(at, before);
    }
}

TEST_F(Walk, LeftOnTheWayDrivesBackAtTheNextEnter) {
    walkTo(State::AtPoint);
    walk.leave();
    walk.enter();
    EXPECT_EQ(walk.state(), State::DrivingBack);
    arrive();
    EXPECT_EQ(walk.state(), State::Idle);
    EXPECT_EQ(at, (StagePosition{1000, 2000, 50}));
}

TEST_F(Walk, RefusesWhatAStateDoesNotAllowAndNamesBothStates) {
    const auto refusal = [](const std::function<void()>& act) -> std::string {
        try {
            act();
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(refusal([this] { walk.enter(); }), "The assistant cannot go from Idle to DrivingThere");
    walkTo(State::Ready);
    EXPECT_EQ(refusal([this] { walk.start(3); }), "The assistant cannot go from Ready to Picking");
    EXPECT_EQ(refusal([this] { walk.pick({}); }), "The assistant cannot go from Ready to Ready");
}

TEST_F(Walk, IsStartedFromIdleAloneAndPickedInPickingAlone) {
    for (const State state : allStates) {
        if (state == State::Idle) {
            continue;
        }
        walkTo(state);
        EXPECT_THROW(walk.start(3), std::logic_error) << nameOf(state);
        if (state != State::Picking) {
            EXPECT_THROW(walk.pick({}), std::logic_error) << nameOf(state);
        }
        EXPECT_EQ(walk.state(), state);
        walk.leave();
        walk.leave();
    }
}
