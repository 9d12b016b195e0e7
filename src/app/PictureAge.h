#pragma once
// Whether the picture on the screen still shows where the stage is.

#include "base/Types.h"
#include "journal/JournalEntry.h"

#include <optional>

namespace ocuva {

/// Keeps count of what the program itself knows: frames, and the moves in X and Y that it has started since
/// the last one. The host is asked nothing; a stage that somebody else drives is not noticed.
class PictureAge {
public:
    /// A frame was shown, or a grab began of which no frame is seen here: this is the picture now.
    void frameShown();
    /// A move of an axis (0: all) was started from the position shown last.
    void moveStarted(Integer axis, const std::optional<JournalPosition>& from);
    /// No move is under way; the stage was read there.
    void positionRead(const JournalPosition& at);

    /// Whether a click on the picture brings another point to the centre than the one that is seen: there has
    /// been no picture at all, or the stage is not where it was when the picture came.
    bool isOld() const { return !m_hasPicture || m_stageHasGone; }

private:
    bool m_hasPicture = false;
    bool m_stageHasGone = false;
    std::optional<JournalPosition> m_takenAt; // known once a move has begun
};

} // namespace ocuva
