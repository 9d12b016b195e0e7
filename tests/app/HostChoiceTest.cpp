#include "app/HostChoice.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace ocuva {
namespace {

const std::filesystem::path programFolder = "programs";

HostSurroundings surroundings(bool librariesBesideProgram) {
    return {{}, {}, programFolder, [librariesBesideProgram](const std::filesystem::path& folder) {
                return librariesBesideProgram && folder == programFolder;
            }};
}

TEST(HostChoice, WithoutLibrariesItIsTheSimulatedHost) {
    EXPECT_FALSE(chooseHost(surroundings(false)).library);
}

TEST(HostChoice, ACompleteSetOfLibrariesInTheProgramsFolderIsUsed) {
    const HostChoice choice = chooseHost(surroundings(true));
    EXPECT_TRUE(choice.library);
    EXPECT_EQ(choice.folder, programFolder);
}

TEST(HostChoice, TheSimulatedHostIsTakenWhenItIsWanted) {
    HostSurroundings around = surroundings(true);
    around.wantedHost = "Sim";
    around.wantedFolder = "elsewhere";
    EXPECT_FALSE(chooseHost(around).library);
}

TEST(HostChoice, ANamedFolderComesBeforeTheProgramsOwn) {
    HostSurroundings around = surroundings(true);
    around.wantedFolder = "elsewhere";
    const HostChoice choice = chooseHost(around);
    EXPECT_TRUE(choice.library);
    EXPECT_EQ(choice.folder, "elsewhere");
}

TEST(HostChoice, WantedLibrariesThatAreNowhereAreLookedForByTheSystem) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "library";
    const HostChoice choice = chooseHost(around);
    EXPECT_TRUE(choice.library);
    EXPECT_TRUE(choice.folder.empty());
}

TEST(HostChoice, EmptyVariablesCountAsUnset) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "";
    around.wantedFolder = "";
    EXPECT_FALSE(chooseHost(around).library);
}

TEST(HostChoice, AnotherWordIsRefusedByName) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "libary";
    EXPECT_THROW(
        try { chooseHost(around); } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), "OCUVA_HOST is \"libary\"; it can be \"library\" or \"sim\".");
            throw;
        },
        std::invalid_argument);
}

} // namespace
} // namespace ocuva
