#pragma once
// Whether the picture on the screen still shows the current field.

#include "base/Types.h"
#include "journal/JournalEntry.h"

#include <optional>

namespace ocuva {

/// Considers only what the program knows: frames, and its own moves in X and Y since the last frame. Makes
/// no host calls; a stage moved by another program is not noticed.
class PictureAge {
public:
    /// A frame was shown, or a grab began of which no frame is seen here: this is the picture now.
    void frameShown();
    /// A move of an axis (0: all) was started from the position shown last.
    void moveStarted(Integer axis, const std::optional<StagePosition>& from);
    /// No move is under way; the stage was read there.
    void positionRead(const StagePosition& at);

    /// Whether a click on the picture would centre another point than the visible one: there has been no
    /// picture, or the stage has moved since it was taken.
    bool isOld() const { return !m_hasPicture || m_stageHasGone; }

private:
    bool m_hasPicture = false;
    bool m_stageHasGone = false;
    std::optional<StagePosition> m_takenAt; // known once a move has begun
};

} // namespace ocuva
