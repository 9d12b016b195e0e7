#include "base/AsideFile.h"
#include "base/FileLock.h"
#include "base/LineFile.h"
#include "tests/support/TempFolder.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gmock/gmock.h>
#include <thread>
#include <vector>

namespace ocuva {
namespace {

using testing::HasSubstr;

TEST(RegularFile, IsReadFromItsBeginningAndAgainAfterRewind) {
    const TempFolder folder;
    folder.write("a", "one\r\ntwo\x1a");
    std::error_code error;
    const RegularFile file = RegularFile::openToRead(folder / "a", error);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.readAll(100, error), "one\r\ntwo\x1a");
    file.rewind();
    EXPECT_EQ(file.readAll(100, error), "one\r\ntwo\x1a");
    EXPECT_EQ(file.size(), 9u);
}

TEST(RegularFile, ThatIsAppendedToKeepsWhatWasThere) {
    const TempFolder folder;
    folder.write("a", "one\n");
    std::error_code error;
    const RegularFile file = RegularFile::openToAppend(folder / "a", error);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.write("two\n", error), 4u);
    EXPECT_EQ(folder.read("a"), "one\ntwo\n");
}

TEST(RegularFile, IsNoFolder) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "a");
    for (const auto open : {RegularFile::openToRead, RegularFile::openToAppend, RegularFile::openToLock}) {
        std::error_code error;
        EXPECT_FALSE(open(folder / "a", error).isOpen());
        EXPECT_EQ(error, std::errc::is_a_directory);
    }
    EXPECT_EQ(replaceable(folder / "a"), std::errc::is_a_directory);
}

TEST(RegularFile, ThatIsAbsentIsCalledAbsentAndOneThatIsThereIsNotMadeAgain) {
    const TempFolder folder;
    std::error_code error;
    EXPECT_FALSE(RegularFile::openToRead(folder / "none", error).isOpen());
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_FALSE(RegularFile::openToAppend(folder.path() / "none" / "none", error).isOpen());
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    folder.write("a", "mine");
    EXPECT_FALSE(RegularFile::createNew(folder / "a", true, error).isOpen());
    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(folder.read("a"), "mine");
}

TEST(RegularFile, MayBeRenamedAndRemovedWhileItIsOpen) {
    const TempFolder folder;
    folder.write("a", "text");
    std::error_code error;
    const RegularFile file = RegularFile::openToRead(folder / "a", error);
    EXPECT_TRUE(file.isStillAt(folder / "a"));
    std::filesystem::rename(folder / "a", folder / "b");
    EXPECT_FALSE(file.isStillAt(folder / "a"));
    folder.write("a", "another");
    EXPECT_FALSE(file.isStillAt(folder / "a"));
    EXPECT_TRUE(file.hasName());
    EXPECT_TRUE(std::filesystem::remove(folder / "b"));
    EXPECT_EQ(file.readAll(100, error), "text");
}

TEST(RegularFile, IsLockedByOneAtATimeAndReadByAll) {
    const TempFolder folder;
    folder.write("a", "text");
    std::error_code error;
    const FileLock first(folder / "a", std::chrono::milliseconds(0));
    EXPECT_TRUE(first.held());
    const FileLock second(folder / "a", std::chrono::milliseconds(0));
    EXPECT_FALSE(second.held());
    EXPECT_TRUE(second.isBusy());
    const RegularFile reader = RegularFile::openToRead(folder / "a", error);
    EXPECT_EQ(reader.readAll(100, error), "text");
}

TEST(RegularFile, WithoutTheRightToBeWrittenIsNotReplaced) {
    const TempFolder folder;
    folder.write("a", "precious");
    std::filesystem::permissions(folder / "a", std::filesystem::perms::owner_read);
    EXPECT_EQ(replaceFile(folder / "a", "new"), FileRefusal::writeProtected);
    EXPECT_EQ(folder.read("a"), "precious");
    std::filesystem::permissions(folder / "a", std::filesystem::perms::owner_all);
    EXPECT_FALSE(replaceFile(folder / "a", "new"));
    EXPECT_EQ(folder.read("a"), "new");
}

TEST(RegularFile, IsReplacedAlthoughAnotherProgramReadsItForAMoment) {
    const TempFolder folder;
    folder.write("a", "old");
    std::error_code error;
    RegularFile reader = RegularFile::openToRead(folder / "a", error);
    const auto reading = std::async(std::launch::async, [&reader] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        reader.close();
    });
    EXPECT_FALSE(replaceFile(folder / "a", "new"));
    EXPECT_EQ(folder.read("a"), "new");
}

TEST(RegularFile, IsReplacedAgainAndAgainWhileAnotherProgramReadsIt) {
    const TempFolder folder;
    folder.write("a", "0");
    std::atomic<bool> done = false;
    auto reading = std::async(std::launch::async, [&] {
        bool whole = true; // never half written
        while (!done) {
            whole = hosts::readFile(folder / "a", 10).text.empty() ? false : whole;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return whole;
    });
    int failures = 0;
    for (int i = 1; i <= 50; ++i) {
        failures += replaceFile(folder / "a", std::to_string(i)) ? 1 : 0;
    }
    done = true;
    EXPECT_TRUE(reading.get()) << "it is never seen half written";
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(folder.read("a"), "50");
}

#ifdef _WIN32

// Devices have their names in every folder.
TEST(RegularFile, IsNoDeviceWhateverItsFolderOrEnding) {
    const TempFolder folder;
    for (const char* name : {"NUL", "nul.txt", "CON", "COM1", "COM1.tif", "AUX", "PRN", "LPT1.csv"}) {
        for (const auto open :
             {RegularFile::openToRead, RegularFile::openToAppend, RegularFile::openToLock}) {
            std::error_code error;
            EXPECT_FALSE(open(folder / name, error).isOpen()) << name;
            EXPECT_EQ(error, FileRefusal::notRegular) << name;
        }
        std::error_code error;
        EXPECT_FALSE(RegularFile::createNew(folder / name, false, error).isOpen()) << name;
        EXPECT_EQ(replaceFile(folder / name, "text"), FileRefusal::notRegular) << name;
        EXPECT_EQ(FileLock(folder / name, std::chrono::milliseconds(0)).problem(), "It is not a regular file")
            << name;
    }
    for (const char* name : {"NULL", "COM1x.tif", "CONSOLE.csv", "aux-1"}) {
        EXPECT_FALSE(replaceFile(folder / name, "text")) << name;
        EXPECT_EQ(folder.read(name), "text");
    }
}

TEST(RegularFile, IsNoNamedPipe) {
    std::error_code error;
    EXPECT_FALSE(RegularFile::openToRead(L"\\\\.\\pipe\\ocuva-none", error).isOpen());
    EXPECT_EQ(error, FileRefusal::notRegular);
}

TEST(LineFile, ComplainsOfADeviceOnceAndGoesOn) {
    const TempFolder folder;
    std::vector<std::string> complaints;
    LineFile file(folder / "NUL", {}, [&](const std::string& trouble) { complaints.push_back(trouble); });
    EXPECT_TRUE(file.writeLine("one\n"));
    EXPECT_TRUE(file.writeLine("two\n"));
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_THAT(complaints.front(), HasSubstr("NUL cannot be opened (It is not a regular file)"));
}

#endif

} // namespace
} // namespace ocuva
