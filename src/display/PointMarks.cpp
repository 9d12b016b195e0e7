#include "display/PointMarks.h"

#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace ocuva {

namespace {

constexpr double pictureParts = 10000.0;
constexpr int ringRadius = 8;
constexpr double coreWidth = 1.6;
constexpr double outlineWidth = 1.4; // on either side of the core
constexpr int gap = 4;               // between ring and number

bool isOnPicture(double part) { return part >= 0.0 && part <= pictureParts; }

int pixelAt(double part, int length) {
    return std::min(static_cast<int>(std::floor(part / pictureParts * length)), length - 1);
}

} // namespace

PointMark::PointMark(QWidget* display)
    : OverlayWidget(display) {
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    hide();
}

void PointMark::place(const NumberedPoint& point) {
    const QSize display = parentWidget()->size();
    if (!isOnPicture(point.x) || !isOnPicture(point.y) || display.isEmpty()) {
        hide();
        return;
    }
    const int half = ringRadius + 3;
    const int beside = gap + fontMetrics().horizontalAdvance(u'9') + 2;
    const QPoint at(pixelAt(point.x, display.width()), pixelAt(point.y, display.height()));
    m_number = point.number;
    m_numberLeft = at.x() + half + beside > display.width();
    m_centre = QPoint(m_numberLeft ? beside + half : half, half);
    m_drawn = {};
    setGeometry(QRect(at - m_centre, QSize(2 * half + 1 + beside, 2 * half + 1)));
    if (isWindowOfItsOwn()) {
        cutDownTo(QBitmap::fromImage(draw().toImage().scaled(size()).createAlphaMask()));
    }
    update();
    show();
    raise();
}

QPixmap PointMark::draw() const {
    QPixmap pixmap(size() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    const QPointF centre = QPointF(m_centre) + QPointF(0.5, 0.5);
    QPainterPath ring;
    ring.addEllipse(centre, ringRadius, ringRadius);
    QPainterPath text;
    const QString number = QString::number(m_number);
    const int width = fontMetrics().horizontalAdvance(number);
    const double left = m_numberLeft ? centre.x() - ringRadius - gap - width : centre.x() + ringRadius + gap;
    text.addText(left, centre.y() + fontMetrics().capHeight() / 2.0, font(), number);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(ring, QPen(outlineColour, coreWidth + 2 * outlineWidth));
    painter.strokePath(ring, QPen(coreColour, coreWidth));
    painter.strokePath(text,
                       QPen(outlineColour, 2 * outlineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(text, coreColour);
    return pixmap;
}

void PointMark::paintEvent(QPaintEvent* /*event*/) {
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != devicePixelRatioF()) {
        m_drawn = draw();
    }
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

PointMarks::PointMarks(QWidget* display)
    : QObject(display)
    , m_display(display) {
    display->installEventFilter(this);
}

void PointMarks::show(const std::vector<NumberedPoint>& points) {
    if (points != m_points) {
        m_points = points;
        place();
    }
}

void PointMarks::place() {
    while (m_marks.size() < m_points.size()) {
        m_marks.push_back(new PointMark(m_display));
        m_marks.back()->setObjectName(QStringLiteral("frPoint%1").arg(m_marks.size()));
    }
    for (std::size_t i = 0; i < m_marks.size(); ++i) {
        if (i < m_points.size()) {
            m_marks[i]->place(m_points[i]);
        } else {
            m_marks[i]->hide();
        }
    }
}

bool PointMarks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        place();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace ocuva
