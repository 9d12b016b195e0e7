#pragma once
// The scalar types of the host boundary and of the windows' lengths.

#include <cstdint>

namespace ocuva {

using Integer = std::int16_t; ///< 16-bit signed whole number
using Long = std::int32_t;    ///< 32-bit signed whole number: positions, lengths in twips, host results
using Single = float;         ///< 32-bit float: what the host's move calls and field factors take
using Double = double;        ///< 64-bit float

/// The host's Boolean: all bits set for true, so -1 in any signed width.
inline constexpr Long hostTrue = -1;
inline constexpr Long hostFalse = 0;

/// Axis codes of every stage call.
inline constexpr Integer axisAll = 0;
inline constexpr Integer axisX = 1;
inline constexpr Integer axisY = 2;
inline constexpr Integer axisZ = 3;

} // namespace ocuva
