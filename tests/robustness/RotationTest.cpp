// Logs that have grown to their limit.
#include "base/FileLock.h"
#include "base/FileRotation.h"
#include "hosts/common/services/HostLog.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>

using namespace hosts;
using ocuva::FileLimit;
using ocuva::LineFile;
using ocuva::rotateWhenFull;
using testing::ElementsAre;

namespace {

/// The lines of a file and of those before it, oldest first.
std::vector<std::string> allLines(const TempFolder& folder, const std::string& name) {
    std::vector<std::string> all;
    int oldest = 0;
    while (folder.has(name + '.' + std::to_string(oldest + 1))) {
        ++oldest;
    }
    for (int number = oldest; number >= 0; --number) {
        const std::string file = number == 0 ? name : name + '.' + std::to_string(number);
        const auto lines = folder.lines(file);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    return all;
}

std::string lineOf(int writer, int number) {
    std::string text = std::to_string(writer) + ' ' + std::to_string(number) + ' ';
    text.append(20 + static_cast<unsigned>(number) % 61, 'x');
    text += '!';
    return text;
}

/// Every line of every writer is there once, whole, in the order of writing.
void expectEveryLineOnce(const std::vector<std::string>& lines, int writers, int linesEach) {
    std::vector<int> next(static_cast<std::size_t>(writers), 0);
    for (const std::string& line : lines) {
        const int writer = line.empty() ? -1 : line[0] - '0';
        ASSERT_TRUE(writer >= 0 && writer < writers) << line;
        int& number = next[static_cast<std::size_t>(writer)];
        ASSERT_EQ(line, lineOf(writer, number));
        ++number;
    }
    EXPECT_THAT(next, testing::Each(linesEach));
}

constexpr FileLimit smallWithAllKept{4096, 10'000};

} // namespace

TEST(FileRotation, AFullFileAndThoseBeforeItMoveOnAndTheLastIsDropped) {
    const TempFolder folder;
    for (const char* text : {"one", "two", "three", "four", "five"}) {
        rotateWhenFull(folder / "log", 5, {7, 3});
        folder.write("log", text);
    }
    EXPECT_EQ(folder.read("log"), "five");
    EXPECT_EQ(folder.read("log.1"), "four");
    EXPECT_EQ(folder.read("log.2"), "three");
    EXPECT_EQ(folder.read("log.3"), "two");
    EXPECT_FALSE(folder.has("log.4"));
}

TEST(FileRotation, AFileMayBeFilledToItsLastByte) {
    const TempFolder folder;
    folder.write("log", "1234");
    EXPECT_FALSE(ocuva::isFull(folder / "log", 6, {10}));
    EXPECT_TRUE(ocuva::isFull(folder / "log", 7, {10}));
    folder.write("log", "");
    EXPECT_FALSE(ocuva::isFull(folder / "log", 11, {10}))
        << "a line longer than the limit still has to stand";
    EXPECT_FALSE(ocuva::isFull(folder / "none", 11, {10}));
    EXPECT_FALSE(ocuva::isFull(folder.path(), 1u << 30, {10}));
}

TEST(FileRotation, AGapIsFilledBeforeAnythingIsDropped) {
    const TempFolder folder;
    folder.write("log", "new");
    folder.write("log.2", "older");
    folder.write("log.3", "oldest");
    rotateWhenFull(folder / "log", 100, {10, 3});
    EXPECT_EQ(folder.read("log.1"), "new");
    EXPECT_EQ(folder.read("log.2"), "older");
    EXPECT_EQ(folder.read("log.3"), "oldest");
}

TEST(FileRotation, ALinkStaysAndItsFileMoves) {
    const TempFolder folder;
    folder.write("elsewhere/real", "text");
    std::filesystem::create_symlink(folder / "elsewhere/real", folder / "log");
    rotateWhenFull(folder / "log", 100, {10, 3});
    EXPECT_EQ(folder.read("elsewhere/real.1"), "text");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "log"));
}

TEST(FileRotation, NoWriterWaitsForARotation) {
    const TempFolder folder;
    folder.write("log", "text");
    const ocuva::FileLock moving(folder / "log.lock", std::chrono::seconds(0));
    ASSERT_TRUE(moving.held());
    LineFile file(folder / "log", {5, 3});
    EXPECT_FALSE(file.writeLine("more\n"));
    EXPECT_EQ(folder.read("log"), "textmore\n");
    EXPECT_FALSE(folder.has("log.1"));
}

TEST(HostLogRotation, TheLogIsMovedAsideAtItsLimitAndThreeAreKept) {
    const TempFolder folder;
    HostLog log(folder / "log", [] { return std::string("T"); });
    log.limitTo({10, 3});
    for (int n = 1; n <= 10; ++n) {
        log.line("line" + std::to_string(n % 10)); // 8 bytes with stamp and end
    }
    EXPECT_THAT(allLines(folder, "log"), ElementsAre("T line7", "T line8", "T line9", "T line0"));
    EXPECT_EQ(folder.lines("log").size(), 1u);
    EXPECT_FALSE(folder.has("log.4"));
}

TEST(HostLogRotation, ALogThatCannotBeMovedGrowsOn) {
    const TempFolder folder;
    std::filesystem::create_directories(folder / "log.1/not empty");
    LineFile file(folder / "log", {10, 1});
    for (int n = 0; n < 5; ++n) {
        EXPECT_FALSE(file.writeLine("a line\n"));
    }
    EXPECT_EQ(folder.lines("log").size(), 5u);
}

TEST(HostLogRotation, ThreadsLoseAndTearNoLineWhileTheLogIsMoved) {
    const TempFolder folder;
    LineFile file(folder / "log", smallWithAllKept);
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int writer = 0; writer < 4; ++writer) {
        threads.emplace_back([&file, writer] {
            for (int n = 0; n < 500; ++n) {
                file.writeLine(lineOf(writer, n) + '\n');
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    expectEveryLineOnce(allLines(folder, "log"), 4, 500);
    EXPECT_TRUE(folder.has("log.10"));
}

TEST(HostLogRotation, ProcessesLoseAndTearNoLineWhileTheLogIsMoved) {
    const TempFolder folder;
    EXPECT_TRUE(inProcesses(4, [&folder](int writer) {
        LineFile file(folder / "log", smallWithAllKept);
        bool good = true;
        for (int n = 0; n < 500; ++n) {
            good = !file.writeLine(lineOf(writer, n) + '\n') && good;
        }
        return good;
    }));
    expectEveryLineOnce(allLines(folder, "log"), 4, 500);
    EXPECT_TRUE(folder.has("log.10"));
}
