#include "support/HostCallRows.h"

#include "hostlink/JsonText.h"

#include <ostream>
#include <span>
#include <tuple>
#include <type_traits>

namespace ocuva {

namespace {

// ---- calls: arguments as they are, or one of these for what is behind a pointer ----

template <class T> struct Given { T value; };
/// What the caller looks at after the call.
template <class T> struct Returned { T value{}; };
using Text = std::array<char, 16>;
template <> struct Returned<Text> { Text value{"untouched"}; };
template <> struct Returned<std::array<Double, 3>> { std::array<Double, 3> value{-7, -7, -7}; };

template <class T> T passed(T& argument) { return argument; }
template <class T> auto* passed(Given<T>& argument) { return &argument.value; }
template <std::size_t n> auto* passed(Given<std::array<Double, n>>& argument) {
    return argument.value.data();
}
template <class T> auto* passed(Returned<T>& argument) { return &argument.value; }
template <class T, std::size_t n> auto* passed(Returned<std::array<T, n>>& argument) {
    return argument.value.data();
}

template <class T> std::tuple<> returned(const T&, Long) { return {}; }
template <class T> std::tuple<T> returned(const Returned<T>& argument, Long) { return {argument.value}; }
auto returned(const Returned<Text>& text, Long length) {
    return std::make_tuple(std::string(text.value.data(), static_cast<std::size_t>(length)));
}
auto returned(const Returned<std::array<Double, 3>>& numbers, Long) {
    return std::make_tuple(std::span<const Double>(numbers.value));
}

#define LIBRARY_OF(Class, library, file, FUNCTIONS)                                                          \
    Class& libraryOf(Host& host, const Class*) { return host.library(); }
TARN_LIBRARIES(LIBRARY_OF)
#undef LIBRARY_OF

template <class T> bool isUntouched(const T&, const T&) { return true; }
template <class T> bool isUntouched(const Returned<T>& now, const Returned<T>& before) {
    return now.value == before.value;
}
bool isUntouched(const Returned<TarnBufferDesc>& now, const Returned<TarnBufferDesc>& before) {
    const auto fields = [](const TarnBufferDesc& d) {
        return std::tie(d.recordSize, d.width, d.height, d.bitsPerSample, d.bands);
    };
    return fields(now.value) == fields(before.value);
}

template <class Library, class Result, class... Parameter, class... Argument>
HostCallRow::MakeCall call(Result (Library::*function)(Parameter...), Argument... arguments) {
    return [=](Host& host) {
        Library& library = libraryOf(host, static_cast<const Library*>(nullptr));
        std::tuple<Argument...> own(arguments...);
        return std::apply(
            [&](auto&... each) {
                HostCallRow::Answer answer;
                if constexpr (std::is_void_v<Result>) {
                    (library.*function)(passed(each)...);
                    answer = {"[]", "null"};
                } else {
                    const Result result = (library.*function)(passed(each)...);
                    appendJson(answer.outputs, std::tuple_cat(returned(each, result)...));
                    answer.result = std::to_string(result);
                }
                answer.isUntouched = (isUntouched(each, arguments) && ...);
                return answer;
            },
            own);
    };
}

// ---- rows ----

using Row = HostCallRow;
#define CALL(Class, function, ...) #function, call(&Class::function __VA_OPT__(, ) __VA_ARGS__)

std::vector<Row> settingsAndLogRows() {
    return {
        {"tn_reg", CALL(TnReg, TarnRegisterGetInt, "S", "K", -7, "Ocuva.INI"), R"("S","K",-7,"Ocuva.INI")",
         "", "42"},
        {"tn_reg", CALL(TnReg, TarnRegisterSetString, "S", "New", "1", "Ocuva.INI"),
         R"("S","New","1","Ocuva.INI")", "", "9"},
        {"tn_reg", CALL(TnReg, TarnRegisterGetString, "S", "K", "d", Returned<Text>(), 16, "Ocuva.INI"),
         R"("S","K","d",16,"Ocuva.INI")", R"("42")", "2"},
        {"tn_log", CALL(TnLog, TarnPrintfVB, "a line\n"), R"("a line\n")", "", "null"},
        {"tn_log", CALL(TnLog, TarnMessageBoxVB, "KEY", "Title", 20), R"("KEY","Title",20)", "", "6"},
        {"Tn_log", CALL(TnLogKeys, TarnGetUniqueObjectKey, Returned<Text>(), 4), "4", R"("KEY-")", "4"},
        {"tn_ocuva", CALL(TnOcuva, TarnOcuvaSendMsgByName, "OCUVA_WakeUp"), R"("OCUVA_WakeUp")", "", "3"},
    };
}

std::vector<Row> generalLibraryRows() {
    const Given<std::array<Double, 6>> matrix{{1, 2, 3, 4, 5, 6}};
    const Given<std::array<Double, 2>> right{{0.25, -8}};
    return {
        {"tn_lib_proxy", CALL(TnLibProxy, TarnSetVideoBoardType, 1), "1", "", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnSetVideoCameraType, 4), "4", "", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnGetVideoMag100Factors, Returned<Single>(), Returned<Single>()),
         "", "2560,1920.5", "1"},
        {"tn_lib_proxy",
         CALL(TnLibProxy, TarnSetVideoMag100Factors, Given<Single>{0.1F}, Given<Single>{1e20F}), "0.1,1e+20",
         "", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnGetStageLimits, 3, Returned<Long>(), Returned<Long>()), "3",
         "-5000,5000", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnGetDirStd, Returned<Text>(), 16), "16", R"("/std")", "4"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnDbObjectNew, "OCUVASTD"), R"("OCUVASTD")", "", "5"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnDbObjectRead, 2, "a.std"), R"(2,"a.std")", "", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnDbObjectDelete, 2), "2", "", "1"},
        {"tn_lib_proxy",
         CALL(TnLibProxy, TarnDbGetStagePos, 3, Returned<Long>(), Returned<Long>(), Returned<Long>()), "3",
         "10,-20,30", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnIniEnumNb, "S", "Ocuva.INI"), R"("S","Ocuva.INI")", "", "1"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnIniEnumString, "S", 1, Returned<Text>(), 16, "Ocuva.INI"),
         R"("S",1,16,"Ocuva.INI")", R"("K=42")", "4"},
        {"tn_lib_proxy", CALL(TnLibProxy, TarnSolvePlan, 2, matrix, right, Returned<std::array<Double, 3>>()),
         "2,[1,2,3,4,5,6],[0.25,-8]", "[1.5,2,-3]", "1"},
    };
}

std::vector<Row> stageRows() {
    return {
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnStartStage, 0), "0", "", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnLoadStageAbs, 1, 5.0F), "1,5", "", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnLoadStageAbs, 1, 16777216.0F), "1,16777216", "", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnLoadStageRelSecure, 3, -25.0F), "3,-25", "", "0"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnReadStagePos, 2, Returned<Long>()), "2", "-1234", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnReadStageStatus, 1, 0, Returned<Long>()), "1,0", "1", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnAutoFocusExt, -1), "-1", "", "1"},
        {"tn_micro_proxy", CALL(TnMicroProxy, TarnBacklashStage, 0), "0", "", "1"},
    };
}

std::vector<Row> videoRows() {
    const Given<TarnDisplayRequest> display{{1077, -2, 0}};
    const Given<TarnSaveRequest> save{{TARN_SAVE_SUB_CODE, "a \"b\".tif"}};
    const Given<Long> gain{-1};
    const Returned<TarnBufferDesc> about{{sizeof(TarnBufferDesc), 0, 0, 0, 0}};
    return {
        {"tn_video", CALL(TnVideo, TarnVideoBoardInit), "", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardShutdown), "", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardStartGrab, 0, 1), "0,1", "", "0"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardHaltGrab), "", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoSetCurrentBoardType, 0), "0", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoGetCurrentBoardType), "", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardFunction, 0, display), "0,[1077,-2,0]", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardFunction, 1, save), R"(1,[4,"a \"b\".tif"])", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardFunction, 2, gain), "2,[-1]", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoBoardFunction, 99, nullptr), "99,null", "", "0"},
        {"tn_video", CALL(TnVideo, TarnVideoBufferAlloc, about, TARN_BUFFER_CURRENT), "[20],-1",
         "[20,768,576,8,3]", "17"},
        {"tn_video", CALL(TnVideo, TarnVideoGetBufferDesc, 17, about), "17,[20]", "[20,768,576,8,3]", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoSetCurrentCameraType, 2), "2", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoGetCurrentCameraType), "", "", "3"},
        {"tn_video", CALL(TnVideo, TarnVideoCameraSetReferences, 1, -1.0, 33.3), "1,-1,33.3", "", "1"},
        {"tn_video", CALL(TnVideo, TarnVideoCameraGetReferences, 2, Returned<Double>(), Returned<Double>()),
         "2", "12.5,100", "1"},
        {"tn_vduti",
         CALL(TnVduti, TarnVideoBufferComputeStatistics, Returned<Long>{0}, 0, 1, -1, -2, Returned<Long>(),
              Returned<Long>(), Returned<Double>()),
         "0,0,1,-1,-2", "0,442368,99,0.125", "1"},
    };
}

} // namespace

const std::vector<HostCallRow>& hostCallRows() {
    static const std::vector<HostCallRow> all = [] {
        std::vector<HostCallRow> rows;
        for (const auto& some : {settingsAndLogRows(), generalLibraryRows(), stageRows(), videoRows()}) {
            rows.insert(rows.end(), some.begin(), some.end());
        }
        return rows;
    }();
    return all;
}

void prepare(StubHost& stub) {
    stub.settings["Ocuva.INI|S|K"] = "42";
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

void PrintTo(const HostCallRow& row, std::ostream* out) { *out << row.function; }

} // namespace ocuva
