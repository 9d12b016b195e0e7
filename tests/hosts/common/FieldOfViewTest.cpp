#include "hosts/common/FieldOfView.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <limits>

namespace hosts {
namespace {

struct FieldRig {
    TempFolder folder;
    HostLog log{folder / "tarn.log", [] { return std::string("now"); }};
    Stores stores{folder.path(), log};
    FieldOfView field{stores, log};

    void set(const char* key, const char* value) { stores.setString("tn_video", key, value, "TARN.INI"); }
    std::size_t logLines() const { return folder.lines("tarn.log").size(); }
};

TEST(FieldOfView, WithoutSettingsItIsTheDefaultFieldAtTheDefaultMagnification) {
    FieldRig rig;
    EXPECT_EQ(rig.field.seen().width, 640.0);
    EXPECT_EQ(rig.field.seen().height, 480.0);
    EXPECT_EQ(rig.field.factors().width, 2560.0);
    EXPECT_EQ(rig.field.factors().height, 1920.0);
    EXPECT_EQ(rig.logLines(), 0U);
}

TEST(FieldOfView, AChangedSettingIsSeenByTheNextFrame) {
    FieldRig rig;
    EXPECT_EQ(rig.field.seen().width, 640.0);
    rig.set("VideoMag", "200");
    EXPECT_EQ(rig.field.seen().width, 1280.0);
    rig.set("VideoMag100X", "1000.5");
    EXPECT_EQ(rig.field.seen().width, 500.25);
    EXPECT_EQ(rig.field.seen().height, 960.0);
}

TEST(FieldOfView, UnusableValuesGiveTheDefaultsAndOneLogLineEach) {
    FieldRig rig;
    rig.set("VideoMag", "0");
    rig.set("VideoMag100X", "-5");
    rig.set("VideoMag100Y", "wide");
    for (int frame = 0; frame < 3; ++frame) {
        EXPECT_EQ(rig.field.seen().width, 640.0);
        EXPECT_EQ(rig.field.seen().height, 480.0);
    }
    EXPECT_EQ(rig.logLines(), 3U);
    rig.set("VideoMag", "-400");
    EXPECT_EQ(rig.field.seen().width, 640.0);
    EXPECT_EQ(rig.logLines(), 4U) << "another value, another line";
    rig.set("VideoMag", "100");
    EXPECT_EQ(rig.field.seen().width, 2560.0);
}

TEST(FieldOfView, FactorsComeBackAsSet) {
    FieldRig rig;
    EXPECT_TRUE(rig.field.setFactors(2612.375F, 0.1F));
    EXPECT_EQ(static_cast<float>(rig.field.factors().width), 2612.375F);
    EXPECT_EQ(static_cast<float>(rig.field.factors().height), 0.1F);
}

TEST(FieldOfView, InvalidFactorsAreRefusedAndTheOldOnesStay) {
    FieldRig rig;
    const float none = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    rig.field.setFactors(2000.0F, 1500.0F);
    for (const float bad : {0.0F, -1.0F, none, infinity}) {
        EXPECT_FALSE(rig.field.setFactors(bad, 1000.0F));
        EXPECT_FALSE(rig.field.setFactors(1000.0F, bad));
    }
    EXPECT_EQ(rig.field.factors().width, 2000.0);
    EXPECT_EQ(rig.field.factors().height, 1500.0);
}

} // namespace
} // namespace hosts
