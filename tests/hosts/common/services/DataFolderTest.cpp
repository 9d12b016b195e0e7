#include "hosts/common/services/DataFolder.h"

#include "hosts/common/services/Database.h"
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SimConfig.h"
#include "tests/support/TempFolder.h"

#include <cmath>
#include <gmock/gmock.h>
#include <map>

using namespace hosts;
using namespace hosts::simulated;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

DataFolder::Environment environment(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

std::string errorOf(const std::filesystem::path& path) {
    const auto opened = DataFolder::open(path);
    return std::holds_alternative<std::string>(opened) ? std::get<std::string>(opened) : "<opened>";
}

} // namespace

TEST(DataFolder, OcuvaDataNamesTheFolderItself) {
    EXPECT_EQ(DataFolder::locate(environment({{"OCUVA_DATA", "/bench/data"}, {"HOME", "/home/op"}})),
              "/bench/data");
}

#ifdef _WIN32
TEST(DataFolder, WithoutOcuvaDataItIsInTheUsersDataPlace) {
    EXPECT_EQ(DataFolder::locate(environment({{"LOCALAPPDATA", "C:\\op"}})),
              std::filesystem::path("C:\\op") / "Ocuva");
}
#else
TEST(DataFolder, WithoutOcuvaDataItIsInTheUsersDataPlace) {
    EXPECT_EQ(DataFolder::locate(environment({{"XDG_DATA_HOME", "/xdg"}, {"HOME", "/home/op"}})),
              "/xdg/Ocuva");
    EXPECT_EQ(DataFolder::locate(environment({{"OCUVA_DATA", ""}, {"HOME", "/home/op"}})),
              "/home/op/.local/share/Ocuva");
    EXPECT_EQ(DataFolder::locate(environment({{"XDG_DATA_HOME", "relative"}, {"HOME", "/h"}})),
              "/h/.local/share/Ocuva");
}
#endif

TEST(DataFolder, WithoutAnyPlaceItIsAmongTheTemporaryFiles) {
    EXPECT_EQ(DataFolder::locate(environment({})), std::filesystem::temp_directory_path() / "Ocuva");
}

TEST(DataFolder, AFirstStartSeedsAWorkingBench) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp / "deep/er/data/");
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
    SimConfig config(folder.simulatorConfig(), log);
    EXPECT_EQ(config.getLong("World", "Seed", 0, 0, 99999), 20261);
    EXPECT_THAT(temp.lines("log"), IsEmpty());
}

TEST(DataFolder, TheSeededStandardsLieOnTheTrueSurface) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp.path());
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    const auto& folder = std::get<DataFolder>(opened);
    HostLog log(temp / "log");
    Stores stores(folder.path(), log);
    Database database(folder.standards(), log);
    const SurfaceShape surface = SimConfig(folder.simulatorConfig(), log).surface();
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

TEST(DataFolder, TheSurfaceFormulaIsTiltAndBow) {
    EXPECT_DOUBLE_EQ(defaultSurface().at(-9000, 4000), -18.0 - 6.0 + 2e-8 * (81e6 + 16e6));
    EXPECT_EQ(defaultSurface().at(0, 0), 0.0);
}

TEST(DataFolder, StandardsInADeepFolderAreListedByNamesShortEnoughToRead) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp / std::string(130, 'd'));
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    const auto& folder = std::get<DataFolder>(opened);
    HostLog log(temp / "log");
    Stores stores(folder.path(), log);
    EXPECT_EQ(stores.getString("StandardList", "Standard1", "", "Ocuva.INI"), "Quartz.std");
}

TEST(DataFolder, WhatTheUserChangedOrDeletedStaysSo) {
    const TempFolder temp;
    ASSERT_EQ(errorOf(temp.path()), "<opened>");
    temp.write("TARN.INI", "[tn_video]\nVideoMag=100\n");
    std::filesystem::remove(temp / "standards/Pyrite.std");
    EXPECT_EQ(errorOf(temp.path()), "<opened>");
    EXPECT_EQ(temp.read("TARN.INI"), "[tn_video]\nVideoMag=100\n");
    EXPECT_FALSE(temp.has("standards/Pyrite.std"));
}

TEST(DataFolder, ASeedingThatWasCutShortIsCompletedWithoutOverwriting) {
    const TempFolder temp;
    temp.write("standards/Quartz.std", "[OCUVASTD]\nX=1\nY=2\nZ=3\n");
    temp.write("TARN", "[tn_video]\nVGAMode=1\n");
    EXPECT_EQ(errorOf(temp.path()), "<opened>");
    EXPECT_EQ(temp.read("standards/Quartz.std"), "[OCUVASTD]\nX=1\nY=2\nZ=3\n");
    EXPECT_EQ(temp.read("TARN"), "[tn_video]\nVGAMode=1\n");
    EXPECT_THAT(temp.read("standards/Albite.std"), HasSubstr("Name=Albite"));
    EXPECT_TRUE(temp.has("simulator.ini"));
}

TEST(DataFolder, OpeningLeavesNoProbeBehind) {
    const TempFolder temp;
    ASSERT_EQ(errorOf(temp.path()), "<opened>");
    for (const auto& item : std::filesystem::directory_iterator(temp.path()))
        EXPECT_THAT(item.path().filename().string(), testing::Not(HasSubstr("probe")));
}

TEST(DataFolder, AFileInItsPlaceIsToldInOneSentence) {
    const TempFolder temp;
    temp.write("data", "precious");
    EXPECT_EQ(errorOf(temp / "data"),
              "The data folder \"" + (temp / "data").string() + "\" is a file, not a folder.");
    EXPECT_EQ(temp.read("data"), "precious");
}

TEST(DataFolder, APlaceWhereNothingCanBeMadeIsToldWithTheReason) {
    const TempFolder temp;
    temp.write("file", "");
    const auto folder = temp / "file" / "data";
    EXPECT_THAT(errorOf(folder),
                AllOf(HasSubstr('"' + folder.string() + "\" cannot be created: "), EndsWith(".")));
    EXPECT_THAT(errorOf(""), HasSubstr("its name is empty"));
}

#ifdef __linux__
TEST(DataFolder, AFolderThatTakesNoFilesIsToldWithTheReason) {
    EXPECT_THAT(errorOf("/proc/self"), AllOf(HasSubstr("\"/proc/self\" is not writable: "), EndsWith(".")));
}
#endif

TEST(DataFolder, AFileInPlaceOfTheStandardsFolderIsTold) {
    const TempFolder temp;
    temp.write("standards", "a file");
    EXPECT_THAT(errorOf(temp.path()), HasSubstr("cannot be filled for its first start: "));
    EXPECT_EQ(temp.read("standards"), "a file");
}
