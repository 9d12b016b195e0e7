// The main window's part of the calibration.

#include "app/frmOcuva.h"
#include "setup/frmSetup.h"

namespace ocuva {

PictureOnStageContext frmOcuva::calibrationContext() {
    return {m_calibration,
            m_context.host,
            *this,
            *sbMain,
            *this,
            [this](const QString& text) { reportError(text); },
            [this](const QString& text) { logError(text); },
            [this] { return shownView(); },
            [this] { showCalibration(); },
            *m_panels->milDisp,
            [this] { return m_watch.isWatching(); },
            walkSurroundings()};
}

WalkSurroundings frmOcuva::walkSurroundings() {
    const auto offsetTo = [this](const PicturePoint& at) {
        constexpr Long whole = 10000; // picture coordinates are lengths like any others
        const StagePair move =
            ocuva::moveToPoint({at.XPic, at.YPic, {whole / 2, whole / 2}, {whole, whole}},
                               m_magnification.read(), m_settings.readView(), m_conversion);
        return StagePosition{move.x, move.y, 0};
    };
    const auto whyNot = [this] {
        const Magnification scale = m_magnification.read();
        return m_pictures->stored() ? tr("A stored picture is shown. Press Live (F7) first.")
               : m_vgaMouse ? tr("There is no autofocus in VGA mode: pick and read the points one by one.")
               : scale.magnification <= 0 || scale.x100 <= 0.0F || scale.y100 <= 0.0F
                   ? tr("The assistant needs the magnification and the field: enter them in the set-up, tab "
                        "Stage.")
                   : QString();
    };
    return {offsetTo, [this] { DoFocus(); }, whyNot,
            [this](const CalibrationField& field) { takeOver(field); }};
}

void frmOcuva::takeOver(const CalibrationField& field) {
    Magnification scale = m_magnification.read();
    scale.x100 = field.x100;
    scale.y100 = field.y100;
    m_magnification.write(scale);
    ViewOptions view = m_settings.readView();
    view.MoveXInverse = field.MoveXInverse ? 1 : 0;
    view.MoveYInverse = field.MoveYInverse ? 1 : 0;
    m_settings.writeView(view);
    DrawMicroMarker();
    if (m_frmSetup != nullptr && m_frmSetup->isVisible()) {
        m_frmSetup->close(); // it shows old values; opened again it shows the current ones
    }
}

CalibrationView frmOcuva::shownView() const {
    if (m_pictures != nullptr && m_pictures->stored()) {
        return m_pictures->stored()->view();
    }
    const std::optional<StagePosition>& at = m_watch.shownPosition();
    return at ? CalibrationView{{}, ViewPlace{*at, m_information->magnification()}} : CalibrationView{};
}

void frmOcuva::showCalibration() {
    const bool described = m_pictures != nullptr && m_pictures->stored() && m_pictures->stored()->described;
    m_information->showCalibration(calibrationWords(m_pictureOnStage->viewed(), described), m_vgaMouse);
    m_pictureOnStage->viewChanged();
}

} // namespace ocuva
