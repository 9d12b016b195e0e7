#include "hosts/simulated/config/SeedFiles.h"

#include "hosts/common/services/Database.h"
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SimConfig.h"
#include "tests/support/TempFolder.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace hosts;
using namespace hosts::simulated;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string errorOf(const std::filesystem::path& path) {
    const auto opened = DataFolder::open(path, seedFiles);
    return std::holds_alternative<std::string>(opened) ? std::get<std::string>(opened) : "<opened>";
}

} // namespace

TEST(SeedFiles, AFirstStartSeedsAWorkingBench) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp / "deep/er/data/", seedFiles);
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    const auto& folder = std::get<DataFolder>(opened);
    EXPECT_EQ(folder.path(), temp / "deep/er/data");
    HostLog log(temp / "log");
    Stores stores(folder.path(), log);
    EXPECT_EQ(stores.getInt("Configuration", "CrossSize", 0, "Ocuva.INI"), 96);
    EXPECT_EQ(stores.getInt("Configuration", "CrossWidth", 0, "Ocuva.INI"), 2);
    EXPECT_EQ(stores.getInt("Configuration", "GridSizeX", 0, "Ocuva.INI"), 96);
    EXPECT_EQ(stores.getInt("Configuration", "GridSizeY", 0, "Ocuva.INI"), 96);
    EXPECT_EQ(stores.getInt("Configuration", "GridLineWidth", 0, "Ocuva.INI"), 1);
    EXPECT_EQ(stores.getInt("Configuration", "LiveImage", 0, "Ocuva.INI"), 1);
    EXPECT_EQ(stores.getInt("Configuration", "ShowCross", 0, "Ocuva.INI"), 1);
    EXPECT_EQ(stores.getInt("tn_video", "VideoMag", 0, "TARN.INI"), 400);
    EXPECT_EQ(stores.getInt("tn_video", "VideoMag100X", 0, "TARN.INI"), 2560);
    EXPECT_EQ(stores.getInt("tn_video", "VideoMag100Y", 0, "TARN.INI"), 1920);
    EXPECT_EQ(stores.getInt("tn_video", "CameraType", 0, "TARN.INI"), 3);
    EXPECT_EQ(stores.getInt("tn_video", "VGAMode", -1, "TARN"), 0);
    SimConfig config(simulatorConfig(folder), log);
    EXPECT_EQ(config.getLong("World", "Seed", 0, 0, 99999), 20261);
    EXPECT_THAT(temp.lines("log"), IsEmpty());
}

TEST(SeedFiles, TheSeededStandardsAreOnTheTrueSurface) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp.path(), seedFiles);
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    const auto& folder = std::get<DataFolder>(opened);
    HostLog log(temp / "log");
    Stores stores(folder.path(), log);
    Database database(folder.standards(), log);
    const SurfaceShape surface = SimConfig(simulatorConfig(folder), log).surface();
    ASSERT_EQ(stores.getInt("StandardList", "StandardListSize", 0, "Ocuva.INI"), 8);
    for (int n = 1; n <= 8; ++n) {
        const std::string name =
            stores.getString("StandardList", "Standard" + std::to_string(n), "", "Ocuva.INI");
        EXPECT_TRUE(std::filesystem::path(name).is_absolute());
        const auto handle = database.objectNew("OCUVASTD");
        ocuva::Long x = 0;
        ocuva::Long y = 0;
        ocuva::Long z = 9999;
        EXPECT_TRUE(database.objectRead(handle, name));
        EXPECT_TRUE(database.stagePos(handle, &x, &y, &z));
        EXPECT_EQ(x, -9000 + 6000 * ((n - 1) % 4));
        EXPECT_EQ(y, n <= 4 ? 4000 : -4000);
        EXPECT_LE(std::abs(z - surface.at(x, y)), 0.5);
    }
    const auto mounts = readStandards(folder.standards(), log);
    EXPECT_EQ(mounts.size(), 8u);
    EXPECT_THAT(temp.lines("log"), IsEmpty());
}

TEST(SeedFiles, TheSurfaceFormulaIsTiltAndBow) {
    EXPECT_DOUBLE_EQ(defaultSurface().at(-9000, 4000), -18.0 - 6.0 + 2e-8 * (81e6 + 16e6));
    EXPECT_EQ(defaultSurface().at(0, 0), 0.0);
}

TEST(SeedFiles, StandardsInADeepFolderAreListedByNamesShortEnoughToRead) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp / std::string(130, 'd'), seedFiles);
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    const auto& folder = std::get<DataFolder>(opened);
    HostLog log(temp / "log");
    Stores stores(folder.path(), log);
    EXPECT_EQ(stores.getString("StandardList", "Standard1", "", "Ocuva.INI"), "Quartz.std");
}

TEST(SeedFiles, WhatTheUserChangedOrDeletedStaysSo) {
    const TempFolder temp;
    ASSERT_EQ(errorOf(temp.path()), "<opened>");
    temp.write("TARN.INI", "[tn_video]\nVideoMag=100\n");
    std::filesystem::remove(temp / "standards/Pyrite.std");
    EXPECT_EQ(errorOf(temp.path()), "<opened>");
    EXPECT_EQ(temp.read("TARN.INI"), "[tn_video]\nVideoMag=100\n");
    EXPECT_FALSE(temp.has("standards/Pyrite.std"));
}

TEST(SeedFiles, ASeedingThatWasCutShortIsCompletedWithoutOverwriting) {
    const TempFolder temp;
    temp.write("standards/Quartz.std", "[OCUVASTD]\nX=1\nY=2\nZ=3\n");
    temp.write("TARN", "[tn_video]\nVGAMode=1\n");
    EXPECT_EQ(errorOf(temp.path()), "<opened>");
    EXPECT_EQ(temp.read("standards/Quartz.std"), "[OCUVASTD]\nX=1\nY=2\nZ=3\n");
    EXPECT_EQ(temp.read("TARN"), "[tn_video]\nVGAMode=1\n");
    EXPECT_THAT(temp.read("standards/Albite.std"), HasSubstr("Name=Albite"));
    EXPECT_TRUE(temp.has("simulator.ini"));
}
