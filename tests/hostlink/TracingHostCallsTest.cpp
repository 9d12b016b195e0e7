// Every function of the seam, one row each: what is called, what the host behind sees, what the caller gets
// back, and the line of the trace.
#include "hostlink/TraceFile.h"
#include "hostlink/TracingHost.h"
#include "support/StubHost.h"

#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace ocuva {

namespace {

/// Makes one call and returns what came back, result first, as text.
using MakeCall = std::function<std::string(Host&)>;

template <class... Values> std::string seen(const Values&... values) {
    std::ostringstream text;
    const char* separator = "";
    ((text << separator << values, separator = " "), ...);
    return text.str();
}

struct Row {
    const char* library;
    const char* function;
    MakeCall makeCall;
    const char* stubCall; ///< as StubHost writes it down
    const char* answer;   ///< as makeCall returns it
    const char* in;
    const char* out;
    const char* ret;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.function; }

using Text = std::array<char, 16>;
std::string textOf(const Text& buffer, Long length) {
    return {buffer.data(), static_cast<std::size_t>(length)};
}

const std::vector<Row>& settingsAndLogRows() {
    static const std::vector<Row> rows = {
        {"tn_reg", "TarnRegisterGetInt",
         [](Host& host) { return seen(host.tn_reg().TarnRegisterGetInt("S", "K", -7, "A.INI")); },
         R"(TarnRegisterGetInt("S", "K", -7, "A.INI"))", "42", R"("S","K",-7,"A.INI")", "", "42"},
        {"tn_reg", "TarnRegisterSetString",
         [](Host& host) { return seen(host.tn_reg().TarnRegisterSetString("S", "New", "1", "A.INI")); },
         R"(TarnRegisterSetString("S", "New", "1", "A.INI"))", "9", R"("S","New","1","A.INI")", "", "9"},
        {"tn_reg", "TarnRegisterGetString",
         [](Host& host) {
             Text buffer{};
             const Long length =
                 host.tn_reg().TarnRegisterGetString("S", "K", "d", buffer.data(), 16, "A.INI");
             return seen(length, textOf(buffer, length));
         },
         R"(TarnRegisterGetString("S", "K", "d", 16, "A.INI"))", "2 42", R"("S","K","d",16,"A.INI")",
         R"("42")", "2"},
        {"tn_log", "TarnPrintfVB",
         [](Host& host) {
             host.tn_log().TarnPrintfVB("line\n");
             return seen("nothing");
         },
         "TarnPrintfVB(\"line\n\")", "nothing", R"("line\n")", "", "null"},
        {"tn_log", "TarnMessageBoxVB",
         [](Host& host) { return seen(host.tn_log().TarnMessageBoxVB("KEY", "Title", 20)); },
         R"(TarnMessageBoxVB("KEY", "Title", 20))", "6", R"("KEY","Title",20)", "", "6"},
        {"Tn_log", "TarnGetUniqueObjectKey",
         [](Host& host) {
             Text buffer{};
             const Long length = host.Tn_log().TarnGetUniqueObjectKey(buffer.data(), 4);
             return seen(length, textOf(buffer, length));
         },
         "TarnGetUniqueObjectKey(4)", "4 KEY-", "4", R"("KEY-")", "4"},
        {"tn_ocuva", "TarnOcuvaSendMsgByName",
         [](Host& host) { return seen(host.tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp")); },
         R"(TarnOcuvaSendMsgByName("OCUVA_WakeUp"))", "3", R"("OCUVA_WakeUp")", "", "3"},
    };
    return rows;
}

const std::vector<Row>& generalLibraryRows() {
    static const std::vector<Row> rows = {
        {"tn_lib_proxy", "TarnSetVideoBoardType",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnSetVideoBoardType(1)); },
         "TarnSetVideoBoardType(1)", "1", "1", "", "1"},
        {"tn_lib_proxy", "TarnSetVideoCameraType",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnSetVideoCameraType(4)); },
         "TarnSetVideoCameraType(4)", "1", "4", "", "1"},
        {"tn_lib_proxy", "TarnGetVideoMag100Factors",
         [](Host& host) {
             Single x = 0;
             Single y = 0;
             const Long result = host.tn_lib_proxy().TarnGetVideoMag100Factors(&x, &y);
             return seen(result, x, y);
         },
         "TarnGetVideoMag100Factors()", "1 2560 1920.5", "", "2560,1920.5", "1"},
        {"tn_lib_proxy", "TarnSetVideoMag100Factors",
         [](Host& host) {
             const Single x = 0.1F;
             const Single y = 1e20F;
             return seen(host.tn_lib_proxy().TarnSetVideoMag100Factors(&x, &y));
         },
         "TarnSetVideoMag100Factors(0.1, 1e+20)", "1", "0.1,1e+20", "", "1"},
        {"tn_lib_proxy", "TarnGetStageLimits",
         [](Host& host) {
             Long lower = 0;
             Long upper = 0;
             const Long result = host.tn_lib_proxy().TarnGetStageLimits(3, &lower, &upper);
             return seen(result, lower, upper);
         },
         "TarnGetStageLimits(3)", "1 -5000 5000", "3", "-5000,5000", "1"},
        {"tn_lib_proxy", "TarnGetDirStd",
         [](Host& host) {
             Text buffer{};
             const Long length = host.tn_lib_proxy().TarnGetDirStd(buffer.data(), 16);
             return seen(length, textOf(buffer, length));
         },
         "TarnGetDirStd(16)", "4 /std", "16", R"("/std")", "4"},
        {"tn_lib_proxy", "TarnDbObjectNew",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnDbObjectNew("OCUVASTD")); },
         R"(TarnDbObjectNew("OCUVASTD"))", "5", R"("OCUVASTD")", "", "5"},
        {"tn_lib_proxy", "TarnDbObjectRead",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnDbObjectRead(2, "a.std")); },
         R"(TarnDbObjectRead(2, "a.std"))", "1", R"(2,"a.std")", "", "1"},
        {"tn_lib_proxy", "TarnDbObjectDelete",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnDbObjectDelete(2)); }, "TarnDbObjectDelete(2)",
         "1", "2", "", "1"},
        {"tn_lib_proxy", "TarnDbGetStagePos",
         [](Host& host) {
             Long x = 0;
             Long y = 0;
             Long z = 0;
             const Long result = host.tn_lib_proxy().TarnDbGetStagePos(3, &x, &y, &z);
             return seen(result, x, y, z);
         },
         "TarnDbGetStagePos(3)", "1 10 -20 30", "3", "10,-20,30", "1"},
        {"tn_lib_proxy", "TarnIniEnumNb",
         [](Host& host) { return seen(host.tn_lib_proxy().TarnIniEnumNb("S", "A.INI")); },
         R"(TarnIniEnumNb("S", "A.INI"))", "1", R"("S","A.INI")", "", "1"},
        {"tn_lib_proxy", "TarnIniEnumString",
         [](Host& host) {
             Text buffer{};
             const Long length = host.tn_lib_proxy().TarnIniEnumString("S", 1, buffer.data(), 16, "A.INI");
             return seen(length, textOf(buffer, length));
         },
         R"(TarnIniEnumString("S", 1, 16, "A.INI"))", "4 K=42", R"("S",1,16,"A.INI")", R"("K=42")", "4"},
        {"tn_lib_proxy", "TarnSolvePlan",
         [](Host& host) {
             const std::array<Double, 6> matrix = {1, 2, 3, 4, 5, 6};
             const std::array<Double, 2> right = {0.25, -8};
             std::array<Double, 3> solution = {};
             const Long result =
                 host.tn_lib_proxy().TarnSolvePlan(2, matrix.data(), right.data(), solution.data());
             return seen(result, solution[0], solution[1], solution[2]);
         },
         "TarnSolvePlan(2, {1, 2, 3, 4, 5, 6}, {0.25, -8})", "1 1.5 2 -3", "2,[1,2,3,4,5,6],[0.25,-8]",
         "[1.5,2,-3]", "1"},
    };
    return rows;
}

const std::vector<Row>& stageRows() {
    static const std::vector<Row> rows = {
        {"tn_micro_proxy", "TarnStartStage",
         [](Host& host) { return seen(host.tn_micro_proxy().TarnStartStage(0)); }, "TarnStartStage(0)", "1",
         "0", "", "1"},
        {"tn_micro_proxy", "TarnLoadStageAbs",
         [](Host& host) { return seen(host.tn_micro_proxy().TarnLoadStageAbs(1, 16777216.0F)); },
         "TarnLoadStageAbs(1, 16777216)", "1", "1,16777216", "", "1"},
        {"tn_micro_proxy", "TarnLoadStageRelSecure",
         [](Host& host) { return seen(host.tn_micro_proxy().TarnLoadStageRelSecure(3, -25.0F)); },
         "TarnLoadStageRelSecure(3, -25)", "0", "3,-25", "", "0"},
        {"tn_micro_proxy", "TarnReadStagePos",
         [](Host& host) {
             Long position = 0;
             const Long result = host.tn_micro_proxy().TarnReadStagePos(2, &position);
             return seen(result, position);
         },
         "TarnReadStagePos(2)", "1 -1234", "2", "-1234", "1"},
        {"tn_micro_proxy", "TarnReadStageStatus",
         [](Host& host) {
             Long status = 0;
             const Long result = host.tn_micro_proxy().TarnReadStageStatus(1, 0, &status);
             return seen(result, status);
         },
         "TarnReadStageStatus(1, 0)", "1 1", "1,0", "1", "1"},
        {"tn_micro_proxy", "TarnAutoFocusExt",
         [](Host& host) { return seen(host.tn_micro_proxy().TarnAutoFocusExt(-1)); }, "TarnAutoFocusExt(-1)",
         "1", "-1", "", "1"},
        {"tn_micro_proxy", "TarnBacklashStage",
         [](Host& host) { return seen(host.tn_micro_proxy().TarnBacklashStage(0)); }, "TarnBacklashStage(0)",
         "1", "0", "", "1"},
    };
    return rows;
}

const std::vector<Row>& boardRows() {
    static const std::vector<Row> rows = {
        {"tn_video", "TarnVideoBoardInit",
         [](Host& host) { return seen(host.tn_video().TarnVideoBoardInit()); }, "TarnVideoBoardInit()", "1",
         "", "", "1"},
        {"tn_video", "TarnVideoBoardShutdown",
         [](Host& host) { return seen(host.tn_video().TarnVideoBoardShutdown()); },
         "TarnVideoBoardShutdown()", "1", "", "", "1"},
        {"tn_video", "TarnVideoBoardStartGrab",
         [](Host& host) { return seen(host.tn_video().TarnVideoBoardStartGrab(0, 1)); },
         "TarnVideoBoardStartGrab(0, 1)", "0", "0,1", "", "0"},
        {"tn_video", "TarnVideoBoardHaltGrab",
         [](Host& host) { return seen(host.tn_video().TarnVideoBoardHaltGrab()); },
         "TarnVideoBoardHaltGrab()", "1", "", "", "1"},
        {"tn_video", "TarnVideoSetCurrentBoardType",
         [](Host& host) { return seen(host.tn_video().TarnVideoSetCurrentBoardType(0)); },
         "TarnVideoSetCurrentBoardType(0)", "1", "0", "", "1"},
        {"tn_video", "TarnVideoGetCurrentBoardType",
         [](Host& host) { return seen(host.tn_video().TarnVideoGetCurrentBoardType()); },
         "TarnVideoGetCurrentBoardType()", "1", "", "", "1"},
        {"tn_video", "TarnVideoBoardFunction",
         [](Host& host) {
             TarnDisplayRequest request = {1077, -2, 0};
             return seen(host.tn_video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_DISPLAY, &request));
         },
         "TarnVideoBoardFunction(0, {1077, -2, 0})", "1", "0,[1077,-2,0]", "", "1"},
        {"tn_video", "TarnVideoBoardFunction",
         [](Host& host) {
             TarnSaveRequest request = {TARN_SAVE_SUB_CODE, "a \"b\".tif"};
             return seen(host.tn_video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_SAVE, &request));
         },
         R"(TarnVideoBoardFunction(1, {4, "a "b".tif"}))", "1", R"(1,[4,"a \"b\".tif"])", "", "1"},
        {"tn_video", "TarnVideoBoardFunction",
         [](Host& host) {
             TarnLong gain = -1;
             return seen(host.tn_video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain));
         },
         "TarnVideoBoardFunction(2, {-1})", "1", "2,[-1]", "", "1"},
        {"tn_video", "TarnVideoBoardFunction",
         [](Host& host) { return seen(host.tn_video().TarnVideoBoardFunction(99, nullptr)); },
         "TarnVideoBoardFunction(99)", "0", "99,null", "", "0"},
    };
    return rows;
}

const std::vector<Row>& cameraRows() {
    static const std::vector<Row> rows = {
        {"tn_video", "TarnVideoBufferAlloc",
         [](Host& host) {
             TarnBufferDesc about = {sizeof(TarnBufferDesc), 0, 0, 0, 0};
             const Long handle = host.tn_video().TarnVideoBufferAlloc(&about, TARN_BUFFER_CURRENT);
             return seen(handle, about.width, about.height);
         },
         "TarnVideoBufferAlloc({20}, -1)", "17 768 576", "[20],-1", "[20,768,576,8,3]", "17"},
        {"tn_video", "TarnVideoGetBufferDesc",
         [](Host& host) {
             TarnBufferDesc about = {sizeof(TarnBufferDesc), 0, 0, 0, 0};
             const Long result = host.tn_video().TarnVideoGetBufferDesc(17, &about);
             return seen(result, about.bitsPerSample, about.bands);
         },
         "TarnVideoGetBufferDesc(17, {20})", "1 8 3", "17,[20]", "[20,768,576,8,3]", "1"},
        {"tn_video", "TarnVideoSetCurrentCameraType",
         [](Host& host) { return seen(host.tn_video().TarnVideoSetCurrentCameraType(2)); },
         "TarnVideoSetCurrentCameraType(2)", "1", "2", "", "1"},
        {"tn_video", "TarnVideoGetCurrentCameraType",
         [](Host& host) { return seen(host.tn_video().TarnVideoGetCurrentCameraType()); },
         "TarnVideoGetCurrentCameraType()", "3", "", "", "3"},
        {"tn_video", "TarnVideoCameraSetReferences",
         [](Host& host) { return seen(host.tn_video().TarnVideoCameraSetReferences(1, -1.0, 33.3)); },
         "TarnVideoCameraSetReferences(1, -1, 33.3)", "1", "1,-1,33.3", "", "1"},
        {"tn_video", "TarnVideoCameraGetReferences",
         [](Host& host) {
             Double first = 0;
             Double second = 0;
             const Long result = host.tn_video().TarnVideoCameraGetReferences(2, &first, &second);
             return seen(result, first, second);
         },
         "TarnVideoCameraGetReferences(2)", "1 12.5 100", "2", "12.5,100", "1"},
        {"tn_vduti", "TarnVideoBufferComputeStatistics",
         [](Host& host) {
             Long buffer = 0;
             Long count = 0;
             Long sum = 0;
             Double variance = 0;
             const Long result = host.tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 1, -1, -2,
                                                                                  &count, &sum, &variance);
             return seen(result, count, sum, variance);
         },
         "TarnVideoBufferComputeStatistics(0, 0, 1, -1, -2)", "1 442368 99 0.125", "0,0,1,-1,-2",
         "0,442368,99,0.125", "1"},
    };
    return rows;
}

std::vector<Row> allRows() {
    std::vector<Row> all;
    for (const auto* rows :
         {&settingsAndLogRows(), &generalLibraryRows(), &stageRows(), &boardRows(), &cameraRows()}) {
        all.insert(all.end(), rows->begin(), rows->end());
    }
    return all;
}

/// Answers that differ from each other and from the defaults, failures among them.
void prepare(StubHost& stub) {
    stub.settings["A.INI|S|K"] = "42";
    stub.results = {{"TarnRegisterSetString", 9},
                    {"TarnOcuvaSendMsgByName", 3},
                    {"TarnDbObjectNew", 5},
                    {"TarnLoadStageRelSecure", 0}};
    stub.messageBoxAnswer = TARN_ANSWER_YES;
    stub.magFactorY = 1920.5F;
    stub.dbObjects["a.std"] = {10, -20, 30};
    stub.dbHandles = {{2, ""}, {3, "a.std"}};
    stub.planSolution = {1.5, 2, -3};
    stub.position[axisY] = -1234;
    stub.status[axisX] = {1};
    stub.startGrabResult = 0;
    stub.bufferHandle = 17;
    stub.bufferDesc.bands = 3;
    stub.references[2] = {12.5, 100.0};
    stub.pixelCount = 442368;
    stub.pixelSum = 99;
    stub.variance = 0.125;
}

std::string expectedLine(const Row& row) {
    return std::string(R"({"seq":1,"ms":T,"lib":")") + row.library + R"(","fn":")" + row.function +
           R"(","in":[)" + row.in + R"(],"out":[)" + row.out + R"(],"ret":)" + row.ret + "}";
}

class EveryFunction : public testing::TestWithParam<Row> {};

TEST_P(EveryFunction, IsHandedOnUnchangedAndWrittenDownAsOneLine) {
    const Row& row = GetParam();
    const TraceFile file;
    StubHost stub;
    prepare(stub);
    TracingHost host(stub, file.path());

    EXPECT_EQ(row.makeCall(host), row.answer);
    EXPECT_EQ(stub.calls, std::vector<std::string>{row.stubCall});
    EXPECT_EQ(file.timelessLines(), std::vector<std::string>{expectedLine(row)});
    EXPECT_FALSE(file.objects().front().isEmpty());
}

TEST_P(EveryFunction, WorksTheSameWithoutATraceFile) {
    const Row& row = GetParam();
    StubHost stub;
    prepare(stub);
    testing::internal::CaptureStderr();
    TracingHost host(stub, std::filesystem::path());
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());

    EXPECT_EQ(row.makeCall(host), row.answer);
    EXPECT_EQ(stub.calls, std::vector<std::string>{row.stubCall});
}

INSTANTIATE_TEST_SUITE_P(TracingHost, EveryFunction, testing::ValuesIn(allRows()), [](const auto& about) {
    return std::string(about.param.function) + "_" + std::to_string(about.index);
});

TEST(TracingHostTable, HasARowForEachFunctionOfTheSeam) {
    std::vector<std::string> names;
    for (const Row& row : allRows()) {
        names.emplace_back(row.function);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    EXPECT_EQ(names.size(), 41U);
}

} // namespace

} // namespace ocuva
