#include "app/Overlay.h"

#include "display/TwipsGeometry.h"

namespace ocuva {

OverlayMapping OverlayContext::mapping() const {
    const QSize display = panels.milDisp->size();
    return {
        fields.InitImageSizeX, fields.InitImageSizeY, {display.width(), display.height()}, screenMetrics()};
}

void Overlay::storeFlag(Long ViewOptions::*flag) const {
    ViewOptions view = m_context.settings.readView();
    view.*flag = isOn() ? 1 : 0;
    m_context.settings.writeView(view);
}

} // namespace ocuva
