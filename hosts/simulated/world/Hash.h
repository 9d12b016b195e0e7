#pragma once
// Integer hashing: the only source of chance in the world. Equal arguments give equal numbers on every
// machine.

#include <cstdint>

namespace hosts::simulated {

/// Mixes 32 bits so that every input bit reaches every output bit.
constexpr std::uint32_t mix(std::uint32_t value) {
    value ^= value >> 16;
    value *= 0x7feb352dU;
    value ^= value >> 15;
    value *= 0x846ca68bU;
    value ^= value >> 16;
    return value;
}

constexpr std::uint32_t mix(std::uint32_t seed, std::uint32_t value) {
    return mix(seed * 0x9e3779b9U ^ mix(value + 0x85ebca6bU));
}

/// The number of a lattice cell. Cells 2^32 apart share it, far beyond any stage.
constexpr std::uint32_t cellHash(std::uint32_t seed, std::int64_t column, std::int64_t row) {
    return mix(mix(seed, static_cast<std::uint32_t>(column)), static_cast<std::uint32_t>(row));
}

/// 0 to just below 1, from the upper 24 bits: exact in a float.
constexpr float unitFloat(std::uint32_t hash) { return static_cast<float>(hash >> 8) * (1.0F / 16777216.0F); }

/// -1 to just below 1.
constexpr float signedFloat(std::uint32_t hash) { return unitFloat(hash) * 2.0F - 1.0F; }

/// A row of independent numbers drawn from one hash.
class Draw {
public:
    explicit constexpr Draw(std::uint32_t hash)
        : m_state(hash) {}
    constexpr std::uint32_t bits() { return m_state = mix(m_state + 0x9e3779b9U); }
    constexpr float unit() { return unitFloat(bits()); }
    constexpr float between(float low, float high) { return low + (high - low) * unit(); }
    constexpr float centred() { return signedFloat(bits()); }

private:
    std::uint32_t m_state;
};

} // namespace hosts::simulated
