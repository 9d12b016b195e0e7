#include "hosts/common/picture/GreyStatistics.h"

#include "hosts/common/picture/GreySums.h"
#include "hosts/common/picture/VectorClones.h"

#include <algorithm>
#include <array>

namespace hosts {
namespace {

// Pixels are converted to bytes in chunks of this size, which stay in the first-level cache.
constexpr std::size_t kChunk = 1U << 14U;

HOSTS_VECTOR_CLONES void luminance(const std::uint32_t* __restrict pixels, std::uint8_t* __restrict levels,
                                   std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t pixel = pixels[i];
        const std::uint32_t weighed =
            77U * (pixel >> 16U & 0xffU) + 150U * (pixel >> 8U & 0xffU) + 29U * (pixel & 0xffU);
        levels[i] = static_cast<std::uint8_t>(weighed >> 8U);
    }
}

GreyStatistics resultOf(const GreySums& sums, std::size_t count) {
    GreyStatistics result;
    result.count = count;
    result.sum = sums.levels;
    if (count > 0) {
        // n * sum of squares - square of the sum is a whole number below 2^80: split to stay exact.
        const std::uint64_t whole = sums.levels / count;
        const std::uint64_t rest = sums.levels % count;
        // sum of (grey - whole)^2 = squares - 2 whole sum + count whole^2
        const std::uint64_t about = sums.squares + count * whole * whole - 2 * whole * sums.levels;
        const double mean = static_cast<double>(rest) / static_cast<double>(count);
        result.variance = static_cast<double>(about) / static_cast<double>(count) - mean * mean;
    }
    return result;
}

} // namespace

GreyStatistics statistics(const std::uint8_t* levels, std::size_t count) {
    return resultOf(greySums(levels, count), count);
}

GreyStatistics statistics(const std::uint32_t* pixels, std::size_t count) {
    std::array<std::uint8_t, kChunk> levels;
    GreySums sums;
    for (std::size_t first = 0; first < count; first += kChunk) {
        const std::size_t part = std::min(count - first, kChunk);
        luminance(pixels + first, levels.data(), part);
        const GreySums chunk = greySums(levels.data(), part);
        sums.levels += chunk.levels;
        sums.squares += chunk.squares;
    }
    return resultOf(sums, count);
}

} // namespace hosts
