#include "app/MicroMarkerOverlay.h"

#include "display/MicroMarkerGeometry.h"
#include "display/TwipsGeometry.h"

namespace ocuva {

void MicroMarkerOverlay::show(bool on) {
    m_on = on;
    showPanel();
}

void MicroMarkerOverlay::draw(const ImagePoint& /*centre*/) {
    m_isTrue = false;
    showPanel();
    const std::optional<Magnification> magnification = context().magnification();
    if (!magnification) {
        return;
    }
    const QSize display = context().panels.milDisp->size();
    const MicroMarker marker = microMarker(*magnification, context().conversion, twipsX(display.width()),
                                           context().fields.InitImageSizeX);
    context().panels.frMicroMarker->place(display, context().mapping().pixelsX(marker.barTwips),
                                          QString::fromStdString(microMarkerText(marker.scaleValue)));
    m_isTrue = true;
    showPanel();
}

void MicroMarkerOverlay::showPanel() { context().panels.frMicroMarker->setVisible(m_on && m_isTrue); }

} // namespace ocuva
