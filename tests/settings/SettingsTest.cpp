#include "settings/Settings.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>
#include <set>

using namespace ocuva;
using testing::ElementsAre;

namespace {

struct SettingsRig : testing::Test {
    StubHost host;
    Settings settings{host.tn_reg()};
};

using SettingsGroups = SettingsRig;
using SettingsEncodings = SettingsRig;

} // namespace

TEST_F(SettingsGroups, AnEmptyProgramStoreGivesTheProgramsOwnDefaults) {
    const ViewOptions view = settings.readView();
    EXPECT_EQ(view.LiveImage, 0);
    EXPECT_EQ(view.FullImage, 0);
    EXPECT_EQ(view.ShowCross, 0);
    EXPECT_EQ(view.ShowGrid, 0);
    EXPECT_EQ(view.LargeIcons, 0);
    EXPECT_EQ(view.MoveXInverse, 0);
    EXPECT_EQ(view.MoveYInverse, 0);
    const AutofocusOptions autofocus = settings.readAutofocus();
    EXPECT_TRUE(autofocus.AutofocusOnAllImage);
    EXPECT_EQ(autofocus.AutofocusOnImageFraction, 1);
    EXPECT_FALSE(autofocus.UseTransmittedLight);
    EXPECT_EQ(settings.readFine().halfZRange, 9);
    EXPECT_EQ(settings.readFine().numberOfPoints, 7);
    EXPECT_EQ(settings.readCross().CrossSize, 1000);
    EXPECT_EQ(settings.readCross().CrossWidth, 33);
    EXPECT_EQ(settings.readGrid().GridSizeX, 4000);
    EXPECT_EQ(settings.readGrid().GridSizeY, 3000);
    EXPECT_EQ(settings.readGrid().GridLineWidth, 33);
    EXPECT_FALSE(settings.readVgaMode());
    EXPECT_EQ(settings.readVideoMag(), 400);
}

TEST_F(SettingsGroups, TheViewIsReadInItsOrderFromTheProgramStore) {
    settings.readView();
    EXPECT_THAT(host.calls,
                ElementsAre("TarnRegisterGetInt(\"Configuration\", \"LiveImage\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"FullImage\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"ShowCross\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"ShowGrid\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"LargeIcons\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"MoveXInverse\", 0, \"Ocuva.INI\")",
                            "TarnRegisterGetInt(\"Configuration\", \"MoveYInverse\", 0, \"Ocuva.INI\")"));
}

TEST_F(SettingsGroups, TheViewIsWrittenInItsOrderAsTheNumbersGiven) {
    settings.writeView({1, 0, 1, 0, 1, 0, 5});
    EXPECT_THAT(
        host.calls,
        ElementsAre("TarnRegisterSetString(\"Configuration\", \"LiveImage\", \"1\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"FullImage\", \"0\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"ShowCross\", \"1\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"ShowGrid\", \"0\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"LargeIcons\", \"1\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"MoveXInverse\", \"0\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"MoveYInverse\", \"5\", \"Ocuva.INI\")"));
}

TEST_F(SettingsGroups, EveryGroupComesBackAsItWasWritten) {
    settings.writeAutofocus({false, 6, true});
    settings.writeFine({12, 15});
    settings.writeCross({100, 2});
    settings.writeGrid({80, 60, 1});
    settings.writeVideoMag(200);
    EXPECT_FALSE(settings.readAutofocus().AutofocusOnAllImage);
    EXPECT_EQ(settings.readAutofocus().AutofocusOnImageFraction, 6);
    EXPECT_TRUE(settings.readAutofocus().UseTransmittedLight);
    EXPECT_EQ(settings.readFine().halfZRange, 12);
    EXPECT_EQ(settings.readFine().numberOfPoints, 15);
    EXPECT_EQ(settings.readCross().CrossSize, 100);
    EXPECT_EQ(settings.readCross().CrossWidth, 2);
    EXPECT_EQ(settings.readGrid().GridSizeX, 80);
    EXPECT_EQ(settings.readGrid().GridSizeY, 60);
    EXPECT_EQ(settings.readGrid().GridLineWidth, 1);
    EXPECT_EQ(settings.readVideoMag(), 200);
}

TEST_F(SettingsGroups, NothingIsCachedBetweenReads) {
    settings.readVideoMag();
    host.settings["TARN.INI|tn_video|VideoMag"] = "250";
    EXPECT_EQ(settings.readVideoMag(), 250);
}

TEST_F(SettingsEncodings, AnOddZRangeOf19IsReadAs10AndWrittenBackAs20) {
    host.settings["Ocuva.INI|Fine Parameters|Z Range"] = "19";
    const FineParameters fine = settings.readFine();
    EXPECT_EQ(fine.halfZRange, 10);
    settings.writeFine(fine);
    EXPECT_EQ(host.settings["Ocuva.INI|Fine Parameters|Z Range"], "20");
}

TEST_F(SettingsEncodings, TheHalfZRangeRoundsTiesToEven) {
    const std::pair<const char*, Long> ranges[]{{"18", 9}, {"5", 2}, {"7", 4}, {"-5", -2}, {"0", 0}};
    for (const auto& [stored, half] : ranges) {
        host.settings["Ocuva.INI|Fine Parameters|Z Range"] = stored;
        EXPECT_EQ(settings.readFine().halfZRange, half) << stored;
    }
}

TEST_F(SettingsEncodings, VgaModeIsKeptInTheShortHostStoreNotInTheIniFile) {
    settings.writeVgaMode(true);
    EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], "1");
    EXPECT_EQ(host.settings.count("TARN.INI|tn_video|VGAMode"), 0U);
    host.settings["TARN.INI|tn_video|VGAMode"] = "0";
    EXPECT_TRUE(settings.readVgaMode());
    settings.writeVgaMode(false);
    EXPECT_EQ(host.settings["TARN|tn_video|VGAMode"], "0");
}

TEST_F(SettingsEncodings, VgaModeIsOnForAnyNonZeroNumberButForTheMouseOnlyAboveZero) {
    host.settings["TARN|tn_video|VGAMode"] = "-1";
    EXPECT_TRUE(settings.readVgaMode());
    EXPECT_FALSE(settings.readVgaModeForMouse());
    host.settings["TARN|tn_video|VGAMode"] = "2";
    EXPECT_TRUE(settings.readVgaMode());
    EXPECT_TRUE(settings.readVgaModeForMouse());
}

TEST_F(SettingsEncodings, TheImageFractionIsStoredAsItsIndexPlusTwo) {
    settings.writeAutofocus({true, 0, false});
    EXPECT_EQ(host.settings["Ocuva.INI|Configuration|AutofocusOnImageFraction"], "2");
    host.settings["Ocuva.INI|Configuration|AutofocusOnImageFraction"] = "8";
    EXPECT_EQ(settings.readAutofocus().AutofocusOnImageFraction, 6);
}

TEST_F(SettingsEncodings, AutofocusFlagsReadAnyNonZeroNumberAsOnAndAreWrittenAsOneOrZero) {
    host.settings["Ocuva.INI|Configuration|UseTransmittedLight"] = "-7";
    EXPECT_TRUE(settings.readAutofocus().UseTransmittedLight);
    settings.writeAutofocus(settings.readAutofocus());
    EXPECT_EQ(host.settings["Ocuva.INI|Configuration|UseTransmittedLight"], "1");
}

TEST_F(SettingsEncodings, NumbersAtTheEndsOf32BitsNeitherWrapNorStoreHalfAGroup) {
    host.settings["Ocuva.INI|Configuration|AutofocusOnImageFraction"] = "-2147483648";
    EXPECT_EQ(settings.readAutofocus().AutofocusOnImageFraction, 1);
    host.calls.clear();
    constexpr Long high = std::numeric_limits<Long>::max();
    EXPECT_THROW(settings.writeAutofocus({true, high, true}), ArithmeticError);
    EXPECT_THROW(settings.writeFine({high, 7}), ArithmeticError);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(SettingsEncodings, TheIdleCountFallsBackToTheOneConfiguredSoFar) {
    EXPECT_EQ(settings.readServerIdleCount(3), 3);
    host.settings["Ocuva.INI|Server|ServerIdleCount"] = "5";
    EXPECT_EQ(settings.readServerIdleCount(3), 5);
}

TEST(SettingsTable, NamesEveryKeyOnce) {
    std::set<std::string> names;
    for (const SettingRow& row : settingsTable()) {
        EXPECT_TRUE(names.insert(storeName(row.store) + "|" + row.section + "|" + row.key).second) << row.key;
    }
    EXPECT_EQ(names.size(), 20U);
}
