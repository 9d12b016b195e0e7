// Every host function by name, failing and slow.

#include "tests/hosts/simulated/truth/TruthRig.h"
#include "tests/support/HostCallRows.h"

#include <map>

namespace hosts::simulated {
namespace {

/// The calls to try: one for each function.
std::map<std::string_view, const ocuva::HostCallRow*> oneCallEach() {
    std::map<std::string_view, const ocuva::HostCallRow*> calls;
    for (const ocuva::HostCallRow& row : ocuva::hostCallRows()) {
        calls.try_emplace(row.function, &row);
    }
    return calls;
}

std::string failureOf(std::string_view function) {
    if (function == "TarnRegisterGetInt") {
        return "-7"; // the default that the call gives
    }
    if (function == "TarnMessageBoxVB") {
        return std::to_string(TARN_ANSWER_NO);
    }
    if (function == "TarnPrintfVB") {
        return "null";
    }
    return function == "TarnVideoBufferAlloc" ? std::to_string(TARN_BUFFER_NONE) : "0";
}

TEST(FunctionFaults, EveryFunctionOfTheBoundaryCanFailAndDoesNothingThen) {
    TruthRig rig;
    rig.live();
    const TarnLong camera = rig.video().TarnVideoGetCurrentCameraType();
    ASSERT_NE(camera, 2);
    ASSERT_NE(camera, 4);
    const auto calls = oneCallEach();
    for (const std::string_view function : ocuva::hostFunctionNames) {
        const auto call = calls.find(function);
        ASSERT_NE(call, calls.end()) << function;
        rig.configure("[Faults]\n" + std::string(function) + "=fail\n");
        const auto answer = call->second->makeCall(*rig.host);
        EXPECT_EQ(answer.result, failureOf(function)) << function;
        EXPECT_TRUE(answer.isUntouched) << function;
    }
    EXPECT_EQ(rig.timesInLog("a line"), 0);
    EXPECT_EQ(rig.host->tn_reg().TarnRegisterGetInt("S", "New", 0, "Ocuva.INI"), 0) << "nothing was stored";
    EXPECT_EQ(rig.video().TarnVideoGetCurrentCameraType(), camera);
    EXPECT_TRUE(rig.host->board().isReady());
    EXPECT_EQ(rig.reading(1), 0);
}

TEST(FunctionFaults, EveryFunctionOfTheBoundaryCanBeSlowAndAnswersAllTheSame) {
    for (const auto& [name, row] : oneCallEach()) {
        TruthRig quick;
        TruthRig slow("[Faults]\n" + std::string(name) + ".SlowMs=1234\n");
        quick.live();
        slow.live();
        const double quickMs = quick.clock->nowMs();
        const std::string answer = row->makeCall(*quick.host).result;
        const double took = quick.clock->nowMs() - quickMs;
        const double slowMs = slow.clock->nowMs();
        const std::string late = row->makeCall(*slow.host).result;
        EXPECT_GE(slow.clock->nowMs() - slowMs, 1234.0 + took - 1.0) << name;
        if (name != "TarnGetDirStd") { // the folders differ
            EXPECT_EQ(late, answer) << name;
        }
    }
}

} // namespace
} // namespace hosts::simulated
