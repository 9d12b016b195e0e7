#include "stage/AxisWait.h"

namespace ocuva {

AxisWait::State AxisWait::begin() {
    m_state = State::Waiting;
    waitFor(axisX);
    return tick();
}

void AxisWait::waitFor(Integer axis) {
    m_axis = axis;
    m_ticksAtPlace = 0;
}

AxisWait::State AxisWait::tick() {
    while (m_state == State::Waiting) {
        if (isMoving()) {
            if (hasStalled()) {
                m_state = State::Stalled;
            }
            break;
        }
        if (m_axis == axisZ) {
            m_state = State::Arrived;
        } else {
            waitFor(static_cast<Integer>(m_axis + 1));
        }
    }
    return m_state;
}

bool AxisWait::isMoving() const {
    constexpr Long moving = 1;
    Long status = 0;
    const bool known = m_microProxy.TarnReadStageStatus(m_axis, 0, &status) != 0;
    return known && status == moving;
}

bool AxisWait::hasStalled() {
    Long place = m_place;
    m_microProxy.TarnReadStagePos(m_axis, &place);
    if (place != m_place) {
        m_place = place;
        m_ticksAtPlace = 0;
    }
    return ++m_ticksAtPlace > patienceTicks;
}

} // namespace ocuva
