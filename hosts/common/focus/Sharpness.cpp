#include "hosts/common/focus/Sharpness.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace hosts {

namespace {

constexpr int reach = 2; // pixels between the two luminances that are farther apart

struct Region {
    int left;
    int top;
    int width;
    int height;
};

Region middle(const ocuva::Frame& frame, int fraction) {
    const int part = std::max(fraction, 1);
    const int width = frame.width / part;
    const int height = frame.height / part;
    return {(frame.width - width) / 2, (frame.height - height) / 2, width, height};
}

std::vector<std::int16_t> luminances(const ocuva::Frame& frame, const Region& region) {
    std::vector<std::int16_t> out(static_cast<std::size_t>(region.width) *
                                  static_cast<std::size_t>(region.height));
    for (int y = 0; y < region.height; ++y) {
        const std::uint32_t* const from =
            frame.pixels.data() + static_cast<std::ptrdiff_t>(region.top + y) * frame.width + region.left;
        std::int16_t* const to = out.data() + static_cast<std::ptrdiff_t>(y) * region.width;
        for (int x = 0; x < region.width; ++x) {
            // 0.299, 0.587 and 0.114 in 1/256.
            to[x] = static_cast<std::int16_t>(
                ((from[x] >> 16U & 0xffU) * 77U + (from[x] >> 8U & 0xffU) * 150U + (from[x] & 0xffU) * 29U) >>
                8U);
        }
    }
    return out;
}

struct Energy {
    std::int64_t neighbours = 0;
    std::int64_t farther = 0;
};

// Differences of 16 and row sums of 32 bits, so that the compiler can make vector instructions of the loop.
Energy energyOfRow(const std::int16_t* row, std::ptrdiff_t pitch, int count) {
    std::int32_t neighbours = 0;
    std::int32_t farther = 0;
    const auto square = [row](std::ptrdiff_t from, std::ptrdiff_t to) -> std::int32_t {
        const auto difference = static_cast<std::int16_t>(row[to] - row[from]);
        return difference * difference;
    };
    for (int x = 0; x < count; ++x) {
        neighbours += square(x, x + 1) + square(x, x + pitch);
        farther += square(x, x + reach) + square(x, x + reach * pitch);
    }
    return {neighbours, farther};
}

} // namespace

Sharpness sharpnessOf(const ocuva::Frame& frame, int fraction) {
    const Region region = middle(frame, fraction);
    if (region.width <= reach || region.height <= reach) {
        return {};
    }
    const std::vector<std::int16_t> grey = luminances(frame, region);
    Energy sum;
    for (int y = 0; y < region.height - reach; ++y) {
        const Energy row = energyOfRow(grey.data() + static_cast<std::ptrdiff_t>(y) * region.width,
                                       region.width, region.width - reach);
        sum.neighbours += row.neighbours;
        sum.farther += row.farther;
    }
    const double count = static_cast<double>(region.width - reach) * (region.height - reach);
    // White noise of variance v gives neighbours 4 v per pixel, and the score a deviation of 4 v /
    // sqrt(count).
    return {static_cast<double>(sum.farther - sum.neighbours) / count,
            static_cast<double>(sum.neighbours) / count / std::sqrt(count)};
}

} // namespace hosts
