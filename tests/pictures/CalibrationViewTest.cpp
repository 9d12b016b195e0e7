#include "pictures/ViewedCalibration.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;

namespace {

const ViewPlace made{{100, -200, 5}, 400};
const CalibrationView liveHere{{}, made};
const CalibrationView storedSomewhere{"/pictures/a.tif", {}};

CalibrationView liveAt(Long x, Long y, Long magnification = 400, Long z = 5) {
    return {{}, ViewPlace{{x, y, z}, magnification}};
}

struct ViewedFrom : testing::Test {
    StubHost host;
    Calibration calibration{host.tn_lib_proxy()};

    void SetUp() override {
        calibration.points = {true, {{{0, 0, -320, -240, 0}, {10000, 10000, 320, 240, 0}, {}}}};
        calibration.view = liveHere;
        calibration.ComputePicturePlan();
        host.planSolution = {0.5, -0.25, 12.0};
        calibration.ComputeStagePlan();
    }
    ViewedCalibration seenFrom(const CalibrationView& view) { return {calibration, view}; }
};

} // namespace

TEST(RelationOfViews, IsTheSameWithinAUnitAtAnyHeight) {
    for (const Long dx : {-1, 0, 1}) {
        for (const Long dy : {-1, 0, 1}) {
            EXPECT_EQ(relationTo(liveHere, liveAt(100 + dx, -200 + dy, 400, 900)).kind,
                      ViewRelation::Kind::Same);
        }
    }
}

TEST(RelationOfViews, IsADistanceWithItsSigns) {
    for (const Long dx : {-5000, -2, 0, 2, 5000}) {
        for (const Long dy : {-1000, -2, 2, 1000}) {
            EXPECT_EQ(relationTo(liveHere, liveAt(100 + dx, -200 + dy)),
                      (ViewRelation{ViewRelation::Kind::Moved, dx, dy}));
        }
    }
}

TEST(RelationOfViews, DoesNotOverflowFromOneEndToTheOther) {
    constexpr Long least = std::numeric_limits<Long>::min();
    constexpr Long most = std::numeric_limits<Long>::max();
    const ViewRelation relation = relationTo(liveAt(least, most), liveAt(most, least));
    EXPECT_EQ(relation, (ViewRelation{ViewRelation::Kind::Moved, 4294967295, -4294967295}));
}

TEST(RelationOfViews, IsUnknownWithoutAPlaceAndNoneAtAnotherMagnification) {
    EXPECT_EQ(relationTo(liveHere, {}).kind, ViewRelation::Kind::Unknown);
    EXPECT_EQ(relationTo({}, liveHere).kind, ViewRelation::Kind::Unknown);
    EXPECT_EQ(relationTo({}, {}).kind, ViewRelation::Kind::Unknown);
    EXPECT_EQ(relationTo(liveHere, liveAt(100, -200, 100)).kind, ViewRelation::Kind::OtherMagnification);
}

TEST(RelationOfViews, OfAStoredPictureToItselfIsTheSameForAnyPlace) {
    EXPECT_EQ(relationTo(storedSomewhere, storedSomewhere).kind, ViewRelation::Kind::Same);
    EXPECT_EQ(relationTo(storedSomewhere, {"/pictures/b.tif", {}}).kind, ViewRelation::Kind::Unknown);
}

TEST(ViewsOfPickedPoints, AgreeWhileTheStageStaysAndCountOnlyInUse) {
    PickedViews picked;
    EXPECT_TRUE(picked.agree(3));
    EXPECT_EQ(picked.common(3), std::nullopt);
    picked.pick(0, liveHere);
    picked.pick(1, liveAt(101, -200));
    picked.pick(2, liveAt(900, -200));
    EXPECT_TRUE(picked.agree(2));
    EXPECT_EQ(picked.common(2), liveHere);
    EXPECT_FALSE(picked.agree(3));
    EXPECT_EQ(picked.common(3), CalibrationView{});
    picked.takeOver(storedSomewhere);
    EXPECT_EQ(picked.common(3), storedSomewhere);
}

TEST_F(ViewedFrom, TheLiveImageAnywherePositionsAreThoseOfTheCalibrationItself) {
    for (const CalibrationView& view :
         {liveHere, liveAt(5100, 800), liveAt(100, -200, 100), CalibrationView{}}) {
        EXPECT_TRUE(seenFrom(view).givesPositions());
        EXPECT_EQ(seenFrom(view).position(2500.0F, 5000.0F),
                  calibration.ComputeStagePosition(2500.0F, 5000.0F));
    }
    EXPECT_FALSE(seenFrom(liveHere).isElsewhere());
    EXPECT_TRUE(seenFrom(liveAt(5100, 800)).isElsewhere());
}

TEST_F(ViewedFrom, AStoredPicturePositionsAreMovedAndZIsOnThePlaneThere) {
    const CalibrationView stored{"/pictures/a.tif", ViewPlace{{5100, 800, 0}, 400}};
    EXPECT_TRUE(seenFrom(stored).givesPositions());
    // -160 + 5000, 0 + 1000; 0.5 * 4840 - 0.25 * 1000 + 12
    EXPECT_EQ(seenFrom(stored).position(2500.0F, 5000.0F), (StagePosition{4840, 1000, 2182}));
}

TEST_F(ViewedFrom, AStoredPictureThatItDoesNotBelongToThereAreNone) {
    EXPECT_FALSE(seenFrom(storedSomewhere).givesPositions());
    EXPECT_FALSE(seenFrom({"/pictures/a.tif", ViewPlace{{100, -200, 5}, 100}}).givesPositions());
    EXPECT_TRUE(seenFrom(storedSomewhere).isElsewhere());
    calibration.view.reset();
    EXPECT_FALSE(seenFrom({"/pictures/a.tif", made}).givesPositions());
}

TEST_F(ViewedFrom, NoCalibrationHasNoRelationAndIsNotElsewhere) {
    calibration.points = {};
    EXPECT_EQ(seenFrom(liveAt(5100, 800)).relation(), std::nullopt);
    EXPECT_FALSE(seenFrom(storedSomewhere).isElsewhere());
}

TEST_F(ViewedFrom, FarAwayAPositionThatLeaves32BitsIsAnError) {
    const CalibrationView stored{"/pictures/a.tif",
                                 ViewPlace{{std::numeric_limits<Long>::max(), -200, 0}, 400}};
    EXPECT_THROW(seenFrom(stored).position(10000.0F, 0.0F), std::exception);
}
