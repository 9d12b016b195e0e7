#include "stage/StageWatch.h"

#include <utility>

namespace ocuva {

void StageWatch::SyncStageMove(Integer axis) {
    // While a move is watched the frame may just be orange; the colour saved before it is the one to give
    // back.
    if (!m_bStageMoving) {
        m_savedColour = m_view.monitorColour();
    }
    m_stage.Start(axis);
    m_bStageMoving = true;
    m_view.enableMoveTimer(true);
}

void StageWatch::tick() {
    m_stage.CheckMove();
    if (m_bStageMoving) {
        m_view.setMonitorColour(m_oddTick ? m_savedColour : movingColour);
        m_oddTick = !m_oddTick;
    }
}

void StageWatch::moveEnded() {
    m_view.enableMoveTimer(false);
    if (m_bStageMoving) {
        m_view.setMonitorColour(m_savedColour);
        m_bStageMoving = false;
    }
    UpdateStagePos();
}

void StageWatch::UpdateStagePos() {
    m_view.showPosition(axisX, std::to_string(m_stage.X()));
    m_view.showPosition(axisY, std::to_string(m_stage.Y()));
    m_view.showPosition(axisZ, std::to_string(m_stage.Z()));
}

void stepZ(CTnStage& stage, StageWatch& watch, std::size_t index, bool up) {
    while (stage.IsMoving(axisZ)) {
    }
    const Long step = zSteps.at(index);
    stage.DZ(up ? step : -step);
    watch.SyncStageMove(axisZ);
}

} // namespace ocuva
