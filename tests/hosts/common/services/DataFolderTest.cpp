#include "hosts/common/services/DataFolder.h"

#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <map>

using namespace hosts;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

DataFolder::Environment environment(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

std::vector<SeedFile> seeds(const std::filesystem::path& folder) {
    return {{"simple.txt", folder.filename().string()}, {"standards/One.std", "one"}};
}

std::string errorOf(const std::filesystem::path& path) {
    const auto opened = DataFolder::open(path, seeds);
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

TEST(DataFolder, AFirstStartLaysTheSeedsDown) {
    const TempFolder temp;
    const auto opened = DataFolder::open(temp / "deep/er/data/", seeds);
    ASSERT_TRUE(std::holds_alternative<DataFolder>(opened));
    EXPECT_EQ(std::get<DataFolder>(opened).path(), temp / "deep/er/data");
    EXPECT_EQ(temp.read("deep/er/data/simple.txt"), "data");
    EXPECT_EQ(temp.read("deep/er/data/standards/One.std"), "one");
}

TEST(DataFolder, WhatTheUserChangedOrDeletedStaysSo) {
    const TempFolder temp;
    ASSERT_EQ(errorOf(temp.path()), "<opened>");
    temp.write("simple.txt", "mine");
    std::filesystem::remove(temp / "standards/One.std");
    EXPECT_EQ(errorOf(temp.path()), "<opened>");
    EXPECT_EQ(temp.read("simple.txt"), "mine");
    EXPECT_FALSE(temp.has("standards/One.std"));
}

TEST(DataFolder, AFolderOpenedWithoutSeedsIsSeededByTheNextWhoHasThem) {
    const TempFolder temp;
    ASSERT_TRUE(std::holds_alternative<DataFolder>(DataFolder::open(temp / "data")));
    EXPECT_FALSE(temp.has("data/simple.txt"));
    EXPECT_FALSE(temp.has("data/standards"));
    ASSERT_EQ(errorOf(temp / "data"), "<opened>");
    EXPECT_TRUE(temp.has("data/simple.txt"));
}

TEST(DataFolder, OpeningLeavesNoProbeBehind) {
    const TempFolder temp;
    ASSERT_EQ(errorOf(temp.path()), "<opened>");
    for (const auto& item : std::filesystem::directory_iterator(temp.path()))
        EXPECT_THAT(item.path().filename().string(), testing::Not(HasSubstr("probe")));
}

TEST(DataFolder, AFileInItsPlaceIsReportedInOneSentence) {
    const TempFolder temp;
    temp.write("data", "precious");
    EXPECT_EQ(errorOf(temp / "data"),
              "The data folder \"" + (temp / "data").string() + "\" is a file, not a folder.");
    EXPECT_EQ(temp.read("data"), "precious");
}

TEST(DataFolder, AFolderThatCannotBeCreatedIsReportedWithTheReason) {
    const TempFolder temp;
    temp.write("file", "");
    const auto folder = temp / "file" / "data";
    EXPECT_THAT(errorOf(folder),
                AllOf(HasSubstr('"' + folder.string() + "\" cannot be created: "), EndsWith(".")));
    EXPECT_THAT(errorOf(""), HasSubstr("its name is empty"));
}

#ifdef __linux__
TEST(DataFolder, AReadOnlyFolderIsReportedWithTheReason) {
    EXPECT_THAT(errorOf("/proc/self"), AllOf(HasSubstr("\"/proc/self\" is not writable: "), EndsWith(".")));
}
#endif

TEST(DataFolder, AFileInPlaceOfTheStandardsFolderIsReported) {
    const TempFolder temp;
    temp.write("standards", "a file");
    EXPECT_THAT(errorOf(temp.path()), HasSubstr("cannot be filled for its first start: "));
    EXPECT_EQ(temp.read("standards"), "a file");
}
