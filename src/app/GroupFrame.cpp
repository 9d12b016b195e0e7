#include "app/GroupFrame.h"

#include <QPainter>

namespace ocuva {

namespace {
constexpr qreal cornerRadius = 4.0;
constexpr int captionLeft = 10;
constexpr int captionGap = 4;
} // namespace

GroupFrame::GroupFrame(const QString& objectName, const QString& caption, QWidget* parent)
    : QWidget(parent)
    , m_caption(caption) {
    setObjectName(objectName);
}

void GroupFrame::setCaption(const QString& caption) {
    m_caption = caption;
    update();
}

QColor GroupFrame::paletteColour() const { return palette().color(QPalette::Window); }

QColor GroupFrame::fillColour() const { return m_ownColour.isValid() ? m_ownColour : paletteColour(); }

void GroupFrame::setFillColour(const QColor& colour) {
    m_ownColour = colour == paletteColour() ? QColor() : colour;
    update();
}

void GroupFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF edge = QRectF(rect()).adjusted(0.5, captionInset + 0.5, -0.5, -0.5);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.28F);
    painter.setPen(line);
    painter.setBrush(fillColour());
    painter.drawRoundedRect(edge, cornerRadius, cornerRadius);
    if (m_caption.isEmpty()) {
        return;
    }
    const QFontMetrics metrics(font());
    const QRect text(captionLeft, captionInset - metrics.height() / 2, metrics.horizontalAdvance(m_caption),
                     metrics.height());
    painter.fillRect(text.adjusted(-captionGap, 0, captionGap, 0), fillColour());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(text, Qt::AlignCenter, m_caption);
}

} // namespace ocuva
