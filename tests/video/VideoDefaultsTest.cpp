#include "video/VideoDefaults.h"

#include "base/Numbers.h"
#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct DefaultsOfTheVideo : testing::Test {
    StubHost host;
    CTnVideoBoard board{host.tn_video()};
    VideoDefaults defaults{host.tn_lib_proxy(), host.tn_video(), host.tn_reg(), board};

    void SetUp() override {
        host.references = {{1, {11.0, 22.25}}, {2, {33.333, 100.0}}};
        host.calls.clear();
    }
};

} // namespace

TEST_F(DefaultsOfTheVideo, AReferenceIsStoredInHundredthsUnderItsKeyAndSuffix) {
    defaults.storeReference(CameraReference::Contrast, "3", 50.0);
    EXPECT_THAT(
        host.callsOf("TarnRegisterSetString"),
        ElementsAre("TarnRegisterSetString(\"tn_video\\meteor2\", \"DefaultContrast100_3\", \"5000\", "
                    "\"TARN.INI\")"));
}

TEST_F(DefaultsOfTheVideo, TheHundredthsAreRoundedHalfToEven) {
    for (const auto& [value, stored] :
         {std::pair(0.125, "12"), std::pair(0.375, "38"), std::pair(33.333, "3333")}) {
        defaults.storeReference(CameraReference::Hue, "1", value);
        EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultHue100_1"], stored);
    }
}

TEST_F(DefaultsOfTheVideo, AValueWhoseHundredthsLeave32BitsStoresNothing) {
    EXPECT_THROW(defaults.storeReference(CameraReference::Hue, "1", 1e9), ArithmeticError);
    EXPECT_THAT(host.settings, IsEmpty());
}

TEST_F(DefaultsOfTheVideo, AreTheBoardTheCameraAndItsFourReferences) {
    defaults.save();
    EXPECT_EQ(host.hostBoardType, 1);
    EXPECT_EQ(host.hostCameraType, 3);
    const std::map<std::string, std::string> expected{
        {"TARN.INI|tn_video\\meteor2|DefaultContrast100_3", "1100"},
        {"TARN.INI|tn_video\\meteor2|DefaultBrightness100_3", "2225"},
        {"TARN.INI|tn_video\\meteor2|DefaultHue100_3", "3333"},
        {"TARN.INI|tn_video\\meteor2|DefaultSaturation100_3", "10000"},
    };
    EXPECT_EQ(host.settings, expected);
}

TEST_F(DefaultsOfTheVideo, KeepTheReferencesOfEachCameraApart) {
    defaults.save();
    host.cameraType = 4;
    host.references[1].first = 12.0;
    defaults.save();
    EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultContrast100_3"], "1100");
    EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultContrast100_4"], "1200");
}

TEST_F(DefaultsOfTheVideo, HoldNoReferencesForABoardOfType0) {
    host.boardType = 0;
    defaults.save();
    defaults.storeReference(CameraReference::Contrast, "3", 50.0);
    EXPECT_THAT(host.settings, IsEmpty());
    EXPECT_EQ(host.hostBoardType, 0);
    EXPECT_EQ(host.hostCameraType, 3);
}

TEST_F(DefaultsOfTheVideo, HoldOnlyTheBoardWhenNoCameraIsChosen) {
    host.cameraType = 0;
    defaults.save();
    EXPECT_EQ(host.hostBoardType, 1);
    EXPECT_THAT(host.callsOf("TarnSetVideoCameraType"), IsEmpty());
    EXPECT_THAT(host.settings, IsEmpty());
}

TEST_F(DefaultsOfTheVideo, KeepTheDefaultOfAReferenceThatTheHostDoesNotGive) {
    host.settings["TARN.INI|tn_video\\meteor2|DefaultContrast100_3"] = "4000";
    host.references.erase(1);
    defaults.save();
    EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultContrast100_3"], "4000");
    EXPECT_EQ(host.settings["TARN.INI|tn_video\\meteor2|DefaultHue100_3"], "3333");
    EXPECT_EQ(host.settings.size(), 3U);
}

TEST_F(DefaultsOfTheVideo, AreNotStoredInPartIfAValueCannotBeStored) {
    host.references[2].second = 1e9;
    EXPECT_THROW(defaults.save(), ArithmeticError);
    EXPECT_THAT(host.settings, IsEmpty());
    EXPECT_EQ(host.hostBoardType, -1);
}
