#include "hosts/common/picture/GreyStatistics.h"

#include "hosts/common/picture/GreySums.h"

#include <gtest/gtest.h>
#include <vector>

namespace hosts {

namespace {

// Numbers without an order, the same in every run.
constexpr std::uint32_t scattered(std::uint32_t number) {
    number *= 0x9e3779b9U;
    number ^= number >> 15U;
    number *= 0x846ca68bU;
    return number ^ number >> 16U;
}

TEST(GreyStatistics, AgreesWithThePlainDefinition) {
    for (const std::size_t count : {1U, 2U, 7U, 100U, 32768U, 32769U, 442368U}) {
        std::vector<std::uint32_t> pixels;
        for (std::size_t i = 0; i < count; ++i) {
            pixels.push_back(scattered(static_cast<std::uint32_t>(i)));
        }
        std::uint64_t sum = 0;
        long double squares = 0;
        for (const std::uint32_t pixel : pixels) {
            const std::uint32_t grey =
                (77 * (pixel >> 16U & 255U) + 150 * (pixel >> 8U & 255U) + 29 * (pixel & 255U)) >> 8U;
            sum += grey;
            squares += static_cast<long double>(grey) * grey;
        }
        const long double mean = static_cast<long double>(sum) / static_cast<long double>(count);
        const GreyStatistics result = statistics(pixels.data(), count);
        EXPECT_EQ(result.count, count);
        EXPECT_EQ(result.sum, sum);
        EXPECT_NEAR(result.variance,
                    static_cast<double>(squares / static_cast<long double>(count) - mean * mean), 1e-8);
    }
}

// Lengths around whole vectors and whole rounds of them, beginning at every alignment.
TEST(GreyStatistics, OfEightBitLevelsAreExactAtAnyLengthAndAddress) {
    std::vector<std::uint8_t> levels(300000);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        levels[i] = static_cast<std::uint8_t>(i % 5 == 0 ? 255U : scattered(static_cast<std::uint32_t>(i)));
    }
    for (const std::size_t count :
         {0U, 1U, 15U, 16U, 31U, 33U, 47U, 1000U, 131072U, 262143U, 262144U, 299000U}) {
        for (std::size_t first = 0; first<33; first += count> 1000 ? 11 : 1) {
            std::uint64_t sum = 0;
            std::uint64_t squares = 0;
            for (std::size_t i = first; i < first + count; ++i) {
                sum += levels[i];
                squares += std::uint64_t{levels[i]} * levels[i];
            }
            const GreySums sums = greySums(levels.data() + first, count);
            ASSERT_EQ(sums.levels, sum) << count << " from " << first;
            ASSERT_EQ(sums.squares, squares) << count << " from " << first;
        }
    }
}

// The largest sums that a lane can meet.
TEST(GreyStatistics, OfManyWhiteLevelsDoNotOverflow) {
    const std::vector<std::uint8_t> white(5000001, 255);
    const GreyStatistics result = statistics(white.data(), white.size());
    EXPECT_EQ(result.count, 5000001U);
    EXPECT_EQ(result.sum, 5000001ULL * 255);
    EXPECT_EQ(result.variance, 0.0);
    EXPECT_EQ(greySums(white.data(), white.size()).squares, 5000001ULL * 65025);
}

// A grey pixel's luminance is its level, so both kinds of buffer tell the same.
TEST(GreyStatistics, OfGreyPixelsAreThoseOfTheirLevels) {
    std::vector<std::uint8_t> levels;
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t i = 0; i < 40000; ++i) {
        levels.push_back(static_cast<std::uint8_t>(scattered(i)));
        pixels.push_back(0xff000000U | levels.back() * 0x010101U);
    }
    const GreyStatistics grey = statistics(levels.data(), levels.size());
    const GreyStatistics colour = statistics(pixels.data(), pixels.size());
    EXPECT_EQ(grey.sum, colour.sum);
    EXPECT_EQ(grey.variance, colour.variance);
}

TEST(GreyStatistics, WhiteAndNothing) {
    const std::vector<std::uint32_t> white(100000, 0xffffffffU);
    EXPECT_EQ(statistics(white.data(), white.size()).sum, 25500000U);
    EXPECT_EQ(statistics(white.data(), white.size()).variance, 0.0);
    const std::uint32_t* const noPixels = nullptr;
    EXPECT_EQ(statistics(noPixels, 0).count, 0U);
    EXPECT_EQ(statistics(noPixels, 0).variance, 0.0);
}

} // namespace
} // namespace hosts
