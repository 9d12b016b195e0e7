#include "autofocus/DoFocus.h"

namespace ocuva {

void doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image) {
    const std::optional<JournalPosition> from = watch.shownPosition();
    const Long answer = stage.AutoFocus(static_cast<Integer>(hostTrue));
    watch.moveEnded();
    note(watch.journal(),
         {"focus", from, watch.shownPosition(), answer != 0 ? "found" : "the host found none"});
    if (board.IsGrabbing()) {
        board.Halt(&image);
        board.Grab(&image, true);
    }
}

} // namespace ocuva
