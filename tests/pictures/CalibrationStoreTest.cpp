#include "pictures/CalibrationStore.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;

namespace {

constexpr Long most = std::numeric_limits<Long>::min(); // the longest number
constexpr Integer most16 = std::numeric_limits<Integer>::min();

struct CalibrationKept : testing::Test {
    StubHost host;
    CalibrationStore store{host.tn_reg()};

    std::string& text() { return host.settings["Ocuva.INI|Calibration|Points"]; }
};

const CalibrationPoints keptPoints{
    false, {{{0, 10, -320, 240, 5}, {10000, 0, 320, 241, 6}, {20, 9999, -321, -240, 7}}}};
const KeptCalibration three{keptPoints, ViewPlace{{100, -200, 5}, 400}};

} // namespace

TEST_F(CalibrationKept, IsOneValueWrittenAtOnce) {
    EXPECT_TRUE(store.save(three));
    EXPECT_THAT(host.calls,
                ElementsAre("TarnRegisterSetString(\"Calibration\", \"Points\", \"0,10,-320,240,5 "
                            "10000,0,320,241,6 20,9999,-321,-240,7 @100,-200,5,400\", \"Ocuva.INI\")"));
}

TEST_F(CalibrationKept, ComesBackAsItWas) {
    const CalibrationPoint longest{most16, most16, most, most, most};
    const CalibrationPoints two{true, {{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {}}}};
    for (const KeptCalibration& kept :
         {three, KeptCalibration{keptPoints, {}}, KeptCalibration{two, {}},
          KeptCalibration{two, ViewPlace{{1, 2, 3}, 4}},
          KeptCalibration{{false, {{longest, longest, longest}}}, ViewPlace{{most, most, most}, most}}}) {
        store.save(kept);
        EXPECT_EQ(store.load(), kept) << text();
    }
}

TEST_F(CalibrationKept, OfAnEarlierVersionHasNoView) {
    text() = "1,2,3,4,5 6,7,8,9,10";
    ASSERT_TRUE(store.load());
    EXPECT_EQ(store.load()->place, std::nullopt);
}

TEST_F(CalibrationKept, ForgetsTheThirdPointOfTwo) {
    store.save({{true, {{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {11, 12, 13, 14, 15}}}}, {}});
    EXPECT_EQ(store.load()->points.points[2], CalibrationPoint{});
}

TEST_F(CalibrationKept, IsAbsentBeforeTheFirst) { EXPECT_EQ(store.load(), std::nullopt); }

TEST_F(CalibrationKept, ThatWasDamagedIsNone) {
    for (const char* damaged : {" ",
                                "1",
                                "1,2,3,4",
                                "1,2,3,4,5",
                                "1,2,3,4,5 ",
                                "1,2,3,4,5 6,7,8,9",
                                "1,2,3,4,5 6,7,8,9,10 ",
                                "1,2,3,4,5 6,7,8,9,10 11,12,13,14",
                                "1,2,3,4,5 6,7,8,9,10 11,12,13,14,15 ",
                                "1,2,3,4,5 6,7,8,9,10 11,12,13,14,15 1",
                                "40000,2,3,4,5 6,7,8,9,10",
                                "1,2,3,4,9999999999 6,7,8,9,10",
                                "1.5,2,3,4,5 6,7,8,9,10",
                                "1;2;3;4;5 6;7;8;9;10",
                                "x",
                                "1,2,3,4,5 6,7,8,9,10 @",
                                "1,2,3,4,5 6,7,8,9,10 @1,2,3",
                                "1,2,3,4,5 6,7,8,9,10 @1,2,3,4,5",
                                "1,2,3,4,5 6,7,8,9,10 1,2,3,4",
                                " @1,2,3,4"}) {
        text() = std::string(damaged);
        EXPECT_EQ(store.load(), std::nullopt) << damaged;
    }
}

TEST_F(CalibrationKept, ReportsThatTheHostCouldNotStoreIt) {
    host.results["TarnRegisterSetString"] = 0;
    EXPECT_FALSE(store.save(three));
}
