#pragma once
// The host's solver for a plane through stage points.

#include "base/Types.h"

namespace hosts {

/// Smallest pivot that counts, relative to the largest, once every column is scaled to a largest entry of 1.
/// Three whole-unit points inside +-25000 that are not on one line have pivots above 4e-10, even where their
/// triangle has an area of half a square unit; the rounding of points on one line stays below 1e-14.
inline constexpr double planRankThreshold = 1e-10;

/// Solves matrix * (a, b, c) = rightSide. matrix: rows x 3 numbers row by row; rightSide: rows numbers;
/// solution: 3 numbers. True when three rows decide the solution. False, and the solution untouched, when
/// they do not (points on one line, equal points, numbers that are not finite), and for any other number of
/// rows: two rows leave a plane open, and the host does not choose one of the many.
bool solvePlan(ocuva::Long rows, const ocuva::Double* matrix, const ocuva::Double* rightSide,
               ocuva::Double* solution);

} // namespace hosts
