#include "setup/IndicatorShape.h"

#include <QPainter>

#include <algorithm>

namespace ocuva {

void IndicatorShape::setColour(Long colour) {
    m_colour = QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
    update();
}

QSize IndicatorShape::sizeHint() const {
    const int side = fontMetrics().height();
    return {side, side};
}

void IndicatorShape::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(width(), height()) - 2.0;
    QRectF circle(0.0, 0.0, side, side);
    circle.moveCenter(QRectF(rect()).center());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setBrush(m_colour);
    painter.drawEllipse(circle);
}

} // namespace ocuva
