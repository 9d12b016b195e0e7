#include "app/GridOverlay.h"

#include "display/GridGeometry.h"
#include "display/TwipsGeometry.h"

namespace ocuva {

void GridOverlay::draw(const ImagePoint& centre) {
    const MonitorFields& fields = context().fields;
    const GridBars grid = gridBars(centre, {fields.GridSizeX, fields.GridSizeY, fields.GridLineWidth},
                                   context().mapping(), screenMetrics());
    m_frGrid.place(grid.bars, grid.roomForOutline);
}

} // namespace ocuva
