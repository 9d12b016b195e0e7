#include "hosts/common/services/HostLog.h"

#include "tests/support/Pattern.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <thread>

using hosts::HostLog;
using ocuva::LineFile;
using testing::ElementsAre;

namespace {

std::string logged(const std::string& text) {
    const TempFolder folder;
    HostLog(folder / "log", [] { return std::string("T"); }).line(text);
    return folder.read("log");
}

} // namespace

TEST(HostLog, ALineBeginsWithLocalDateAndTimeToTheMillisecond) {
    const TempFolder folder;
    HostLog(folder / "tarn.log").line("Hello");
    ASSERT_EQ(folder.lines("tarn.log").size(), 1u);
    EXPECT_THAT(folder.lines("tarn.log")[0],
                ocuva::HasForm("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}[.][0-9]{3} Hello"));
}

TEST(HostLog, LineEndsAtTheEndOfATextAreRemoved) {
    EXPECT_EQ(logged("text"), "T text\n");
    EXPECT_EQ(logged("text\n"), "T text\n");
    EXPECT_EQ(logged("text\r\n"), "T text\n");
    EXPECT_EQ(logged("\r\n"), "T \n");
    EXPECT_EQ(logged(""), "T \n");
}

TEST(HostLog, LineBreaksInsideATextAreShownAsBars) {
    EXPECT_EQ(logged("a\r\nb\nc\rd\n"), "T a | b | c | d\n");
}

TEST(HostLog, LinesAreAddedToWhatIsThere) {
    const TempFolder folder;
    folder.write("log", "old\n");
    HostLog log(folder / "log", [] { return std::string("T"); });
    log.line("one");
    log.line("two");
    EXPECT_THAT(folder.lines("log"), ElementsAre("old", "T one", "T two"));
}

TEST(HostLog, ALineThatTheFileCannotTakeGoesToStderr) {
    const TempFolder folder;
    folder.write("file", "");
    HostLog log(folder / "file/log", [] { return std::string("T"); });
    testing::internal::CaptureStderr();
    log.line("lost?\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "T lost?\n");
}

#ifndef _WIN32 // Wine keeps a deleted file under its name until it is closed, and does not say so
TEST(HostLog, ADeletedFileIsCreatedAgain) {
    const TempFolder folder;
    HostLog log(folder / "log", [] { return std::string("T"); });
    log.line("one");
    std::filesystem::remove(folder / "log");
    log.line("two");
    EXPECT_EQ(folder.read("log"), "T two\n");
}
#endif

TEST(HostLog, AFaultyTimeSourceCostsNoLine) {
    const TempFolder folder;
    HostLog log(folder / "log", []() -> std::string { throw std::runtime_error("no time"); });
    testing::internal::CaptureStderr();
    log.line("still here");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "still here\n");
}

TEST(HostLog, LinesOfSeveralThreadsStayWhole) {
    const TempFolder folder;
    HostLog log(folder / "log", [] { return std::string("T"); });
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&log, i] {
            for (int n = 0; n < 100; ++n)
                log.line(std::string(200, static_cast<char>('a' + i)));
        });
    for (auto& thread : threads)
        thread.join();
    const auto lines = folder.lines("log");
    EXPECT_EQ(lines.size(), 400u);
    for (const auto& line : lines)
        EXPECT_EQ(line, std::string(200, line[2]).insert(0, "T "));
}

TEST(LineFile, AFailureIsReportedInTheSystemsWords) {
    const TempFolder folder;
    EXPECT_FALSE(LineFile(folder / "lines").writeLine("x\n"));
    EXPECT_EQ(folder.read("lines"), "x\n");
    const std::error_code error = LineFile(folder / "none/lines").writeLine("x\n");
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(error.message(), std::system_category().message(error.value()));
}
