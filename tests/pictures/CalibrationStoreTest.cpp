#include "pictures/CalibrationStore.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;

namespace {

constexpr Long most = std::numeric_limits<Long>::min(); // the longest number
constexpr Integer most16 = std::numeric_limits<Integer>::min();

struct KeptCalibration : testing::Test {
    StubHost host;
    CalibrationStore store{host.tn_reg()};

    std::string& text() { return host.settings["Ocuva.INI|Calibration|Points"]; }
};

const CalibrationPoints three{false,
                              {{{0, 10, -320, 240, 5}, {10000, 0, 320, 241, 6}, {20, 9999, -321, -240, 7}}}};

} // namespace

TEST_F(KeptCalibration, IsOneValueWrittenAtOnce) {
    EXPECT_TRUE(store.save(three));
    EXPECT_THAT(host.calls,
                ElementsAre("TarnRegisterSetString(\"Calibration\", \"Points\", \"0,10,-320,240,5 "
                            "10000,0,320,241,6 20,9999,-321,-240,7\", \"Ocuva.INI\")"));
}

TEST_F(KeptCalibration, ComesBackAsItWas) {
    const CalibrationPoint longest{most16, most16, most, most, most};
    for (const CalibrationPoints& points :
         {three, CalibrationPoints{true, {{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {}}}},
          CalibrationPoints{false, {{longest, longest, longest}}}}) {
        store.save(points);
        EXPECT_EQ(store.load(), points) << text();
    }
}

TEST_F(KeptCalibration, ForgetsTheThirdPointOfTwo) {
    store.save({true, {{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {11, 12, 13, 14, 15}}}});
    EXPECT_EQ(store.load()->points[2], CalibrationPoint{});
}

TEST_F(KeptCalibration, IsAbsentBeforeTheFirst) { EXPECT_EQ(store.load(), std::nullopt); }

TEST_F(KeptCalibration, ThatWasDamagedIsNone) {
    for (const char* damaged :
         {" ", "1", "1,2,3,4", "1,2,3,4,5", "1,2,3,4,5 ", "1,2,3,4,5 6,7,8,9", "1,2,3,4,5 6,7,8,9,10 ",
          "1,2,3,4,5 6,7,8,9,10 11,12,13,14", "1,2,3,4,5 6,7,8,9,10 11,12,13,14,15 ",
          "1,2,3,4,5 6,7,8,9,10 11,12,13,14,15 1", "40000,2,3,4,5 6,7,8,9,10",
          "1,2,3,4,9999999999 6,7,8,9,10", "1.5,2,3,4,5 6,7,8,9,10", "1;2;3;4;5 6;7;8;9;10", "x"}) {
        text() = std::string(damaged);
        EXPECT_EQ(store.load(), std::nullopt) << damaged;
    }
}

TEST_F(KeptCalibration, TellsWhenTheHostCouldNotKeepIt) {
    host.results["TarnRegisterSetString"] = 0;
    EXPECT_FALSE(store.save(three));
}
