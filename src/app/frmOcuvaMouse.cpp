// What the mouse does on the image.

#include "app/frmOcuva.h"
#include "base/Numbers.h"

namespace ocuva {

void frmOcuva::milDisp_MouseMove(Qt::MouseButton /*button*/, int /*shift*/, float x, float y) {
    const std::optional<StoredPicture>& stored = m_pictures->stored();
    if (stored ? m_pictureOnStage->viewed().givesPositions() : m_vgaMouse) {
        showPointedPosition(x, y);
    }
}

void frmOcuva::milDisp_MouseLeave() {
    if (m_loaded && !m_exiting && m_pictureOnStage->endPointing()) {
        UpdateStagePos();
    }
}

void frmOcuva::showPointedPosition(Single x, Single y) {
    m_pictureOnStage->showPointedPosition(x, y, rect(MonitorPart::milDisp));
}

void frmOcuva::milDisp_MouseUp(Qt::MouseButton button, int /*shift*/, float x, float y) {
    const QRectF onImage = m_panels->milDisp->rect();
    const QPointF pixels(x / screen().TwipsPerPixelX, y / screen().TwipsPerPixelY);
    // A press that is dragged off the image is one that the operator thought better of.
    if (button != Qt::LeftButton || !onImage.contains(pixels)) {
        return;
    }
    guarded([this, x, y] {
        const TwipsRect display = rect(MonitorPart::milDisp);
        const std::optional<StoredPicture>& stored = m_pictures->stored();
        if (m_vgaMouse && m_pictureOnStage->viewed().givesPositions()) {
            m_pictureOnStage->clickPicture(x, y, display);
        } else if (m_pictureOnStage->isSelecting()) {
            UpdateStagePos(); // the point belongs to the view of this moment, wherever the host has driven
            m_pictureOnStage->takePoint(x, y, display);
        } else if (stored) {
            m_pictures->refuseClick();
        } else {
            moveToPoint({x,
                         y,
                         {toLong(display.width / 2.0), toLong(display.height / 2.0)},
                         {display.width, display.height}});
        }
    });
}

void frmOcuva::moveToPoint(const ClickOnImage& click) {
    const bool isOld = m_pictureAge.isOld() || m_information->hasStopped();
    const Magnification magnification = m_magnification.read();
    const StagePair move = ocuva::moveToPoint(click, magnification, m_settings.readView(), m_conversion);
    m_stage.DX(move.x);
    m_stage.DY(move.y);
    SyncStageMove(axisAll);
    if (isOld) {
        showMoveNote(tr("The picture is old: moved by %1, %2").arg(move.x).arg(move.y),
                     tr("It does not show the current field. Press Live (F7) for a new one."));
    }
}

} // namespace ocuva
