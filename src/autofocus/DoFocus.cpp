#include "autofocus/DoFocus.h"

namespace ocuva {

namespace {

// A host that reports only success has not said where the search ended.
const char* journalResult(Long answer) {
    switch (answer) {
    case TARN_FOCUS_NONE:
        return "the host reported no focus";
    case TARN_FOCUS_FOUND:
        return "found";
    case TARN_FOCUS_EDGE:
        return "edge of the range";
    default:
        return "searched";
    }
}

std::optional<Long> zOf(const std::optional<StagePosition>& position) {
    return position ? std::optional<Long>(position->z) : std::nullopt;
}

} // namespace

FocusCourse doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image) {
    // While a move is watched, the position shown is the one before the move.
    const std::optional<StagePosition> from =
        watch.isWatching() ? std::optional<StagePosition>() : watch.shownPosition();
    const Long answer = stage.AutoFocus(static_cast<Integer>(hostTrue));
    watch.moveEnded();
    note(watch.journal(), {"focus", from, watch.shownPosition(), journalResult(answer)});
    if (board.IsGrabbing()) {
        board.Halt(&image);
        board.Grab(&image, true);
    }
    return {zOf(from), zOf(watch.shownPosition())};
}

} // namespace ocuva
