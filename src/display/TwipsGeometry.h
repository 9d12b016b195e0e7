#pragma once
// The windows' lengths in twips on widgets that count in screen pixels.

#include "display/MonitorView.h"

#include <QPointF>
#include <QRect>
#include <QWidget>

namespace ocuva {

/// The screen's twips per pixel. Qt's pixels are device-independent, 96 to the inch on every screen.
ScreenMetrics screenMetrics();

/// Rounded half to even, because controls are placed on whole pixels.
int pixelsX(Long twips);
int pixelsY(Long twips);
QRect toPixels(const TwipsRect& rect);

Long twipsX(int pixels);
Long twipsY(int pixels);
TwipsRect toTwips(const QRect& rect);
QPointF toTwips(const QPointF& pixels);

} // namespace ocuva
