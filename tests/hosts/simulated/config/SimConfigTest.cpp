#include "hosts/simulated/config/SimConfig.h"

#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

using namespace hosts;
using namespace hosts::simulated;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct ConfigRig {
    explicit ConfigRig(const std::string& text) { folder.write("simulator.ini", text); }

    std::vector<std::string> log() const { return folder.lines("log"); }

    TempFolder folder;
    HostLog hostLog{folder / "log"};
};

} // namespace

TEST(SimConfig, ValuesInsideTheirRangeAreTaken) {
    ConfigRig rig("[stage]\r\nSpeedX = 1.5e3\r\nXMin=-300\r\n");
    SimConfig config(rig.folder / "simulator.ini", rig.hostLog);
    EXPECT_EQ(config.getDouble("Stage", "SpeedX", 8000, 1, 2000), 1500);
    EXPECT_EQ(config.getLong("Stage", "XMin", -25000, -300, 0), -300);
    EXPECT_EQ(config.getLong("Stage", "XMax", 25000, 0, 100000), 25000);
    EXPECT_THAT(rig.log(), IsEmpty());
}

TEST(SimConfig, AnUnusableValueGivesTheDefaultAndOneLogLine) {
    for (const char* value : {"", "fast", "4000 ; slower", "0.5", "1e9", "nan"}) {
        ConfigRig rig(std::string("[Stage]\nSpeedX=") + value + "\n");
        SimConfig config(rig.folder / "simulator.ini", rig.hostLog);
        EXPECT_EQ(config.getDouble("Stage", "SpeedX", 8000, 1, 1e7), 8000);
        EXPECT_EQ(config.getDouble("Stage", "SpeedX", 8000, 1, 1e7), 8000);
        EXPECT_THAT(rig.log(),
                    ElementsAre(AllOf(HasSubstr("simulator.ini"), HasSubstr("[Stage] SpeedX="),
                                      HasSubstr(std::string("\"") + value + "\""), HasSubstr("8000"))));
    }
}

TEST(SimConfig, AFractionIsNotAWholeNumber) {
    ConfigRig rig("[Stage]\nXMin=-2.5\n");
    SimConfig config(rig.folder / "simulator.ini", rig.hostLog);
    EXPECT_EQ(config.getLong(settings::xMin), -25000);
    EXPECT_EQ(rig.log().size(), 1u);
}

TEST(SimConfig, AMissingFileGivesDefaultsSilently) {
    const TempFolder folder;
    HostLog log(folder / "log");
    SimConfig config(folder / "simulator.ini", log);
    EXPECT_EQ(config.getDouble(settings::timeFactor), 1);
    EXPECT_FALSE(folder.has("log"));
}

TEST(SimConfig, AnUnreadableFileGivesDefaultsAndOneLogLine) {
    ConfigRig rig(std::string("\0\1\2", 3));
    SimConfig config(rig.folder / "simulator.ini", rig.hostLog);
    EXPECT_EQ(config.getLong(settings::seed), 20261);
    EXPECT_THAT(rig.log(), ElementsAre(HasSubstr("it holds binary data")));
}

TEST(SimConfig, TheSeededFileGivesEverySettingItsDefaultInsideItsRange) {
    ConfigRig rig(defaultSimConfigText());
    SimConfig config(rig.folder / "simulator.ini", rig.hostLog);
    const IniText text = IniText::parse(defaultSimConfigText()).value_or(IniText());
    for (const SimSetting* setting : simSettings) {
        EXPECT_TRUE(text.value(setting->section, setting->key)) << setting->key;
        EXPECT_EQ(config.getDouble(*setting), setting->defaultValue) << setting->key;
    }
    EXPECT_THAT(rig.log(), IsEmpty());
}

TEST(SimConfig, TheSurfaceIsAsConfigured) {
    ConfigRig rig(
        "[Optics]\nSurfaceHeight=10\nSurfaceTiltX=0.5\nSurfaceTiltY=-0.25\nSurfaceCurvature=1e-5\n");
    const SurfaceShape surface = SimConfig(rig.folder / "simulator.ini", rig.hostLog).surface();
    EXPECT_DOUBLE_EQ(surface.at(100, 200), 10 + 50 - 50 + 0.5);
}
