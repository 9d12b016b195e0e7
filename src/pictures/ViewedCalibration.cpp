#include "pictures/ViewedCalibration.h"

#include <utility>

namespace ocuva {

ViewedCalibration::ViewedCalibration(const Calibration& calibration, CalibrationView shown)
    : m_calibration(calibration)
    , m_shown(std::move(shown)) {
    if (calibration.isMade() && calibration.view) {
        m_relation = relationTo(*calibration.view, m_shown);
    }
}

bool ViewedCalibration::isElsewhere() const {
    if (m_relation) {
        return m_relation->kind != ViewRelation::Kind::Same;
    }
    return m_shown.isStored() && m_calibration.isMade();
}

bool ViewedCalibration::givesPositions() const {
    return !m_shown.isStored() || (m_relation && (m_relation->kind == ViewRelation::Kind::Same ||
                                                  m_relation->kind == ViewRelation::Kind::Moved));
}

StagePosition ViewedCalibration::position(Single XPic, Single YPic) const {
    if (m_shown.isStored() && m_relation && m_relation->kind == ViewRelation::Kind::Moved) {
        return m_calibration.movedPosition(XPic, YPic, m_relation->dx, m_relation->dy);
    }
    return m_calibration.ComputeStagePosition(XPic, YPic);
}

} // namespace ocuva
