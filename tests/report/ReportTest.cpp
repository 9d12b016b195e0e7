#include "report/Report.h"

#ifdef __linux__
#include "tests/support/Processes.h"
#include "tests/support/SmallDisk.h"
#endif
#include "tests/support/TempFolder.h"

#include <archive.h>
#include <archive_entry.h>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <memory>

using namespace ocuva;
using testing::AnyOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

/// Name to content of everything in an archive of any kind.
std::map<std::string, std::string> unpacked(const std::filesystem::path& file) {
    std::map<std::string, std::string> contents;
    const std::unique_ptr<archive, decltype(&archive_read_free)> reader(archive_read_new(),
                                                                        archive_read_free);
    archive_read_support_filter_all(reader.get());
    archive_read_support_format_all(reader.get());
    constexpr std::size_t blockBytes = 10240;
    EXPECT_EQ(archive_read_open_filename(reader.get(), file.c_str(), blockBytes), ARCHIVE_OK);
    archive_entry* entry = nullptr;
    int result = ARCHIVE_OK;
    while ((result = archive_read_next_header(reader.get(), &entry)) == ARCHIVE_OK) {
        std::string text(static_cast<std::size_t>(archive_entry_size(entry)), '\0');
        EXPECT_EQ(archive_read_data(reader.get(), text.data(), text.size()),
                  static_cast<la_ssize_t>(text.size()));
        contents[archive_entry_pathname(entry)] = text;
    }
    EXPECT_EQ(result, ARCHIVE_EOF);
    return contents;
}

std::vector<std::string> names(const std::vector<ReportFile>& files) {
    std::vector<std::string> result;
    result.reserve(files.size());
    for (const ReportFile& file : files) {
        result.push_back(file.name);
    }
    return result;
}

struct PackedReport : testing::Test {
    TempFolder data;
    TempFolder target;

    ReportContents contents(std::vector<ReportFile> files) const {
        return {"r", std::move(files), "Ocuva 1\n"};
    }
    std::map<std::string, std::string> packed(std::vector<ReportFile> files) const {
        packReport(target / "a.tar.gz", contents(std::move(files)));
        return unpacked(target / "a.tar.gz");
    }
    std::vector<std::string> left() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(target.path())) {
            found.push_back(entry.path().filename().string());
        }
        return found;
    }
    std::string refusal(const std::filesystem::path& file, const std::vector<ReportFile>& files = {}) const {
        try {
            packReport(file, contents(files));
        } catch (const ReportError& error) {
            return error.what();
        }
        return {};
    }
};

struct FilesOfAReport : testing::Test {
    TempFolder folder;
};

} // namespace

TEST_F(FilesOfAReport, AreJournalLogAndSettingsWithTheRotatedOnesInTheirOrder) {
    for (const char* name : {"tarn.log", "tarn.log.2", "tarn.log.10", "tarn.log.1", "journal.csv.1"}) {
        folder.write(name, "x");
    }
    EXPECT_THAT(names(dataFiles(folder.path(), Keeper::program)),
                ElementsAre("journal.csv", "journal.csv.1", "tarn.log", "tarn.log.1", "tarn.log.2",
                            "tarn.log.10", "Ocuva.INI", "TARN.INI", "TARN", "simulator.ini"));
}

TEST_F(FilesOfAReport, IncludeNothingElseInTheDataFolder) {
    for (const char* name : {"secret.txt", "tarn.log.lock", "tarn.log.", "tarn.log.1.gz", "tarn.log.12345",
                             "mytarn.log.1", "standards/Cu"}) {
        folder.write(name, "x");
    }
    EXPECT_THAT(names(dataFiles(folder.path(), Keeper::program)),
                ElementsAre("journal.csv", "tarn.log", "Ocuva.INI", "TARN.INI", "TARN", "simulator.ini"));
}

TEST_F(FilesOfAReport, AreOnlyTheJournalIfTheHostsLibrariesKeepTheirOwnFiles) {
    folder.write("tarn.log", "of some other run");
    EXPECT_THAT(names(dataFiles(folder.path(), Keeper::hostLibraries)), ElementsAre("journal.csv"));
}

TEST_F(FilesOfAReport, AreTheTraceAndItsOlderFilesWithAnyName) {
    folder.write("spur.txt", "x");
    folder.write("spur.txt.1", "x");
    EXPECT_THAT(names(traceFiles(folder / "spur.txt")), ElementsAre("trace.jsonl", "trace.jsonl.1"));
    EXPECT_EQ(traceFiles(folder / "spur.txt").back().path, folder / "spur.txt.1");
    EXPECT_THAT(traceFiles({}), IsEmpty());
}

TEST_F(FilesOfAReport, AreListedEvenIfTheDataFolderIsGone) {
    EXPECT_THAT(dataFiles(folder / "nowhere", Keeper::program), testing::SizeIs(6));
}

TEST_F(PackedReport, ContainsEveryFileByteForByteAndTheVersionsInOneFolder) {
    const std::string large(200000, 'a');
    data.write("one", std::string("\0\r\n\xff", 4));
    data.write("two", large);
    data.write("empty", "");
    EXPECT_THAT(
        packed({{data / "one", "one"}, {data / "two", "sub/two"}, {data / "empty", "empty"}}),
        UnorderedElementsAre(Pair("r/one", std::string("\0\r\n\xff", 4)), Pair("r/sub/two", large),
                             Pair("r/empty", ""),
                             Pair("r/versions.txt", "Ocuva 1\n\nFiles:\n  one\n  sub/two\n  empty\n")));
    EXPECT_THAT(left(), ElementsAre("a.tar.gz"));
}

TEST_F(PackedReport, IsAZipIfItsNameSaysSoInAnyLetterCase) {
    data.write("one", "text");
    packReport(target / "B.ZIP", contents({{data / "one", "one"}}));
    EXPECT_EQ(target.read("B.ZIP").substr(0, 2), "PK");
    EXPECT_THAT(unpacked(target / "B.ZIP"), testing::Contains(Pair("r/one", "text")));
    packReport(target / "C.Tar.Gz", contents({}));
    EXPECT_EQ(target.read("C.Tar.Gz").substr(0, 2), "\x1f\x8b");
}

TEST_F(PackedReport, NamesMissingFilesAndPacksTheRest) {
    data.write("two", "2");
    const auto report = packed({{data / "one", "one"}, {data / "two", "two"}});
    EXPECT_THAT(report, UnorderedElementsAre(Pair("r/two", "2"), Key("r/versions.txt")));
    EXPECT_THAT(report.at("r/versions.txt"), EndsWith("Files:\n  one is not there\n  two\n"));
}

TEST_F(PackedReport, FollowsNoLinkAndReadsNoFolder) {
    target.write("secret", "of another folder");
    std::filesystem::create_symlink(target / "secret", data / "link");
    std::filesystem::create_directory(data / "folder");
    const auto report = packed({{data / "link", "link"}, {data / "folder", "folder"}});
    EXPECT_THAT(report, UnorderedElementsAre(Key("r/versions.txt")));
    EXPECT_THAT(report.at("r/versions.txt"),
                EndsWith("  link is no regular file\n  folder is no regular file\n"));
}

#ifdef __linux__
TEST_F(PackedReport, FillsUpAFileThatHasShrunkAndSaysSo) {
    // A file of the kernel's: a page long by its size, and a line by what can be read.
    const std::filesystem::path file = "/sys/devices/system/cpu/online";
    std::ifstream stream(file);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    ASSERT_FALSE(text.empty());
    const auto report = packed({{file, "short"}});
    EXPECT_EQ(report.at("r/short").substr(0, text.size()), text);
    EXPECT_EQ(report.at("r/short").back(), '\0');
    EXPECT_THAT(report.at("r/versions.txt"),
                HasSubstr("  short could be read up to byte " + std::to_string(text.size()) + " only"));
}

TEST_F(PackedReport, OnAFullDiskKeepsTheFormerOneAndReportsTheReason) {
    EXPECT_TRUE(succeeded(startProcess([this] {
        const SmallDisk disk(target.path());
        target.write("a.zip", "before");
        data.write("large", std::string(4 * diskBytes, 'x'));
        disk.fill();
        EXPECT_THAT(refusal(target / "a.zip", {{data / "large", "large"}}),
                    AnyOf(EndsWith("a.zip\" could not be saved: No space left on device"),
                          EndsWith("a.zip\" could not be saved: File too large")));
        EXPECT_EQ(target.read("a.zip"), "before");
        disk.makeRoom();
        EXPECT_THAT(left(), ElementsAre("a.zip"));
        return !testing::Test::HasFailure();
    })));
}
#endif

TEST_F(PackedReport, IsRefusedWhereItsFolderDoesNotExist) {
    EXPECT_THAT(refusal(target / "nowhere/a.zip"), EndsWith("could not be saved: No such file or directory"));
}

TEST_F(PackedReport, IsRefusedWhereItsFolderIsAFile) {
    target.write("file", "stays");
    EXPECT_THAT(refusal(target / "file/a.zip"), EndsWith("could not be saved: Not a directory"));
    EXPECT_EQ(target.read("file"), "stays");
}

TEST_F(PackedReport, DoesNotReplaceAFolder) {
    std::filesystem::create_directory(target / "a.zip");
    EXPECT_THAT(refusal(target / "a.zip"), EndsWith("could not be saved: Is a directory"));
    EXPECT_THAT(left(), ElementsAre("a.zip"));
}

TEST_F(PackedReport, IsRefusedUnderANameWithAnotherExtension) {
    for (const char* name : {"tarn.log", "a.gz", ".zip", "a.tar"}) {
        EXPECT_THAT(refusal(target / name), EndsWith("its name must end in .tar.gz or .zip")) << name;
    }
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(PackedReport, ReplacesTheOneBefore) {
    target.write("a.tar.gz", "before");
    data.write("one", "1");
    EXPECT_THAT(packed({{data / "one", "one"}}), testing::Contains(Pair("r/one", "1")));
}
