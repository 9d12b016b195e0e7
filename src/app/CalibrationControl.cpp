#include "app/CalibrationControl.h"

#include <utility>

namespace ocuva {

CalibrationControl::CalibrationControl(CalibrationControlContext context)
    : m_context(std::move(context))
    , m_calibration(m_context.readings.host.tn_lib_proxy())
    , m_pictureOnStage(pictureContext()) {}

PictureOnStageContext CalibrationControl::pictureContext() {
    HandlerGuard& guard = m_context.guard;
    return {m_calibration,
            m_context.readings.host,
            m_context.stage,
            *m_context.controls.sbMain,
            m_context.window,
            [&guard](const QString& text) { guard.reportError(text); },
            [&guard](const QString& text) { guard.logError(text); },
            [this] { return m_context.image.view(); },
            [this] { m_context.image.showCalibration(); },
            *m_context.controls.panels.milDisp,
            [this] { return m_context.stage.watch().isWatching(); },
            walkSurroundings()};
}

WalkSurroundings CalibrationControl::walkSurroundings() {
    const auto offsetTo = [this](const PicturePoint& at) {
        constexpr Long whole = 10000; // picture coordinates are lengths like any others
        HostReadings& readings = m_context.readings;
        const StagePair move =
            moveToPoint({at.XPic, at.YPic, {whole / 2, whole / 2}, {whole, whole}},
                        readings.magnification.read(), readings.settings.readView(), readings.conversion);
        return StagePosition{move.x, move.y, 0};
    };
    return {offsetTo, m_context.doFocus, [this] { return whyNotToWalk(); },
            [this](const CalibrationField& field) { takeOver(field); }};
}

QString CalibrationControl::whyNotToWalk() const {
    const Magnification scale = m_context.readings.magnification.read();
    if (m_context.image.isStored()) {
        return QObject::tr("A stored picture is shown. Press Live (F7) first.");
    }
    if (m_context.image.vgaMouse()) {
        return QObject::tr("There is no autofocus in VGA mode: pick and read the points one by one.");
    }
    return scale.magnification <= 0 || scale.x100 <= 0.0F || scale.y100 <= 0.0F
               ? QObject::tr("The assistant needs the magnification and the field: enter them in the set-up, "
                             "tab Stage.")
               : QString();
}

void CalibrationControl::takeOver(const CalibrationField& field) {
    HostReadings& readings = m_context.readings;
    Magnification scale = readings.magnification.read();
    scale.x100 = field.x100;
    scale.y100 = field.y100;
    readings.magnification.write(scale);
    ViewOptions view = readings.settings.readView();
    view.MoveXInverse = field.MoveXInverse ? 1 : 0;
    view.MoveYInverse = field.MoveYInverse ? 1 : 0;
    readings.settings.writeView(view);
    m_context.scaleChanged();
}

} // namespace ocuva
