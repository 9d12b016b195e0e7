// Grey level statistics of a five-megapixel 8-bit picture, compared with the plainest way to read the same memory
// and with what a well-known library takes.

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

// More pictures than the largest cache holds, taken in turn, because a frame that has just been grabbed lies
// in memory: with a single picture, how much faster than the arithmetic the read is depends on the size of
// the processor's cache.
class Pictures {
public:
    Pictures()
        : m_words(count * wordsOfOne) {
        for (std::size_t i = 0; i < m_words.size(); ++i) {
            m_words[i] = std::uint64_t{mix(static_cast<std::uint32_t>(i))} << 32U |
                         mix(static_cast<std::uint32_t>(i) + 77U);
        }
    }

    /// In numbers of 64 bits, which is how memory is read fastest.
    std::uint64_t* next() {
        m_next = (m_next + 1) % count;
        return m_words.data() + m_next * wordsOfOne;
    }
    std::uint8_t* nextBytes() { return reinterpret_cast<std::uint8_t*>(next()); }

    static constexpr std::size_t wordsOfOne = std::size_t{width} * height / sizeof(std::uint64_t);

private:
    static constexpr std::size_t count = 64; // 320 MB
    std::vector<std::uint64_t> m_words;
    std::size_t m_next = 0;
};

HOSTS_VECTOR_CLONES std::uint64_t sumOf(const std::uint64_t* words, std::size_t count) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
        sum += words[i];
    }
    return sum;
}

void baselineReadOfMemory(benchmark::State& state) {
    Pictures pictures;
    for (auto _ : state) {
        benchmark::DoNotOptimize(sumOf(pictures.next(), Pictures::wordsOfOne));
    }
}
BENCHMARK(baselineReadOfMemory)->Unit(benchmark::kMicrosecond);

#ifdef OCUVA_BENCH_OPENCV
void baselineOpenCvMeanStdDev(benchmark::State& state) {
    Pictures pictures;
    cv::setNumThreads(1);
    cv::Scalar mean;
    cv::Scalar deviation;
    for (auto _ : state) {
        cv::meanStdDev(cv::Mat(height, width, CV_8U, pictures.nextBytes()), mean, deviation);
        benchmark::DoNotOptimize(deviation);
    }
}
BENCHMARK(baselineOpenCvMeanStdDev)->Unit(benchmark::kMicrosecond);
#endif

void statisticsOfFiveMegapixels(benchmark::State& state) {
    Pictures pictures;
    for (auto _ : state) {
        benchmark::DoNotOptimize(statistics(pictures.nextBytes(), std::size_t{width} * height));
    }
}
BENCHMARK(statisticsOfFiveMegapixels)->Unit(benchmark::kMicrosecond);

} // namespace
