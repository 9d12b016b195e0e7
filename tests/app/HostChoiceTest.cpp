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

std::optional<std::filesystem::path> alwaysThere(const HostSurroundings& /*surroundings*/) {
    return std::filesystem::path();
}

std::optional<std::filesystem::path> nowhere(const HostSurroundings& /*surroundings*/) {
    return std::nullopt;
}

// As the program has them; none is made here.
const NamedHost rows[] = {{"library", DisplayWindows::Painter::host, findLibraries, nullptr},
                          {"sim", DisplayWindows::Painter::program, alwaysThere, nullptr}};

HostChoice choose(const HostSurroundings& around) { return chooseHost(rows, around); }

std::string chosenName(const HostSurroundings& around) { return choose(around).host->name; }

TEST(HostChoice, WithoutLibrariesItIsTheSimulatedHost) { EXPECT_EQ(chosenName(surroundings(false)), "sim"); }

TEST(HostChoice, ACompleteSetOfLibrariesInTheProgramsFolderIsUsed) {
    const HostChoice choice = choose(surroundings(true));
    EXPECT_EQ(choice.host->name, "library");
    EXPECT_EQ(choice.folder, programFolder);
}

TEST(HostChoice, TheSimulatedHostIsTakenWhenItIsWanted) {
    HostSurroundings around = surroundings(true);
    around.wantedHost = "Sim";
    around.wantedFolder = "elsewhere";
    EXPECT_EQ(chosenName(around), "sim");
}

TEST(HostChoice, ANamedFolderComesBeforeTheProgramsOwn) {
    HostSurroundings around = surroundings(true);
    around.wantedFolder = "elsewhere";
    const HostChoice choice = choose(around);
    EXPECT_EQ(choice.host->name, "library");
    EXPECT_EQ(choice.folder, "elsewhere");
}

TEST(HostChoice, RequestedLibrariesThatAreNotFoundAreLeftToTheSystem) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "library";
    const HostChoice choice = choose(around);
    EXPECT_EQ(choice.host->name, "library");
    EXPECT_TRUE(choice.folder.empty());
}

TEST(HostChoice, EmptyVariablesCountAsUnset) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "";
    around.wantedFolder = "";
    EXPECT_EQ(chosenName(around), "sim");
}

TEST(HostChoice, AThirdHostIsAnotherRow) {
    const NamedHost three[] = {
        rows[0], {"bench", DisplayWindows::Painter::program, nowhere, nullptr}, rows[1]};
    HostSurroundings around = surroundings(false);
    EXPECT_EQ(chooseHost(three, around).host->name, "sim") << "nobody wants the bench, and it is not seen";
    around.wantedHost = "BENCH";
    EXPECT_EQ(chooseHost(three, around).host->name, "bench");
    around.wantedHost = "other";
    EXPECT_THROW(chooseHost(three, around), std::invalid_argument);
}

TEST(HostChoice, AnotherWordIsRefusedByName) {
    HostSurroundings around = surroundings(false);
    around.wantedHost = "libary";
    EXPECT_THROW(
        try { choose(around); } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), "OCUVA_HOST is \"libary\"; it can be \"library\" or \"sim\".");
            throw;
        },
        std::invalid_argument);
}

} // namespace
} // namespace ocuva
