#pragma once
// From typed positions to the moves that reach them.

#include "stage/CTnStage.h"
#include "standards/StandardList.h"

#include <array>
#include <string>

namespace ocuva {

/// Converts the three typed texts. A text that is no number, or does not fit into 32 bits, throws
/// std::runtime_error whose text names the field ("X: "12abc" is not a number").
StagePosition typedPosition(const std::array<std::string, 3>& texts);

/// Loads the relative moves from where the stage stands at this moment to the target, X, then Y, then Z, also
/// those of length 0. A distance that leaves 32 bits, or for which the stage has no room in its sum, throws
/// ArithmeticError before any move is loaded. True when a distance is so long that hardly any stage can go
/// it: more than 16777216, which is as far as the host gets each whole number.
bool loadMovesTo(CTnStage& stage, const StagePosition& target);

} // namespace ocuva
