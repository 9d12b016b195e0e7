// Traces that have grown to their limit.
#include "hostlink/TraceWriter.h"
#include "hostlink/TracedCall.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <optional>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr std::uintmax_t mebibyte = 1024u * 1024u;

/// What it says, and the limit it takes, for the text of OCUVA_TRACE_MAX_MIB.
struct Taken {
    std::uintmax_t maxBytes;
    std::string said;
};
Taken taken(const char* text) {
    testing::internal::CaptureStderr();
    const FileLimit limit = traceLimit(text);
    return {limit.maxBytes, testing::internal::GetCapturedStderr()};
}

std::uint64_t sequenceNumber(const std::string& line) {
    constexpr std::string_view head = "{\"seq\":";
    return line.starts_with(head) && line.ends_with('}') ? std::stoull(line.substr(head.size())) : 0;
}

} // namespace

TEST(TraceLimit, IsAWholeNumberOfMebibytesAndEightByDefault) {
    EXPECT_EQ(taken(nullptr).maxBytes, 8 * mebibyte);
    EXPECT_THAT(taken(nullptr).said, IsEmpty());
    EXPECT_EQ(taken("1").maxBytes, mebibyte);
    EXPECT_EQ(taken("1024").maxBytes, 1024 * mebibyte);
    EXPECT_THAT(taken("1024").said, IsEmpty());
}

TEST(TraceLimit, AnyOtherTextIsReportedAndEightIsUsed) {
    for (const char* text : {"", "0", "-1", "1025", "8 MiB", "2.5", "99999999999", "x"}) {
        const Taken result = taken(text);
        EXPECT_EQ(result.maxBytes, 8 * mebibyte) << text;
        EXPECT_THAT(result.said, HasSubstr("OCUVA_TRACE_MAX_MIB"));
    }
}

TEST(TraceRotation, NumbersContinueFromFileToFile) {
    const TempFolder folder;
    ::setenv("OCUVA_TRACE_MAX_MIB", "1", 1);
    std::optional<Trace> trace(std::in_place, folder / "trace");
    ::unsetenv("OCUVA_TRACE_MAX_MIB");
    constexpr std::uint64_t lines = 25'000;
    const std::string body =
        "\"lib\":\"tn_video\",\"fn\":\"TarnVideoBoardInit\",\"in\":[],\"out\":[],\"ret\":1";
    for (std::uint64_t n = 0; n < lines; ++n) {
        trace->write(body);
    }
    trace.reset();
    std::uint64_t number = 0;
    for (const char* file : {"trace.2", "trace.1", "trace"}) {
        ASSERT_TRUE(folder.has(file));
        EXPECT_LE(std::filesystem::file_size(folder / file), mebibyte);
        for (const std::string& line : folder.lines(file)) {
            ASSERT_EQ(sequenceNumber(line), ++number) << line;
        }
    }
    EXPECT_EQ(number, lines);
}

TEST(TraceRotation, AMovedOrDeletedTraceIsStartedAgain) {
    const TempFolder folder;
    TraceWriter writer(folder / "trace");
    writer.writeLine("one\n");
    std::filesystem::rename(folder / "trace", folder / "kept");
    writer.writeLine("two\n");
    EXPECT_EQ(folder.read("kept"), "one\n");
    EXPECT_EQ(folder.read("trace"), "two\n");
    std::filesystem::remove(folder / "trace");
    writer.writeLine("three\n");
    EXPECT_EQ(folder.read("trace"), "three\n");
}

TEST(TraceRotation, ATraceWhoseFolderIsGoneEndsWithOneReport) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "sub");
    TraceWriter writer(folder / "sub/trace");
    std::filesystem::remove_all(folder / "sub");
    testing::internal::CaptureStderr();
    writer.writeLine("one\n");
    writer.writeLine("two\n");
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_FALSE(writer.isOpen());
}

TEST(TraceRotation, ProcessesThatTraceIntoOneFileLoseAndTearNoLine) {
    const TempFolder folder;
    constexpr int linesEach = 500;
    EXPECT_TRUE(inProcesses(3, [&folder](int number) {
        TraceWriter writer(folder / "trace", {4096, 10'000});
        std::string line(80, static_cast<char>('a' + number));
        line += '\n';
        for (int n = 0; n < linesEach; ++n) {
            writer.writeLine(line);
        }
        return true;
    }));
    std::map<std::string, int> counts;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        for (const std::string& line : folder.lines(entry.path().filename().string())) {
            ++counts[line];
        }
    }
    EXPECT_THAT(counts, ElementsAre(std::pair(std::string(80, 'a'), linesEach),
                                    std::pair(std::string(80, 'b'), linesEach),
                                    std::pair(std::string(80, 'c'), linesEach)));
}
