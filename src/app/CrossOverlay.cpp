#include "app/CrossOverlay.h"

#include "display/CrossGeometry.h"
#include "display/TwipsGeometry.h"

namespace ocuva {

void CrossOverlay::draw(const ImagePoint& centre) {
    const OverlayMapping onDisplay = context().mapping();
    const CrossShape shape{context().fields.CrossSize, context().fields.CrossWidth};
    std::vector<PixelRect> rects;
    for (const OverlayBar& arm : crossArms(centre, shape, screenMetrics())) {
        rects.push_back(onDisplay.toDisplay(arm).value_or(PixelRect{}));
    }
    m_frCross.place(rects);
}

} // namespace ocuva
