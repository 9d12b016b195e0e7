#include "simhost/picture/GreyStatistics.h"

#include <algorithm>

namespace simhost {
namespace {

// Sums of so many squares of bytes fit in 32 bits, so that the inner loop stays in narrow vector lanes.
constexpr std::size_t kChunk = 1U << 15U;
static_assert(kChunk * 255U * 255U < (std::uint64_t{1} << 32U));

} // namespace

GreyStatistics statistics(const std::uint32_t* pixels, std::size_t count) {
    GreyStatistics result;
    result.count = count;
    std::uint64_t squares = 0;
    for (std::size_t begin = 0; begin < count; begin += kChunk) {
        const std::size_t end = std::min(count, begin + kChunk);
        std::uint32_t sum = 0;
        std::uint32_t square = 0;
        for (std::size_t i = begin; i < end; ++i) {
            const std::uint32_t pixel = pixels[i];
            const auto red = static_cast<std::uint16_t>(pixel >> 16U & 0xffU);
            const auto green = static_cast<std::uint16_t>(pixel >> 8U & 0xffU);
            const auto blue = static_cast<std::uint16_t>(pixel & 0xffU);
            const auto grey = static_cast<std::uint16_t>(
                static_cast<std::uint16_t>(77U * red + 150U * green + 29U * blue) >> 8U);
            sum += grey;
            square += static_cast<std::uint32_t>(grey) * grey;
        }
        result.sum += sum;
        squares += square;
    }
    if (count > 0) {
        // n * sum of squares - square of the sum is a whole number below 2^80: split to stay exact.
        const std::uint64_t whole = result.sum / count;
        const std::uint64_t rest = result.sum % count;
        // sum of (grey - whole)^2 = squares - 2 whole sum + count whole^2
        const std::uint64_t about = squares + count * whole * whole - 2 * whole * result.sum;
        const double mean = static_cast<double>(rest) / static_cast<double>(count);
        result.variance = static_cast<double>(about) / static_cast<double>(count) - mean * mean;
    }
    return result;
}

} // namespace simhost
