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
/// those of length 0. A distance that leaves 32 bits throws before any move is loaded.
void loadMovesTo(CTnStage& stage, const StagePosition& target);

} // namespace ocuva
