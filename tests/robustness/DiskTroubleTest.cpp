// Disks that are full or cannot be written, and files that hold something else than they should.
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SeedFiles.h"
#include "tests/support/Processes.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace hosts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A data folder on a disk of its own, and a log elsewhere.
struct DiskRig {
    TempFolder elsewhere;
    TempFolder folder;
    SmallDisk disk{folder.path()};
    HostLog log{elsewhere / "log", [] { return std::string("T"); }};
    Stores stores{folder.path(), log, std::chrono::seconds(60)};

    std::vector<std::string> logLines() const { return elsewhere.lines("log"); }
    ocuva::Long k() { return stores.getInt("A", "k", -1, "S.INI"); }
};

/// The checks run in a process of their own, whose disk and limits end with it.
void runApart(const std::function<void(DiskRig&)>& checks) {
    EXPECT_TRUE(succeeded(startProcess([&checks] {
        DiskRig rig;
        checks(rig);
        return !testing::Test::HasFailure();
    })));
}

const std::string wholeStore = "; kept\n[A]\nk=1\nfiller=" + std::string(20'000, 'x') + "\n";

struct Rig {
    TempFolder folder;
    HostLog log{folder / "log", [] { return std::string("T"); }};
    Stores stores{folder.path(), log, std::chrono::seconds(60)};

    std::vector<std::string> logLines() const { return folder.lines("log"); }
    ocuva::Long k() { return stores.getInt("A", "k", -1, "S.INI"); }
};

} // namespace

TEST(DiskTrouble, AFullDiskKeepsTheOldStoreWholeAndTakesTheNextWriteWhenThereIsRoom) {
    runApart([](DiskRig& rig) {
        rig.folder.write("S.INI", wholeStore);
        ASSERT_EQ(rig.k(), 1);
        rig.disk.fill();
        EXPECT_FALSE(rig.stores.setString("A", "k", "2", "S.INI"));
        EXPECT_THAT(rig.logLines(),
                    ElementsAre(AllOf(HasSubstr("S.INI"), HasSubstr("could not be written"))));
        EXPECT_EQ(rig.folder.read("S.INI"), wholeStore);
        EXPECT_EQ(rig.k(), 1);
        for (const auto& entry : std::filesystem::directory_iterator(rig.folder.path())) {
            EXPECT_NE(entry.path().extension(), ".aside") << "a useless piece takes room on a full disk";
        }
        rig.disk.makeRoom();
        EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
        EXPECT_EQ(rig.k(), 2);
        EXPECT_EQ(rig.logLines().size(), 1u);
    });
}

TEST(DiskTrouble, AFullDiskCostsTheLogNoLineAndTearsNone) {
    runApart([](DiskRig& rig) {
        HostLog log(rig.folder / "log", [] { return std::string("T"); });
        const std::string first = std::string(20'000, 'a');
        log.line(first);
        rig.disk.fill();
        testing::internal::CaptureStderr();
        log.line(std::string(20'000, 'b'));
        EXPECT_THAT(testing::internal::GetCapturedStderr(), StartsWith("T bbb"));
        rig.disk.makeRoom();
        log.line("c");
        const auto lines = rig.folder.lines("log");
        EXPECT_EQ(lines.front(), "T " + first);
        EXPECT_EQ(lines.back(), "T c");
    });
}

TEST(DiskTrouble, AFullDiskIsReportedWhenTheDataFolderIsOpened) {
    runApart([](DiskRig& rig) {
        rig.disk.fill();
        const auto opened = DataFolder::open(rig.folder.path(), simulated::seedFiles);
        // Where files are only bounded in size, a small data folder has room.
        if (const std::string* const problem = std::get_if<std::string>(&opened)) {
            EXPECT_THAT(*problem, HasSubstr(rig.folder.path().string()));
        }
        rig.disk.makeRoom();
        EXPECT_TRUE(
            std::holds_alternative<DataFolder>(DataFolder::open(rig.folder.path(), simulated::seedFiles)));
        EXPECT_TRUE(rig.folder.has("standards/Quartz.std"));
    });
}

TEST(DiskTrouble, AReadOnlyFolderIsReadAndEveryFailedWriteLogged) {
    runApart([](DiskRig& rig) {
        rig.folder.write("S.INI", wholeStore);
        ASSERT_EQ(rig.k(), 1);
        rig.log.line("before");
        ::chmod((rig.elsewhere / "log").c_str(), 0666);
        rig.disk.protect();
        EXPECT_FALSE(rig.stores.setString("A", "k", "2", "S.INI"));
        EXPECT_FALSE(rig.stores.setString("A", "k", "2", "New.INI"));
        EXPECT_THAT(rig.logLines(), ElementsAre("T before", HasSubstr("S.INI could not be written"),
                                                HasSubstr("New.INI could not be written")));
        EXPECT_EQ(rig.folder.read("S.INI"), wholeStore);
        EXPECT_EQ(rig.k(), 1);
        EXPECT_FALSE(
            std::holds_alternative<DataFolder>(DataFolder::open(rig.folder.path(), simulated::seedFiles)));
    });
}

TEST(DiskTrouble, GarbageInPlaceOfAStoreIsKeptWholeAndGivesDefaults) {
    Rig rig;
    ASSERT_TRUE(rig.stores.setString("A", "k", "1", "S.INI"));
    std::string garbage(100'000, '\0');
    for (std::size_t i = 0; i < garbage.size(); ++i) {
        garbage[i] = static_cast<char>(i * 2654435761u >> 13);
    }
    rig.folder.write("S.INI", garbage);
    EXPECT_EQ(rig.k(), -1);
    EXPECT_EQ(rig.k(), -1);
    EXPECT_EQ(rig.folder.read("S.INI"), garbage);
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("cannot be read, defaults hold")));
    EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(rig.k(), 2);
    EXPECT_EQ(rig.folder.read("S.INI.damaged-1"), garbage);
}

TEST(DiskTrouble, AFileOfFiftyMegabytesIsNotAStoreAndIsKept) {
    Rig rig;
    constexpr std::uintmax_t size = 50u * 1000u * 1000u;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    std::filesystem::resize_file(rig.folder / "S.INI", size);
    EXPECT_EQ(rig.k(), -1);
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("larger than 16 MiB")));
    EXPECT_EQ(std::filesystem::file_size(rig.folder / "S.INI"), size);
    EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(rig.k(), 2);
    EXPECT_EQ(std::filesystem::file_size(rig.folder / "S.INI.damaged-1"), size);
}
