#include "simhost/picture/GreyStatistics.h"

#include "simhost/picture/Hash.h"

#include <gtest/gtest.h>
#include <vector>

namespace simhost {
namespace {

TEST(GreyStatistics, AgreesWithThePlainDefinition) {
    for (const std::size_t count : {1U, 2U, 7U, 100U, 32768U, 32769U, 442368U}) {
        std::vector<std::uint32_t> pixels;
        for (std::size_t i = 0; i < count; ++i) {
            pixels.push_back(mix(static_cast<std::uint32_t>(i)));
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

TEST(GreyStatistics, WhiteAndNothing) {
    const std::vector<std::uint32_t> white(100000, 0xffffffffU);
    EXPECT_EQ(statistics(white.data(), white.size()).sum, 25500000U);
    EXPECT_EQ(statistics(white.data(), white.size()).variance, 0.0);
    EXPECT_EQ(statistics(nullptr, 0).count, 0U);
    EXPECT_EQ(statistics(nullptr, 0).variance, 0.0);
}

} // namespace
} // namespace simhost
