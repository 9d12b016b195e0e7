#include "display/MicroMarkerPanel.h"

#include "base/Numbers.h"

#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <vector>

namespace ocuva {

namespace {

constexpr int marginLeft = 12;
constexpr int marginBottom = 9;
constexpr int tickHeight = 10;
constexpr int lineWidth = 2;
constexpr int labelGap = 1;
constexpr int textOutline = 1;

QRect thickLine(const MicroMarkerPanel::Line& line) {
    constexpr int half = lineWidth / 2;
    return QRect(QPoint(line.X1, line.Y1), QPoint(line.X2 - 1, line.Y2 - 1))
        .adjusted(-half, -half, half, half);
}

} // namespace

OutlinedLabel::OutlinedLabel(OverlayWidget* parent)
    : QLabel(parent)
    , m_colours(*parent) {
    setTextFormat(Qt::PlainText);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

QSize OutlinedLabel::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(text()) + 2 * textOutline, metrics.height() + 2 * textOutline};
}

void OutlinedLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    m_drawn = {};
}

QPixmap OutlinedLabel::drawText() const {
    QPixmap pixmap(size() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainterPath path;
    path.addText(textOutline, textOutline + QFontMetrics(font()).ascent(), font(), text());
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen outline(m_colours.outlineColour, 2.0 * textOutline + 0.5, Qt::SolidLine, Qt::RoundCap,
                       Qt::RoundJoin);
    painter.strokePath(path, outline);
    painter.fillPath(path, m_colours.coreColour);
    return pixmap;
}

QRegion OutlinedLabel::inked() const {
    return QBitmap::fromImage(drawText().toImage().scaled(size()).createAlphaMask());
}

void OutlinedLabel::paintEvent(QPaintEvent* /*event*/) {
    if (m_drawnText != text() || m_drawn.devicePixelRatio() != devicePixelRatioF() ||
        m_drawn.deviceIndependentSize().toSize() != size()) {
        m_drawn = drawText();
        m_drawnText = text();
    }
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

MicroMarkerPanel::MicroMarkerPanel(QWidget* display)
    : OverlayWidget(display)
    , lbMicroMarker(new OutlinedLabel(this)) {
    setObjectName(QStringLiteral("frMicroMarker"));
    lbMicroMarker->setObjectName(QStringLiteral("lbMicroMarker"));
}

void MicroMarkerPanel::place(QSize display, double barPixels, const QString& text) {
    lbMicroMarker->setText(text);
    const QSize label = lbMicroMarker->sizeHint();
    const int height = label.height() + labelGap + tickHeight + marginBottom;
    setGeometry(0, display.height() - height, display.width(), height);

    const int left = marginLeft;
    const int right = left + toLong(barPixels);
    const int bottom = height - marginBottom;
    const int top = bottom - tickHeight;
    const int middle = (top + bottom) / 2;
    m_lines = {{{left, middle, right, middle}, {left, top, left, bottom}, {right, top, right, bottom}}};
    std::vector<QRect> bars;
    for (const Line& line : m_lines) {
        bars.push_back(thickLine(line));
    }
    m_figure = figureRegions(bars, true);

    // Over the middle of the bar, but never cut off at the left. Its text begins with a space.
    const int centred = (left + right - label.width()) / 2;
    lbMicroMarker->setGeometry(QRect(QPoint(std::max(centred, 0), top - labelGap - label.height()), label));
    if (isWindowOfItsOwn()) {
        cutDownTo(m_figure.core + m_figure.outline + lbMicroMarker->inked().translated(lbMicroMarker->pos()));
    }
    update();
}

void MicroMarkerPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    m_figure.paint(painter, *this);
}

} // namespace ocuva
