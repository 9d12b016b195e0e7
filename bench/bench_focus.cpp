// What a focus search costs in addition to exposing its frames, and how often it ends at the focus. Both through the
// host's own functions on a virtual clock, so that only computing is counted.

#include "tests/support/FocusRig.h"

#include <benchmark/benchmark.h>

namespace {

using namespace hosts;
using namespace hosts::simulated;
using namespace hosts::simulated::testing;

constexpr FocusStart begin{1000, 1000, 2, 3};

// Seven heights at one place, nothing measured.
void baselineExposingTheFrames(benchmark::State& state) {
    FocusRig rig;
    rig.go(begin);
    for (auto _ : state) {
        for (TarnLong z = begin.z - 9; z <= begin.z + 9; z += 3) {
            rig.go(3, z);
            benchmark::DoNotOptimize(rig.host.board().frameAfterNow());
        }
    }
}
BENCHMARK(baselineExposingTheFrames)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state) {
    FocusRig rig;
    rig.go(begin);
    rig.measurePart(static_cast<TarnLong>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        rig.go(3, begin.z);
        state.ResumeTiming();
        benchmark::DoNotOptimize(rig.search());
    }
}
BENCHMARK(search)->ArgName("part")->Arg(1)->Arg(2)->Arg(8)->Unit(benchmark::kMillisecond);

// A hundred starts with detail under them, all camera types in turn, the surface up to half the range away.
// within1: ended within one unit of the surface; worst: units from it; simulatedSeconds: how long one search
// keeps the operator waiting.
void hundredStarts(benchmark::State& state) {
    FocusRig rig;
    rig.set("Fine Parameters", "Number of points", static_cast<TarnLong>(state.range(0)));
    rig.measurePart(static_cast<TarnLong>(state.range(1)));
    int within = 0;
    double worst = 0.0;
    double spentMs = 0.0;
    for (auto _ : state) {
        for (const FocusStart& start : texturedStarts(rig, 100, 2026)) {
            rig.go(start);
            const double beganMs = rig.clock->nowMs();
            rig.search();
            spentMs += rig.clock->nowMs() - beganMs;
            within += rig.error() <= 1.0 ? 1 : 0;
            worst = std::max(worst, rig.error());
        }
    }
    state.counters["within1"] = within;
    state.counters["worst"] = worst;
    state.counters["simulatedSeconds"] = spentMs / 100.0 / 1000.0;
}
BENCHMARK(hundredStarts)
    ->ArgNames({"points", "part"})
    ->ArgsProduct({{5, 7, 9, 15}, {1, 2, 4, 8}})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

} // namespace
