// Grey level statistics of a five-megapixel 8-bit picture, beside the plainest way to read the same memory
// and beside what a well-known library takes.

#include "hosts/common/picture/GreyStatistics.h"
#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Hash.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <vector>

#ifdef OCUVA_BENCH_OPENCV
#include <opencv2/core.hpp>
#endif

namespace {

using namespace hosts;
using namespace hosts::simulated;

constexpr int width = 2560;
constexpr int height = 1944;

// In numbers of 64 bits, which is how memory is read fastest.
std::vector<std::uint64_t> picture() {
    std::vector<std::uint64_t> words(std::size_t{width} * height / sizeof(std::uint64_t));
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = std::uint64_t{mix(static_cast<std::uint32_t>(i))} << 32U |
                   mix(static_cast<std::uint32_t>(i) + 77U);
    }
    return words;
}

std::uint8_t* bytesOf(std::vector<std::uint64_t>& words) {
    return reinterpret_cast<std::uint8_t*>(words.data());
}

HOSTS_VECTOR_CLONES std::uint64_t sumOf(const std::uint64_t* words, std::size_t count) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
        sum += words[i];
    }
    return sum;
}

void baselineReadOfMemory(benchmark::State& state) {
    const std::vector<std::uint64_t> words = picture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(sumOf(words.data(), words.size()));
    }
}
BENCHMARK(baselineReadOfMemory)->Unit(benchmark::kMicrosecond);

#ifdef OCUVA_BENCH_OPENCV
void baselineOpenCvMeanStdDev(benchmark::State& state) {
    std::vector<std::uint64_t> words = picture();
    const cv::Mat image(height, width, CV_8U, bytesOf(words));
    cv::setNumThreads(1);
    cv::Scalar mean;
    cv::Scalar deviation;
    for (auto _ : state) {
        cv::meanStdDev(image, mean, deviation);
        benchmark::DoNotOptimize(deviation);
    }
}
BENCHMARK(baselineOpenCvMeanStdDev)->Unit(benchmark::kMicrosecond);
#endif

void statisticsOfFiveMegapixels(benchmark::State& state) {
    std::vector<std::uint64_t> words = picture();
    for (auto _ : state) {
        benchmark::DoNotOptimize(statistics(bytesOf(words), std::size_t{width} * height));
    }
}
BENCHMARK(statisticsOfFiveMegapixels)->Unit(benchmark::kMicrosecond);

} // namespace
