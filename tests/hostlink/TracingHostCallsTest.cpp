// Every function of the seam: what is called, and the line of the trace. What the host behind sees and what the
// caller gets back follows from that line.
#include "hostlink/TraceFile.h"
#include "hostlink/TracingHost.h"
#include "support/HostCallRows.h"

#include <gtest/gtest.h>
#include <set>

namespace ocuva {

namespace {

std::string expectedLine(const HostCallRow& row) {
    return std::string(R"({"seq":1,"ms":T,"lib":")") + row.library + R"(","fn":")" + row.function +
           R"(","in":[)" + row.in + R"(],"out":[)" + row.out + R"(],"ret":)" + row.ret + "}";
}

/// The call as StubHost writes it down: braces for brackets, a space after each comma, texts as they are.
std::string expectedStubCall(const HostCallRow& row) {
    std::string call = std::string(row.function) + '(';
    bool inText = false;
    for (const char* at = row.in; *at != '\0'; ++at) {
        if (inText && *at == '\\') {
            call += *++at == 'n' ? '\n' : *at;
        } else if (*at == '"') {
            inText = !inText;
            call += '"';
        } else if (inText) {
            call += *at;
        } else {
            call += *at == '[' ? "{" : *at == ']' ? "}" : *at == ',' ? ", " : std::string(1, *at);
        }
    }
    const std::size_t noRecord = call.find(", null");
    return call.substr(0, noRecord) + ')';
}

void expectAnswer(const HostCallRow& row, Host& host) {
    const HostCallRow::Answer answer = row.makeCall(host);
    EXPECT_EQ(answer.outputs, std::string("[") + row.out + "]");
    EXPECT_EQ(answer.result, row.ret);
}

class EveryFunction : public testing::TestWithParam<HostCallRow> {};

TEST_P(EveryFunction, IsHandedOnUnchangedAndWrittenDownAsOneLine) {
    const HostCallRow& row = GetParam();
    const TraceFile file;
    StubHost stub;
    prepare(stub);
    TracingHost host(stub, file.path());

    expectAnswer(row, host);
    EXPECT_EQ(stub.calls, std::vector<std::string>{expectedStubCall(row)});
    EXPECT_EQ(file.timelessLines(), std::vector<std::string>{expectedLine(row)});
    EXPECT_FALSE(file.objects().front().isEmpty());
}

TEST_P(EveryFunction, WorksTheSameWithoutATraceFile) {
    const HostCallRow& row = GetParam();
    StubHost stub;
    prepare(stub);
    testing::internal::CaptureStderr();
    TracingHost host(stub, std::filesystem::path());
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());

    expectAnswer(row, host);
    EXPECT_EQ(stub.calls, std::vector<std::string>{expectedStubCall(row)});
}

INSTANTIATE_TEST_SUITE_P(TracingHost, EveryFunction, testing::ValuesIn(hostCallRows()),
                         [](const auto& about) {
                             return std::string(about.param.function) + "_" + std::to_string(about.index);
                         });

TEST(TracingHostTable, HasARowForEachFunctionOfTheSeam) {
    std::set<std::string_view> names;
    for (const HostCallRow& row : hostCallRows()) {
        names.insert(row.function);
    }
    EXPECT_EQ(names, std::set<std::string_view>(hostFunctionNames.begin(), hostFunctionNames.end()));
}

} // namespace

} // namespace ocuva
