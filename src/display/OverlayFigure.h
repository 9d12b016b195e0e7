#pragma once
// Bars over the display: each is a small control that is moved when the image is resized and never changes
// the image.

#include "display/OverlayMapping.h"

#include <QColor>
#include <QImage>
#include <QRegion>
#include <QWidget>

#include <array>
#include <memory>
#include <vector>

namespace ocuva {

/// The style sheet of all overlays, which defines their colours. It is set on the display.
QString overlayStyleSheet();

/// Base of everything drawn over the image. It is transparent to the mouse and visible on any sample,
/// because it is drawn in two colours of the style sheet: a light core with a dark outline.
class OverlayWidget : public QWidget {
    Q_OBJECT
    /// Set by the style sheet.
    ///@{
    Q_PROPERTY(QColor coreColour MEMBER coreColour)
    Q_PROPERTY(QColor outlineColour MEMBER outlineColour)
    ///@}

public:
    /// A child of the display, above the existing ones.
    explicit OverlayWidget(QWidget* display);

    /// Whether the control is a native window, because the host draws the image.
    bool isWindowOfItsOwn() const { return testAttribute(Qt::WA_NativeWindow); }

    /// Limits a native control to these pixels, so that the host's image is visible around them. Has no
    /// effect if the program draws the image: the rest is transparent anyway.
    void cutDownTo(const QRegion& pixels);

    QColor coreColour = Qt::white;
    QColor outlineColour = Qt::black;

protected:
    bool event(QEvent* event) override;

private:
    QRect m_covered; // the part of the display that it covered last
};

/// The pixels of a figure made of bars.
struct FigureRegions {
    QRegion core;    ///< inside the bars
    QRegion outline; ///< one pixel round the core, also outside the bars

    /// Outline first, then core, in the colours of the overlay.
    void paint(QPainter& painter, const OverlayWidget& colours) const;
};

/// Bars that meet become one figure: no outline crosses a core. A bar of more than 5 pixels is hollow, so
/// that it does not hide the picture.
FigureRegions figureRegions(const std::vector<QRect>& bars, bool outlined);

/// A figure of many bars. It is painted in passes over all of them, so that it costs as much as it has bars:
/// the crossings of a fine grid are many more.
struct ManyBars {
    std::vector<QRect> bars; ///< in pixels of the display
    bool outlined = false;   ///< drawn with an outline

    /// Paints like figureRegions(). With seeThrough the inside of hollow bars becomes transparent,
    /// otherwise it gets the outline's colour.
    void paint(QPainter& painter, const OverlayWidget& colours, bool seeThrough) const;
};

/// One bar of a figure, or a sheet with many of them. It is drawn once and then copied over every frame,
/// because filling thin bars, especially vertical ones, is slow.
class BarFrame final : public OverlayWidget {
    Q_OBJECT

public:
    /// Without a place until place().
    explicit BarFrame(QWidget* display)
        : OverlayWidget(display) {}

    /// Takes its part of the figure; bar in pixels of the display.
    void place(const QRect& bar, const FigureRegions& figure);
    /// Takes many bars. area is what they cover without outlines, pixels what a native window is limited
    /// to.
    void placeMany(const QRect& area, std::shared_ptr<const ManyBars> bars, const QRegion& pixels);
    /// As placed last, without its outline.
    const QRect& bar() const { return m_bar; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage draw() const;

    QRect m_bar;
    FigureRegions m_part;
    std::shared_ptr<const ManyBars> m_many; // null for a single bar
    QImage m_drawn;                         // null: to be drawn
};

/// An array of bars that are shown and hidden together. Its controls are named after it, numbered from 0,
/// and below everything that was on the display when they were created.
class OverlayFigure {
public:
    /// The display outlives it. No bar is there yet.
    OverlayFigure(QString name, QWidget* display);

    /// Puts one control at each rectangle; an empty rectangle hides its control, and so do controls that are
    /// left over.
    void place(const std::vector<PixelRect>& bars, bool outlined = true);
    /// Also whether bars are shown that are placed later.
    void show(bool on);
    /// As show() said last; false before that.
    bool isShown() const { return m_shown; }

    /// All controls ever made for single bars, those left over too; at most mostSeparateBars.
    const std::vector<BarFrame*>& bars() const { return m_bars; }

    /// Figures with more bars are shown as one control across them: one large image per frame costs less
    /// than many small ones. If the host draws the image there are two, for the vertical and the
    /// horizontal bars, so that each is limited to as many rectangles as it has bars.
    static constexpr std::size_t mostSeparateBars = 24;

private:
    BarFrame* add(const QString& name);
    BarFrame& sheet(std::size_t index);
    void placeSeparately(const std::vector<QRect>& bars, bool outlined);
    void placeOnSheets(std::vector<QRect> bars, bool outlined);
    void emptySheets();

    QString m_name;
    QWidget* m_display;
    std::vector<BarFrame*> m_bars;
    std::array<BarFrame*, 2> m_sheets{}; // across all bars; empty while they are shown themselves
    bool m_shown = false;
};

} // namespace ocuva
