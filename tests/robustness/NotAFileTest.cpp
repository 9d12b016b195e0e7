// The program's own file names refer to pipes, devices, folders and links.
#include "Planted.h"
#include "base/FileLock.h"
#include "base/LineFile.h"
#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/config/SeedFiles.h"
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "report/Report.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::HasSubstr;

namespace {

constexpr std::chrono::seconds bound{20};

/// For each kind of thing under that name: the checks in a process of their own, which may not hang.
void withEachAt(const std::string& name, const std::function<void(const TempFolder&)>& checks) {
    for (const Planted kind : plantedKinds) {
        const TempFolder folder;
        std::filesystem::create_directories((folder / name).parent_path());
        plant(kind, folder / name);
        const std::string before = standing(folder / name);
        EXPECT_TRUE(passesWithin(bound, [&] { checks(folder); })) << name << ": " << nameOf(kind);
        EXPECT_EQ(standing(folder / name), before) << name << ": " << nameOf(kind);
    }
}

} // namespace

TEST(NotAFile, TheHostsLogGoesToStderr) {
    withEachAt("tarn.log", [](const TempFolder& folder) {
        testing::internal::CaptureStderr();
        hosts::HostLog log(folder / "tarn.log", [] { return std::string("T"); });
        log.line("kept");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "T kept\n");
    });
}

TEST(NotAFile, ALineFileReportsOnceAndContinues) {
    withEachAt("journal.csv", [](const TempFolder& folder) {
        int complaints = 0;
        LineFile file(folder / "journal.csv", {}, [&complaints](const std::string&) { ++complaints; });
        EXPECT_TRUE(file.writeLine("one\n"));
        EXPECT_TRUE(file.writeLine("two\n"));
        EXPECT_EQ(complaints, 1);
    });
}

TEST(NotAFile, ALockThatCannotBeObtainedSaysWhyAtOnce) {
    withEachAt("lock", [](const TempFolder& folder) {
        const auto begin = std::chrono::steady_clock::now();
        const FileLock lock(folder / "lock", std::chrono::seconds(60));
        EXPECT_FALSE(lock.held());
        EXPECT_FALSE(lock.isBusy());
        EXPECT_NE(lock.problem(), "");
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    });
}

TEST(NotAFile, AStoreGivesDefaultsAndIsNotWritten) {
    for (const char* name : {"S.INI", "S.INI.lock"}) {
        withEachAt(name, [](const TempFolder& folder) {
            hosts::HostLog log(folder / "log");
            hosts::Stores stores(folder.path(), log, std::chrono::seconds(1));
            EXPECT_EQ(stores.getInt("A", "k", -1, "S.INI"), -1);
            EXPECT_FALSE(stores.setString("A", "k", "1", "S.INI"));
        });
    }
}

TEST(NotAFile, ADataFolderOpensOrSaysWhyNot) {
    for (const char* name : {"tarn.log", "Ocuva.INI", "TARN", "simulator.ini", "first-start.lock",
                             "first-start.done", "standards/Quartz.std", "Ocuva.INI.aside"}) {
        withEachAt(name, [](const TempFolder& folder) {
            const auto opened = hosts::DataFolder::open(folder.path(), hosts::simulated::seedFiles);
            if (const std::string* const problem = std::get_if<std::string>(&opened)) {
                EXPECT_THAT(*problem, HasSubstr(folder.path().string()));
            }
        });
    }
}

TEST(NotAFile, APictureIsRefusedWithAReason) {
    for (const char* name : {"x.tif", "x.bmp"}) {
        withEachAt(name, [name](const TempFolder& folder) {
            try {
                openPicture(folder / name);
                ADD_FAILURE() << "no file, and opened";
            } catch (const PictureFileError& error) {
                EXPECT_THAT(error.what(), HasSubstr("could not be opened"));
            }
        });
    }
}

TEST(NotAFile, ADescriptionIsRefusedWithAReason) {
    withEachAt("x.pic", [](const TempFolder& folder) {
        EXPECT_THROW(readDescription(folder / "x.tif"), PictureDescriptionError);
        EXPECT_THROW(writeDescription(folder / "x.tif", {}), PictureDescriptionError);
    });
}

TEST(NotAFile, AReportPacksTheRestAndSaysSo) {
    withEachAt("journal.csv", [](const TempFolder& folder) {
        packReport(folder / "r.zip", {"r", {{folder / "journal.csv", "journal.csv"}}, "Ocuva 1\n"});
        EXPECT_TRUE(folder.has("r.zip"));
    });
}
