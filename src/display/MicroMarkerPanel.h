#pragma once
// frMicroMarker: the scale bar with its value, at the bottom of the picture.

#include "display/OverlayFigure.h"

#include <QLabel>
#include <QPixmap>

#include <array>

namespace ocuva {

/// A label in the two colours of overlays. The text is drawn once, not with every frame.
class OutlinedLabel final : public QLabel {
    Q_OBJECT

public:
    /// Takes its colours from the parent.
    explicit OutlinedLabel(OverlayWidget* parent);

    /// Room for the text with its outline.
    QSize sizeHint() const override;
    /// The pixels of the label that text and outline cover.
    QRegion inked() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QPixmap drawText() const;

    const OverlayWidget& m_colours;
    QPixmap m_drawn;
    QString m_drawnText;
};

/// Shown or hidden by its owner, which knows whether there is a scale.
class MicroMarkerPanel final : public OverlayWidget {
    Q_OBJECT

public:
    /// A straight line between two points, in pixels of the panel.
    struct Line {
        /// Its two ends.
        ///@{
        int X1 = 0;
        int Y1 = 0;
        int X2 = 0;
        int Y2 = 0;
        ///@}
    };

    /// A child of the display.
    explicit MicroMarkerPanel(QWidget* display);

    /// Puts the panel across the bottom of a display of that size, with a bar of that length in pixels.
    void place(QSize display, double barPixels, const QString& text);

    /// The bar, then the ticks at its left and right end. The points are on the middle of the lines.
    const std::array<Line, 3>& LineMicroMarker() const { return m_lines; }

    /// The value, above the bar.
    OutlinedLabel* const lbMicroMarker;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<Line, 3> m_lines{};
    FigureRegions m_figure;
};

} // namespace ocuva
