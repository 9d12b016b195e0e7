#include "app/Overlays.h"

#include "display/CrossGeometry.h"
#include "display/GridGeometry.h"
#include "display/MicroMarkerGeometry.h"
#include "display/MicroMarkerPanel.h"
#include "display/TwipsGeometry.h"

#include <utility>

namespace ocuva {

Overlays::Overlays(OverlaysContext context)
    : m_context(std::move(context))
    , m_frGrid(QStringLiteral("frGrid"), m_context.panels.milDisp)
    , m_frCross(QStringLiteral("frCross"), m_context.panels.milDisp) {
    m_context.panels.milDisp->setStyleSheet(overlayStyleSheet());
}

void Overlays::showStartState(const ViewOptions& view) {
    ShowCross(view.ShowCross != 0);
    ShowGrid(view.ShowGrid != 0);
    markCross();
    markGrid();
    showMicroMarker();
}

OverlayMapping Overlays::mapping() const {
    const QSize display = m_context.panels.milDisp->size();
    return {m_context.fields.InitImageSizeX,
            m_context.fields.InitImageSizeY,
            {display.width(), display.height()},
            screenMetrics()};
}

void Overlays::DrawCross(Long centreY, Long centreX) {
    const OverlayMapping onDisplay = mapping();
    const CrossShape shape{m_context.fields.CrossSize, m_context.fields.CrossWidth};
    std::vector<PixelRect> rects;
    for (const OverlayBar& arm : crossArms({centreX, centreY}, shape, screenMetrics())) {
        rects.push_back(onDisplay.toDisplay(arm).value_or(PixelRect{}));
    }
    m_frCross.place(rects);
}

void Overlays::DrawGrid(Long centreY, Long centreX) {
    const MonitorFields& fields = m_context.fields;
    const GridBars grid =
        gridBars({centreX, centreY}, {fields.GridSizeX, fields.GridSizeY, fields.GridLineWidth}, mapping(),
                 screenMetrics());
    m_frGrid.place(grid.bars, grid.roomForOutline);
}

void Overlays::DrawMicroMarker() {
    m_microMarkerIsTrue = false;
    showMicroMarker();
    const std::optional<Magnification> magnification = m_context.magnification();
    if (!magnification) {
        return;
    }
    const QSize display = m_context.panels.milDisp->size();
    const MicroMarker marker = microMarker(*magnification, m_context.conversion, twipsX(display.width()),
                                           m_context.fields.InitImageSizeX);
    m_context.panels.frMicroMarker->place(display, mapping().pixelsX(marker.barTwips),
                                          QString::fromStdString(microMarkerText(marker.scaleValue)));
    m_microMarkerIsTrue = true;
    showMicroMarker();
}

// The new state is that of the overlay turned round, not that of the mark or of the button: the one that was
// clicked has already changed its own.
void Overlays::toggleCross() {
    ShowCross(!bShowCross());
    markCross();
    m_context.saveToolbar();
    store(&ViewOptions::ShowCross, bShowCross());
}

void Overlays::toggleGrid() {
    ShowGrid(!bShowGrid());
    markGrid();
    m_context.saveToolbar();
    store(&ViewOptions::ShowGrid, bShowGrid());
}

void Overlays::toggleMicroMarker() {
    m_showMicroMarker = !m_showMicroMarker;
    showMicroMarker();
}

void Overlays::markCross() {
    m_context.menu.action("mnuCross")->setChecked(bShowCross());
    m_context.tbMain.setValue(QStringLiteral("Cross"), bShowCross());
}

void Overlays::markGrid() {
    m_context.menu.action("mnuGrid")->setChecked(bShowGrid());
    m_context.tbMain.setValue(QStringLiteral("Grid"), bShowGrid());
}

void Overlays::store(Long ViewOptions::*flag, bool on) {
    ViewOptions view = m_context.settings.readView();
    view.*flag = on ? 1 : 0;
    m_context.settings.writeView(view);
}

void Overlays::showMicroMarker() {
    m_context.menu.action("mnuMicroMarker")->setChecked(m_showMicroMarker);
    m_context.panels.frMicroMarker->setVisible(m_showMicroMarker && m_microMarkerIsTrue);
}

} // namespace ocuva
