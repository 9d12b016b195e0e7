#pragma once
// Draws icon shapes given on a grid of 24 x 24 units so that they are crisp at any size in pixels.

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPointF>

#include <initializer_list>

namespace ocuva {

/// Coordinates and lengths are units of the grid (0 to 24, y down). Straight outlines and circles are shifted
/// by less than a pixel so that their edges fall between pixels; curves given as paths are drawn as they are.
class IconCanvas {
public:
    /// Side of the grid.
    static constexpr qreal gridUnits = 24.0;

    /// Draws into the square from (0, 0) to (sizePx, sizePx) of the painter, whose units are device pixels.
    IconCanvas(QPainter& painter, int sizePx);

    /// Outline width, in grid units.
    qreal strokeUnits() const { return m_strokePx / m_pxPerUnit; }

    /// Strokes of the outline's width, with round ends and corners.
    ///@{
    void line(QPointF from, QPointF to, const QColor& colour) const;
    void polyline(std::initializer_list<QPointF> points, const QColor& colour) const;
    ///@}

    /// Outlined and filled; an invalid colour leaves the one or the other away.
    ///@{
    void polygon(std::initializer_list<QPointF> points, const QColor& outline, const QColor& fill) const;
    void box(QRectF rect, qreal radius, const QColor& outline, const QColor& fill) const;
    void ring(QPointF centre, qreal radius, const QColor& outline, const QColor& fill) const;
    void shape(const QPainterPath& path, const QColor& outline, const QColor& fill) const;
    ///@}

    /// A filled circle round the same point as a ring of that centre.
    void dot(QPointF centre, qreal radius, const QColor& colour) const;

    /// A filled rectangle with sharp edges and no outline.
    void slab(QRectF rect, const QColor& colour) const;

private:
    QPointF snapped(QPointF units) const;
    qreal snapped(qreal units) const;
    void choose(const QColor& outline, const QColor& fill) const;

    QPainter& m_painter;
    qreal m_pxPerUnit;
    int m_strokePx;
};

} // namespace ocuva
