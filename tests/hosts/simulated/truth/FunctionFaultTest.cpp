// Every host function by name, failing and slow.

#include "hostlink/Host.h"
#include "tests/hosts/simulated/truth/TruthRig.h"

#include <functional>
#include <map>

namespace hosts::simulated {
namespace {

/// What a call may write through its pointers; a failing one leaves it as it was.
struct Outputs {
    char text[64] = "untouched";
    TarnLong numbers[4] = {-7, -7, -7, -7};
    TarnSingle singles[2] = {-7.0F, -7.0F};
    TarnDouble doubles[3] = {-7.0, -7.0, -7.0};
    TarnBufferDesc descriptor{TarnLong{sizeof(TarnBufferDesc)}, -7, -7, -7, -7};
};

using Call = std::function<TarnLong(ocuva::Host&, Outputs&)>;

std::map<std::string_view, Call> settingsAndLogCalls() {
    return {
        {"TarnRegisterGetInt",
         [](auto& h, auto&) { return h.tn_reg().TarnRegisterGetInt("S", "K", 31, "Ocuva.INI"); }},
        {"TarnRegisterSetString",
         [](auto& h, auto&) { return h.tn_reg().TarnRegisterSetString("S", "K", "1", "Ocuva.INI"); }},
        {"TarnRegisterGetString",
         [](auto& h, auto& o) {
             return h.tn_reg().TarnRegisterGetString("S", "K", "default", o.text, 64, "Ocuva.INI");
         }},
        {"TarnPrintfVB",
         [](auto& h, auto&) {
             h.tn_log().TarnPrintfVB("a line");
             return TarnLong{0};
         }},
        {"TarnMessageBoxVB",
         [](auto& h, auto&) { return h.tn_log().TarnMessageBoxVB("Sure?", "", TARN_BOX_YES_NO); }},
        {"TarnGetUniqueObjectKey",
         [](auto& h, auto& o) { return h.Tn_log().TarnGetUniqueObjectKey(o.text, 64); }},
        {"TarnOcuvaSendMsgByName",
         [](auto& h, auto&) { return h.tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp"); }},
    };
}

std::map<std::string_view, Call> generalCalls() {
    return {
        {"TarnSetVideoBoardType", [](auto& h, auto&) { return h.tn_lib_proxy().TarnSetVideoBoardType(1); }},
        {"TarnSetVideoCameraType", [](auto& h, auto&) { return h.tn_lib_proxy().TarnSetVideoCameraType(2); }},
        {"TarnGetVideoMag100Factors",
         [](auto& h, auto& o) {
             return h.tn_lib_proxy().TarnGetVideoMag100Factors(&o.singles[0], &o.singles[1]);
         }},
        {"TarnSetVideoMag100Factors",
         [](auto& h, auto&) {
             const TarnSingle factor = 1000.0F;
             return h.tn_lib_proxy().TarnSetVideoMag100Factors(&factor, &factor);
         }},
        {"TarnGetStageLimits",
         [](auto& h, auto& o) {
             return h.tn_lib_proxy().TarnGetStageLimits(1, &o.numbers[0], &o.numbers[1]);
         }},
        {"TarnGetDirStd", [](auto& h, auto& o) { return h.tn_lib_proxy().TarnGetDirStd(o.text, 64); }},
        {"TarnDbObjectNew", [](auto& h, auto&) { return h.tn_lib_proxy().TarnDbObjectNew("OCUVASTD"); }},
        {"TarnDbObjectRead", [](auto& h, auto&) { return h.tn_lib_proxy().TarnDbObjectRead(1, "A.std"); }},
        {"TarnDbObjectDelete", [](auto& h, auto&) { return h.tn_lib_proxy().TarnDbObjectDelete(1); }},
        {"TarnDbGetStagePos",
         [](auto& h, auto& o) {
             return h.tn_lib_proxy().TarnDbGetStagePos(1, &o.numbers[0], &o.numbers[1], &o.numbers[2]);
         }},
        {"TarnIniEnumNb",
         [](auto& h, auto&) { return h.tn_lib_proxy().TarnIniEnumNb("tn_video", "TARN.INI"); }},
        {"TarnIniEnumString",
         [](auto& h, auto& o) {
             return h.tn_lib_proxy().TarnIniEnumString("tn_video", 1, o.text, 64, "TARN.INI");
         }},
        {"TarnSolvePlan",
         [](auto& h, auto& o) {
             const TarnDouble matrix[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
             const TarnDouble right[3] = {1, 2, 3};
             return h.tn_lib_proxy().TarnSolvePlan(3, matrix, right, o.doubles);
         }},
    };
}

std::map<std::string_view, Call> stageCalls() {
    return {
        {"TarnStartStage", [](auto& h, auto&) { return h.tn_micro_proxy().TarnStartStage(1); }},
        {"TarnLoadStageAbs", [](auto& h, auto&) { return h.tn_micro_proxy().TarnLoadStageAbs(1, 5.0F); }},
        {"TarnLoadStageRelSecure",
         [](auto& h, auto&) { return h.tn_micro_proxy().TarnLoadStageRelSecure(1, 5.0F); }},
        {"TarnReadStagePos",
         [](auto& h, auto& o) { return h.tn_micro_proxy().TarnReadStagePos(1, &o.numbers[0]); }},
        {"TarnReadStageStatus",
         [](auto& h, auto& o) { return h.tn_micro_proxy().TarnReadStageStatus(1, 0, &o.numbers[0]); }},
        {"TarnAutoFocusExt", [](auto& h, auto&) { return h.tn_micro_proxy().TarnAutoFocusExt(-1); }},
        {"TarnBacklashStage", [](auto& h, auto&) { return h.tn_micro_proxy().TarnBacklashStage(0); }},
    };
}

std::map<std::string_view, Call> videoCalls() {
    return {
        {"TarnVideoBoardInit", [](auto& h, auto&) { return h.tn_video().TarnVideoBoardInit(); }},
        {"TarnVideoBoardShutdown", [](auto& h, auto&) { return h.tn_video().TarnVideoBoardShutdown(); }},
        {"TarnVideoBoardStartGrab",
         [](auto& h, auto&) { return h.tn_video().TarnVideoBoardStartGrab(1, 1); }},
        {"TarnVideoBoardHaltGrab", [](auto& h, auto&) { return h.tn_video().TarnVideoBoardHaltGrab(); }},
        {"TarnVideoSetCurrentBoardType",
         [](auto& h, auto&) { return h.tn_video().TarnVideoSetCurrentBoardType(1); }},
        {"TarnVideoGetCurrentBoardType",
         [](auto& h, auto&) { return h.tn_video().TarnVideoGetCurrentBoardType(); }},
        {"TarnVideoBoardFunction",
         [](auto& h, auto&) {
             TarnLong gain = 3;
             return h.tn_video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain);
         }},
        {"TarnVideoBufferAlloc",
         [](auto& h, auto& o) { return h.tn_video().TarnVideoBufferAlloc(&o.descriptor, -1); }},
        {"TarnVideoGetBufferDesc",
         [](auto& h, auto& o) { return h.tn_video().TarnVideoGetBufferDesc(0, &o.descriptor); }},
        {"TarnVideoSetCurrentCameraType",
         [](auto& h, auto&) { return h.tn_video().TarnVideoSetCurrentCameraType(4); }},
        {"TarnVideoGetCurrentCameraType",
         [](auto& h, auto&) { return h.tn_video().TarnVideoGetCurrentCameraType(); }},
        {"TarnVideoCameraSetReferences",
         [](auto& h, auto&) { return h.tn_video().TarnVideoCameraSetReferences(1, 10.0, 20.0); }},
        {"TarnVideoCameraGetReferences",
         [](auto& h, auto& o) {
             return h.tn_video().TarnVideoCameraGetReferences(1, &o.doubles[0], &o.doubles[1]);
         }},
        {"TarnVideoBufferComputeStatistics",
         [](auto& h, auto& o) {
             TarnLong buffer = 0;
             return h.tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &o.numbers[0],
                                                                  &o.numbers[1], &o.doubles[0]);
         }},
    };
}

std::map<std::string_view, Call> allCalls() {
    std::map<std::string_view, Call> calls = settingsAndLogCalls();
    calls.merge(generalCalls());
    calls.merge(stageCalls());
    calls.merge(videoCalls());
    return calls;
}

TarnLong failureOf(std::string_view function) {
    if (function == "TarnRegisterGetInt") {
        return 31;
    }
    if (function == "TarnMessageBoxVB") {
        return TARN_ANSWER_NO;
    }
    return function == "TarnVideoBufferAlloc" ? TARN_BUFFER_NONE : 0;
}

TEST(FunctionFaults, EveryHostFunctionCanFailAndThenDoesNothing) {
    const std::map<std::string_view, Call> calls = allCalls();
    ASSERT_EQ(calls.size(), ocuva::hostFunctionNames.size());
    TruthRig rig;
    rig.live();
    const TarnLong camera = rig.video().TarnVideoGetCurrentCameraType();
    ASSERT_NE(camera, 2);
    ASSERT_NE(camera, 4);
    for (const std::string_view function : ocuva::hostFunctionNames) {
        const auto call = calls.find(function);
        ASSERT_NE(call, calls.end()) << function;
        rig.configure("[Faults]\n" + std::string(function) + "=fail\n");
        Outputs outputs;
        EXPECT_EQ(call->second(*rig.host, outputs), failureOf(function)) << function;
        const Outputs untouched;
        EXPECT_STREQ(outputs.text, untouched.text) << function;
        EXPECT_THAT(outputs.numbers, testing::Each(-7)) << function;
        EXPECT_THAT(outputs.singles, testing::Each(-7.0F)) << function;
        EXPECT_THAT(outputs.doubles, testing::Each(-7.0)) << function;
        EXPECT_EQ(outputs.descriptor.width, -7) << function;
    }
    EXPECT_EQ(rig.timesInLog("a line"), 0);
    EXPECT_EQ(rig.host->tn_reg().TarnRegisterGetInt("S", "K", 0, "Ocuva.INI"), 0) << "nothing was stored";
    EXPECT_EQ(rig.video().TarnVideoGetCurrentCameraType(), camera);
    EXPECT_TRUE(rig.host->board().isReady());
    EXPECT_EQ(rig.reading(1), 0);
}

TEST(FunctionFaults, EveryHostFunctionCanBeSlowAndStillAnswers) {
    for (const auto& [name, call] : allCalls()) {
        TruthRig quick;
        TruthRig slow("[Faults]\n" + std::string(name) + ".SlowMs=1234\n");
        quick.live();
        slow.live();
        Outputs outputs;
        const double quickMs = quick.clock->nowMs();
        const TarnLong answer = call(*quick.host, outputs);
        const double took = quick.clock->nowMs() - quickMs;
        const double slowMs = slow.clock->nowMs();
        const TarnLong late = call(*slow.host, outputs);
        EXPECT_GE(slow.clock->nowMs() - slowMs, 1234.0 + took - 1.0) << name;
        if (name != "TarnGetDirStd") { // the folders differ
            EXPECT_EQ(late, answer) << name;
        }
    }
}

} // namespace
} // namespace hosts::simulated
