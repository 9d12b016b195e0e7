#include "app/toolbar/IconCanvas.h"

#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace ocuva {

namespace {

// 2 pixels at 24, 3 at 40, 4 at 48, 6 at 80.
constexpr qreal wantedStrokeUnits = 1.75;

} // namespace

IconCanvas::IconCanvas(QPainter& painter, int sizePx)
    : m_painter(painter)
    , m_pxPerUnit(sizePx / gridUnits)
    , m_strokePx(std::max(1, qRound(wantedStrokeUnits * m_pxPerUnit))) {
    m_painter.setRenderHint(QPainter::Antialiasing);
}

// The middle of an outline is between two pixels if its width is even, and on a pixel if it is odd.
qreal IconCanvas::snapped(qreal units) const {
    const qreal px = units * m_pxPerUnit;
    return m_strokePx % 2 == 0 ? std::round(px) : std::floor(px) + 0.5;
}

QPointF IconCanvas::snapped(QPointF units) const { return {snapped(units.x()), snapped(units.y())}; }

void IconCanvas::choose(const QColor& outline, const QColor& fill) const {
    m_painter.setPen(outline.isValid() ? QPen(outline, m_strokePx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                                       : QPen(Qt::NoPen));
    m_painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
}

void IconCanvas::line(QPointF from, QPointF to, const QColor& colour) const { polyline({from, to}, colour); }

void IconCanvas::polyline(std::initializer_list<QPointF> points, const QColor& colour) const {
    QPolygonF px;
    for (const QPointF point : points) {
        px.append(snapped(point));
    }
    choose(colour, QColor());
    m_painter.drawPolyline(px);
}

void IconCanvas::polygon(std::initializer_list<QPointF> points, const QColor& outline,
                         const QColor& fill) const {
    QPolygonF px;
    for (const QPointF point : points) {
        px.append(snapped(point));
    }
    choose(outline, fill);
    m_painter.drawPolygon(px);
}

void IconCanvas::box(QRectF rect, qreal radius, const QColor& outline, const QColor& fill) const {
    choose(outline, fill);
    const qreal radiusPx = radius * m_pxPerUnit;
    m_painter.drawRoundedRect(QRectF(snapped(rect.topLeft()), snapped(rect.bottomRight())), radiusPx,
                              radiusPx);
}

void IconCanvas::ring(QPointF centre, qreal radius, const QColor& outline, const QColor& fill) const {
    choose(outline, fill);
    const qreal radiusPx = std::round(radius * m_pxPerUnit);
    m_painter.drawEllipse(snapped(centre), radiusPx, radiusPx);
}

void IconCanvas::shape(const QPainterPath& path, const QColor& outline, const QColor& fill) const {
    choose(outline, fill);
    m_painter.save();
    m_painter.scale(m_pxPerUnit, m_pxPerUnit);
    if (outline.isValid()) {
        QPen pen = m_painter.pen();
        pen.setWidthF(strokeUnits());
        m_painter.setPen(pen);
    }
    m_painter.drawPath(path);
    m_painter.restore();
}

void IconCanvas::dot(QPointF centre, qreal radius, const QColor& colour) const {
    choose(QColor(), colour);
    const qreal radiusPx = radius * m_pxPerUnit;
    m_painter.drawEllipse(snapped(centre), radiusPx, radiusPx);
}

void IconCanvas::slab(QRectF rect, const QColor& colour) const {
    const auto edge = [this](qreal units) { return qRound(units * m_pxPerUnit); };
    m_painter.fillRect(QRect(QPoint(edge(rect.left()), edge(rect.top())),
                             QPoint(edge(rect.right()) - 1, edge(rect.bottom()) - 1)),
                       colour);
}

} // namespace ocuva
