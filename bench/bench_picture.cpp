// What one frame of the simulated camera costs, 768 x 576 colour with noise unless a row says otherwise. The
// baselines are the least that any frame must cost (one copy of its pixels) and the plain way to do the same
// sums.

#include "hosts/common/picture/GreyStatistics.h"
#include "hosts/simulated/world/CameraPicture.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

namespace {

using namespace hosts;
using namespace hosts::simulated;

constexpr double kPixelsPerFrame = 200.0; // the stage at speed: a quarter of the picture is fresh each time

struct Bench {
    World world{7, {{5000, 0, 1, "Quartz"}}};
    CameraPicture camera{world, SurfaceShape{}, OpticsSettings{}};
    Exposure exposure{cameraMode(3)};
    std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(768 * 576);

    void take() {
        camera.render(exposure, pixels.data());
        ++exposure.frameNumber;
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    void move() {
        exposure.stageX += kPixelsPerFrame * exposure.fieldWidth / exposure.mode.width;
        exposure.stageY += 0.3; // so that rows of tiles do not keep the same fraction of a pixel
    }
};

void baselineCopyOfAFrame(benchmark::State& state) {
    Bench bench;
    std::vector<std::uint32_t> copy(bench.pixels.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), bench.pixels.data(), copy.size() * sizeof(std::uint32_t));
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(baselineCopyOfAFrame)->Unit(benchmark::kMillisecond);

void standing(benchmark::State& state) {
    Bench bench;
    bench.exposure.stageZ = static_cast<double>(state.range(0));
    bench.take();
    for (auto _ : state) {
        bench.take();
    }
}
BENCHMARK(standing)->ArgName("defocus")->Arg(0)->Arg(20)->Unit(benchmark::kMillisecond);

void standingWithControls(benchmark::State& state) {
    Bench bench;
    bench.camera.setControls({60, 55, 45, 70, 3});
    bench.take();
    for (auto _ : state) {
        bench.take();
    }
}
BENCHMARK(standingWithControls)->Unit(benchmark::kMillisecond);

void movingOverFreshGround(benchmark::State& state) {
    Bench bench;
    bench.exposure.stageZ = static_cast<double>(state.range(0));
    bench.exposure.stageX = 10000;
    bench.take();
    for (auto _ : state) {
        bench.move();
        bench.take();
    }
}
BENCHMARK(movingOverFreshGround)
    ->ArgName("defocus")
    ->Arg(0)
    ->Arg(3)
    ->Arg(8)
    ->Arg(20)
    ->Arg(200)
    ->Unit(benchmark::kMillisecond);

void movingOverKnownGround(benchmark::State& state) {
    Bench bench;
    bench.take();
    double way = 0.37;
    for (auto _ : state) {
        way = way > 100.0 ? 0.37 : way + 7.3;
        bench.exposure.stageX = way;
        bench.take();
    }
}
BENCHMARK(movingOverKnownGround)->Unit(benchmark::kMillisecond);

void focusing(benchmark::State& state) {
    Bench bench;
    bench.take();
    double travel = 0.0;
    for (auto _ : state) {
        travel = travel > 10.0 ? 0.0 : travel + 0.1;
        bench.exposure.stageZ = static_cast<double>(state.range(0)) + travel;
        bench.take();
    }
}
BENCHMARK(focusing)->ArgName("from")->Arg(2)->Arg(20)->Unit(benchmark::kMillisecond);

void tiltedSurface(benchmark::State& state) {
    Bench bench;
    CameraPicture tilted(bench.world, SurfaceShape{0.0, 0.02, 0.01, 0.0}, OpticsSettings{});
    double travel = 0.0;
    for (auto _ : state) {
        travel = travel > 4.0 ? 0.0 : travel + 0.1;
        bench.exposure.stageZ = travel;
        tilted.render(bench.exposure, bench.pixels.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(tiltedSurface)->Unit(benchmark::kMillisecond);

void baselinePlainStatistics(benchmark::State& state) {
    Bench bench;
    bench.take();
    for (auto _ : state) {
        double sum = 0.0;
        double squares = 0.0;
        for (const std::uint32_t pixel : bench.pixels) {
            const double grey =
                (77 * (pixel >> 16U & 255U) + 150 * (pixel >> 8U & 255U) + 29 * (pixel & 255U)) >> 8U;
            sum += grey;
            squares += grey * grey;
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(squares);
    }
}
BENCHMARK(baselinePlainStatistics)->Unit(benchmark::kMillisecond);

void greyStatistics(benchmark::State& state) {
    Bench bench;
    bench.take();
    for (auto _ : state) {
        benchmark::DoNotOptimize(statistics(bench.pixels.data(), bench.pixels.size()));
    }
}
BENCHMARK(greyStatistics)->Unit(benchmark::kMillisecond);

} // namespace
