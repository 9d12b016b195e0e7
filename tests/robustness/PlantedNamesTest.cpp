// Somebody else plants files and links under the names that a writer is going to use.
#include "Planted.h"
#include "base/AsideFile.h"
#include "base/FileRotation.h"
#include "hosts/common/picture/ImageFile.h"
#include "hosts/common/services/PlatformFiles.h"
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "report/Report.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <set>

using namespace ocuva;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const CalibrationPoints points{true, {{{0, 0, -320, 240, 5}, {10000, 10000, 320, -240, 5}, {}}}};
const QImage grey = sampleImage(40, 30, QImage::Format_Grayscale8);

/// A way of writing a file; it throws or answers with what is wrong.
struct Writer {
    const char* name;
    std::function<std::string(const std::filesystem::path&)> write;
};

std::string saving(const std::filesystem::path& file) {
    try {
        savePicture(file, samplePicture(grey), points);
        return {};
    } catch (const PictureFileError& error) {
        return error.what();
    }
}

std::string packing(const std::filesystem::path& file) {
    try {
        packReport(file, {"r", {}, "Ocuva 1\n"});
        return {};
    } catch (const ReportError& error) {
        return error.what();
    }
}

std::string dumping(const std::filesystem::path& file,
                    bool (*write)(const std::filesystem::path&, const std::uint32_t*, int, int, bool,
                                  std::string&)) {
    const std::vector<std::uint32_t> pixels(100, 0x808080u);
    std::string error;
    return write(file, pixels.data(), 10, 10, false, error) ? std::string() : error;
}

/// All that ever replaces a file, each with a name it would take.
const std::vector<Writer> writers{
    {"Video.tif", saving},
    {"Video.bmp", saving},
    {"Report.zip", packing},
    {"Ocuva.INI", [](const auto& file) { return hosts::replaceFile(file, "[A]\nk=1\n"); }},
    {"image.tif", [](const auto& file) { return dumping(file, hosts::saveTiff); }},
    {"image.bmp", [](const auto& file) { return dumping(file, hosts::saveBmp); }},
};

std::vector<std::string> filesIn(const TempFolder& folder) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// The name aside that a target has while it is written.
std::string nameWhileWritten(const std::filesystem::path& target) {
    AsideFile file(target);
    EXPECT_FALSE(file.create());
    return file.path().filename().string();
}

} // namespace

TEST(PlantedNames, ALinkUnderTheNameThatUsedToBeGuessedLeadsNoWriterToAPrivateFile) {
    for (const Writer& writer : writers) {
        const TempFolder folder;
        folder.write("private/file", "private");
        for (const char* ending : {".aside", ".former", ".new", ".part"}) {
            std::filesystem::create_symlink(folder / "private/file",
                                            folder / (std::string(writer.name) + ending));
        }
        std::filesystem::create_symlink(folder / "private/file", folder / "Video.pic.aside");
        EXPECT_EQ(writer.write(folder / writer.name), "") << writer.name;
        EXPECT_EQ(folder.read("private/file"), "private") << writer.name;
    }
}

TEST(PlantedNames, AnOperatorsOwnFilesThatAreCalledAsideOrFormerStay) {
    for (const Writer& writer : writers) {
        const TempFolder folder;
        for (int round = 0; round < 2; ++round) { // the second time there is something to be replaced
            for (const char* stem : {writer.name, "Video.pic"}) {
                for (const char* ending : {".aside", ".former"}) {
                    folder.write(std::string(stem) + ending, "my own");
                }
            }
            EXPECT_EQ(writer.write(folder / writer.name), "") << writer.name;
            for (const char* stem : {writer.name, "Video.pic"}) {
                for (const char* ending : {".aside", ".former"}) {
                    EXPECT_EQ(folder.read(std::string(stem) + ending), "my own") << writer.name;
                }
            }
        }
    }
}

TEST(PlantedNames, OnlyARegularFileIsEverReplaced) {
    for (const Writer& writer : writers) {
        for (const Planted kind : plantedKinds) {
            const TempFolder folder;
            plant(kind, folder / writer.name);
            const std::string before = standing(folder / writer.name);
            EXPECT_TRUE(passesWithin(std::chrono::seconds(20),
                                     [&] {
                                         EXPECT_NE(writer.write(folder / writer.name), "")
                                             << writer.name << ", " << nameOf(kind);
                                     }))
                << writer.name << ", " << nameOf(kind);
            EXPECT_EQ(standing(folder / writer.name), before) << writer.name << ", " << nameOf(kind);
            EXPECT_THAT(filesIn(folder), Not(Contains(EndsWith(".aside")))) << writer.name;
        }
    }
}

TEST(PlantedNames, ALinkToAFileOfTheOperatorsIsNotReplacedAndItsFileIsNotWritten) {
    for (const Writer& writer : writers) {
        const TempFolder folder;
        folder.write("private/file", "private");
        std::filesystem::create_symlink(folder / "private/file", folder / writer.name);
        EXPECT_THAT(writer.write(folder / writer.name), HasSubstr("It is a link")) << writer.name;
        EXPECT_EQ(folder.read("private/file"), "private") << writer.name;
        EXPECT_TRUE(std::filesystem::is_symlink(folder / writer.name)) << writer.name;
    }
}

TEST(PlantedNames, AWriteProtectedFileIsRefusedByEveryWriter) {
    for (const Writer& writer : writers) {
        const TempFolder folder;
        folder.write(writer.name, "kept");
        std::filesystem::permissions(folder / writer.name, std::filesystem::perms::owner_read);
        EXPECT_THAT(writer.write(folder / writer.name), HasSubstr("write-protected")) << writer.name;
        EXPECT_EQ(folder.read(writer.name), "kept");
    }
}

TEST(PlantedNames, AReplacedFileKeepsItsAccessRights) {
    const auto rights = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    for (const Writer& writer : writers) {
        const TempFolder folder;
        folder.write(writer.name, "private");
        std::filesystem::permissions(folder / writer.name, rights);
        EXPECT_EQ(writer.write(folder / writer.name), "") << writer.name;
        EXPECT_EQ(std::filesystem::status(folder / writer.name).permissions(), rights) << writer.name;
    }
}

TEST(AsideNames, AreNeverTheSameTwiceAndAreInTheTargetsFolder) {
    const TempFolder folder;
    std::set<std::string> names;
    for (int i = 0; i < 200; ++i) {
        names.insert(nameWhileWritten(folder / "Video.tif"));
    }
    EXPECT_EQ(names.size(), 200u);
    EXPECT_THAT(*names.begin(), AllOf(StartsWith("Video.tif.ocuva-"), EndsWith(".aside")));
    EXPECT_THAT(filesIn(folder), ElementsAre());
}

TEST(AsideNames, FitForTargetsOfTheLongestName) {
    const TempFolder folder;
    std::string twoBytesALetter = "x";
    while (twoBytesALetter.size() < 255) {
        twoBytesALetter += "\xc3\xa4";
    }
    for (const std::string& target : {std::string(255, 'n'), twoBytesALetter}) {
        EXPECT_EQ(replaceFile(folder / target, "text"), std::error_code());
        EXPECT_EQ(folder.read(target), "text");
    }
}

TEST(LeftBehind, WhatAKilledWriterLeftIsRemovedByTheNextOneOfTheSameTarget) {
    const TempFolder folder;
    for (const char* target : {"Video.tif", "Other.tif"}) {
        EXPECT_FALSE(passesWithin(std::chrono::seconds(20), [&] {
            AsideFile file(folder / target);
            EXPECT_FALSE(file.create());
            ::_exit(1); // killed: nothing is cleaned up
        }));
    }
    ASSERT_EQ(filesIn(folder).size(), 2u);
    EXPECT_EQ(replaceFile(folder / "Video.tif", "text"), std::error_code());
    EXPECT_THAT(filesIn(folder), ElementsAre(StartsWith("Other.tif.ocuva-"), "Video.tif"));
}

TEST(LeftBehind, WhatALivingWriterIsWritingIsLeftAlone) {
    const TempFolder folder;
    AsideFile first(folder / "Video.tif");
    ASSERT_FALSE(first.create());
    EXPECT_EQ(replaceFile(folder / "Video.tif", "second"), std::error_code());
    EXPECT_FALSE(first.moveIntoPlace());
    EXPECT_THAT(filesIn(folder), ElementsAre("Video.tif"));
}

TEST(LeftBehind, AFileOnlyCalledLikeOneOfOursIsNotRemoved) {
    const TempFolder folder;
    const std::string ours = nameWhileWritten(folder / "Video.tif");
    std::string almost = ours;
    almost[almost.find("ocuva-") + 6] ^= 1; // its check no longer fits
    folder.write(almost, "somebody's");
    folder.write("private", "private");
    std::filesystem::create_symlink(folder / "private", folder / ours);
    EXPECT_EQ(replaceFile(folder / "Video.tif", "text"), std::error_code());
    EXPECT_EQ(folder.read(almost), "somebody's");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / ours));
    std::filesystem::remove(folder / ours);
    std::filesystem::create_hard_link(folder / "private", folder / ours);
    EXPECT_EQ(replaceFile(folder / "Video.tif", "text"), std::error_code());
    EXPECT_TRUE(folder.has(ours)) << "a second name of another file";
    EXPECT_EQ(folder.read("private"), "private");
}

TEST(FormerFiles, AreOnlyEverRegularFiles) {
    for (const Planted kind : plantedKinds) {
        const TempFolder folder;
        plant(kind, folder / "Video.pic");
        const std::string before = standing(folder / "Video.pic");
        FormerFile former(folder / "Video.pic");
        EXPECT_TRUE(former.moveAway()) << nameOf(kind);
        EXPECT_EQ(standing(folder / "Video.pic"), before) << nameOf(kind);
    }
}

TEST(Rotation, ReplacesNothingThatIsNotARegularFile) {
    for (const Planted kind : plantedKinds) {
        const TempFolder folder;
        folder.write("log", "text");
        plant(kind, folder / "log.1");
        const std::string before = standing(folder / "log.1");
        rotateWhenFull(folder / "log", 100, {10, 1});
        EXPECT_EQ(standing(folder / "log.1"), before) << nameOf(kind);
        EXPECT_EQ(folder.read("log"), "text");
    }
}
