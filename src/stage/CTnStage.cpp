#include "stage/CTnStage.h"

#include "base/Numbers.h"

#include <cstdint>
#include <limits>

namespace ocuva {

const CTnStage::Limits& CTnStage::limits(Integer axis) {
    Limits& limits = m_limits[axis - axisX];
    m_libProxy.TarnGetStageLimits(axis, &limits.lower, &limits.upper);
    return limits;
}

void CTnStage::Start(Integer axis) { m_microProxy.TarnStartStage(axis); }

void CTnStage::CheckMove(Integer axis) {
    if (!IsMoving(axis) && MoveEnd) {
        MoveEnd(axis);
    }
}

void CTnStage::moveRelative(Integer axis, Long distance) {
    Long& sum = m_sumOfMoves[axis - axisX];
    sum = checkedAdd(sum, distance);
    m_microProxy.TarnLoadStageRelSecure(axis, static_cast<Single>(distance));
}

bool CTnStage::hasRoomFor(Integer axis, Long distance) const {
    const std::int64_t sum = std::int64_t{m_sumOfMoves[axis - axisX]} + distance;
    return sum >= std::numeric_limits<Long>::min() && sum <= std::numeric_limits<Long>::max();
}

void CTnStage::relieveSums() {
    constexpr Long half = std::numeric_limits<Long>::max() / 2;
    for (Long& sum : m_sumOfMoves) {
        if (sum > half || sum < -half) {
            sum = 0;
        }
    }
}

void CTnStage::moveAbsolute(Integer axis, Long position) {
    m_microProxy.TarnLoadStageAbs(axis, static_cast<Single>(position));
}

Long CTnStage::position(Integer axis) const {
    Long position = 0;
    m_microProxy.TarnReadStagePos(axis, &position);
    return position;
}

bool CTnStage::IsMoving(Integer axis) const {
    if (axis == axisAll) {
        const bool x = IsMoving(axisX);
        const bool y = IsMoving(axisY);
        const bool z = IsMoving(axisZ);
        return x || y || z;
    }
    Long status = 0;
    const Long result = m_microProxy.TarnReadStageStatus(axis, 0, &status);
    return result != 0 && status != 0;
}

Long CTnStage::AutoFocus(Integer flag) { return m_microProxy.TarnAutoFocusExt(flag); }

} // namespace ocuva
