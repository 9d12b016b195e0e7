#pragma once
// Grey level statistics of a picture.

#include <cstddef>
#include <cstdint>

namespace hosts {

struct GreyStatistics {
    std::uint64_t count = 0;
    std::uint64_t sum = 0;
    double variance = 0.0; ///< of the whole population, square grey levels; 0 for no pixels
};

/// Of 8-bit grey levels; exact for up to 2^32 of them. About as fast as memory is read.
GreyStatistics statistics(const std::uint8_t* levels, std::size_t count);

/// Of the luminance (77 red + 150 green + 29 blue) / 256, rounded down, of each pixel 0xffRRGGBB; the
/// uppermost byte is ignored. Exact for up to 2^32 pixels.
GreyStatistics statistics(const std::uint32_t* pixels, std::size_t count);

} // namespace hosts
