#pragma once
// The inner loop of grey level statistics, by hand for the vector units that there are.

#include <cstddef>
#include <cstdint>

namespace hosts {

struct GreySums {
    std::uint64_t levels = 0;
    std::uint64_t squares = 0;
};

/// Sums of 8-bit grey levels and of their squares; exact for up to 2^32 levels. Reads only these bytes, at
/// any alignment.
GreySums greySums(const std::uint8_t* levels, std::size_t count);

} // namespace hosts
