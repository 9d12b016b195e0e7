#pragma once
// From typed positions to the moves that reach them.

#include "stage/CTnStage.h"
#include "standards/StandardList.h"

#include <array>
#include <string>

namespace ocuva {

/// Converts the three typed texts. If a text is not a number, or does not fit into 32 bits, throws
/// std::runtime_error whose text names the field ("X: "12abc" is not a number").
StagePosition typedPosition(const std::array<std::string, 3>& texts);

/// Loads the relative moves from the current position to the target, X, then Y, then Z, including those of
/// length 0. If a distance exceeds 32 bits, or the stage's sum has no room for it, throws ArithmeticError
/// before any move is loaded. Returns true if a distance is longer than any real stage: more than
/// 16777216, up to which the host represents every whole number.
bool loadMovesTo(CTnStage& stage, const StagePosition& target);

} // namespace ocuva
