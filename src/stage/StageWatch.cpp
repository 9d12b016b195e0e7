#include "stage/StageWatch.h"

#include <utility>

namespace ocuva {

StageWatch::~StageWatch() {
    if (m_bStageMoving) {
        note(m_journal, {"move", m_from, {}, "not ended when the program ended"});
    }
}

void StageWatch::SyncStageMove(Integer axis) {
    // While a move is watched the frame may be orange; the colour saved before it is the one to restore.
    if (!m_bStageMoving) {
        m_savedColour = m_view.monitorColour();
        m_from = m_shown;
        m_ticksMoving = 0;
    }
    m_stage.Start(axis);
    m_bStageMoving = true;
    m_view.moveStarted(axis, m_from);
    m_view.enableMoveTimer(true);
}

void StageWatch::tick() {
    m_stage.CheckMove();
    if (m_bStageMoving) {
        m_view.setMonitorColour(m_oddTick ? m_savedColour : movingColour);
        m_oddTick = !m_oddTick;
        if (m_ticksMoving < longMoveTicks && ++m_ticksMoving == longMoveTicks) {
            m_view.moveTakesLong();
        }
    }
}

void StageWatch::moveEnded() {
    m_view.enableMoveTimer(false);
    const bool wasWatched = m_bStageMoving;
    if (m_bStageMoving) {
        m_view.setMonitorColour(m_savedColour);
        m_bStageMoving = false;
    }
    UpdateStagePos();
    if (wasWatched) {
        note(m_journal, {"move", m_from, m_shown, "ended"});
        m_view.watchedMoveEnded();
    }
}

void StageWatch::UpdateStagePos() {
    const StagePosition read{m_stage.X(), m_stage.Y(), m_stage.Z()};
    m_shown = read;
    m_view.showPosition(axisX, std::to_string(read.x));
    m_view.showPosition(axisY, std::to_string(read.y));
    m_view.showPosition(axisZ, std::to_string(read.z));
    m_view.positionShown(read);
}

void stepZ(CTnStage& stage, StageWatch& watch, std::size_t index, bool up,
           const std::function<void()>& onWait) {
    if (stage.IsMoving(axisZ)) {
        if (onWait) {
            onWait();
        }
        while (stage.IsMoving(axisZ)) {
        }
    }
    const Long step = zSteps.at(index);
    stage.DZ(up ? step : -step);
    watch.SyncStageMove(axisZ);
}

} // namespace ocuva
