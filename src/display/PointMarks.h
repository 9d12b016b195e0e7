#pragma once
// Points picked on the picture, each as a ring with its number.

#include "display/OverlayFigure.h"

#include <QPixmap>

#include <vector>

namespace ocuva {

/// A point of the picture with the number that it is known by.
struct NumberedPoint {
    /// 1/10000 of the picture's width and height.
    ///@{
    double x = 0.0;
    double y = 0.0;
    ///@}
    int number = 0; ///< 1 to 9

    bool operator==(const NumberedPoint&) const = default;
};

/// One ring on the display; its centre is the point.
class PointMark final : public OverlayWidget {
    Q_OBJECT

public:
    /// Hidden until place().
    explicit PointMark(QWidget* display);

    /// Shows the mark at its place, or hides it if the point is not on the image. The number is on a side
    /// of the ring with enough room.
    void place(const NumberedPoint& point);

    /// Its point, in pixels of the display.
    QPoint centre() const { return geometry().topLeft() + m_centre; }
    /// The number that it shows.
    int number() const { return m_number; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap draw() const;

    QPoint m_centre; // in the widget
    int m_number = 0;
    bool m_numberLeft = false;
    QPixmap m_drawn;
};

/// The marks of a display; they follow its size.
class PointMarks final : public QObject {
    Q_OBJECT

public:
    /// The display owns the marks and outlives them. None is there yet.
    explicit PointMarks(QWidget* display);

    /// Marks these points and no others.
    void show(const std::vector<NumberedPoint>& points);

    /// All that were ever made; those not in use are hidden.
    const std::vector<PointMark*>& marks() const { return m_marks; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget* m_display;
    std::vector<NumberedPoint> m_points;
    std::vector<PointMark*> m_marks;
};

} // namespace ocuva
