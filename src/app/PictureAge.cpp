#include "app/PictureAge.h"

namespace ocuva {

void PictureAge::frameShown() {
    m_hasPicture = true;
    m_stageHasGone = false;
    m_takenAt.reset();
}

void PictureAge::moveStarted(Integer axis, const std::optional<StagePosition>& from) {
    if (axis == axisZ) {
        return; // the same point stays under the centre
    }
    if (!m_stageHasGone && !m_takenAt) {
        m_takenAt = from;
    }
    m_stageHasGone = true;
}

void PictureAge::positionRead(const StagePosition& at) {
    if (m_takenAt) {
        m_stageHasGone = at.x != m_takenAt->x || at.y != m_takenAt->y;
    }
}

} // namespace ocuva
