#include "autofocus/DoFocus.h"

namespace ocuva {

void doFocus(CTnStage& stage, StageWatch& watch, CTnVideoBoard& board, const CTnVideoImage& image) {
    stage.AutoFocus(static_cast<Integer>(hostTrue));
    watch.moveEnded();
    if (board.IsGrabbing()) {
        board.Halt(&image);
        board.Grab(&image, true);
    }
}

} // namespace ocuva
