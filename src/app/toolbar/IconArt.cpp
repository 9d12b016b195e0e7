#include "app/toolbar/IconArt.h"

#include "app/toolbar/IconCanvas.h"
#include "app/toolbar/ToolbarButtons.h"

#include <QLatin1StringView>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QtMath>

#include <algorithm>
#include <array>

namespace ocuva {

namespace {

const QColor none;

// A diskette: the picture goes to disk. The label carries the accent.
void drawSave(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.polygon({{4, 4}, {16, 4}, {20, 8}, {20, 20}, {4, 20}}, ink.line, ink.body);
    canvas.polyline({{8, 4}, {8, 8}, {14, 8}, {14, 4}}, ink.line);
    canvas.slab({QPointF(8, 13), QPointF(16, 19)}, ink.accent);
}

// A video camera with its record lamp.
void drawAcq(const IconCanvas& canvas, const IconInk& ink, bool on) {
    canvas.polygon({{16, 12}, {21, 8}, {21, 17}, {16, 13}}, ink.line, ink.line);
    canvas.box({QPointF(3, 6), QPointF(16, 19)}, 2, ink.line, ink.body);
    if (on) {
        canvas.dot({9.5, 12.5}, 4.6, ink.glow);
    }
    canvas.dot({9.5, 12.5}, on ? 3.4 : 2.6, on ? ink.lit : ink.unlit);
}

// A magnifying glass; the glass is tinted while the image is magnified.
void drawZoom(const IconCanvas& canvas, const IconInk& ink, bool on) {
    canvas.line({15, 15}, {20, 20}, ink.line);
    canvas.line({16, 16}, {20, 20}, ink.line);
    canvas.ring({10, 10}, 7, ink.line, on ? ink.accentBody : ink.body);
    canvas.line({7, 10}, {13, 10}, ink.accent);
    canvas.line({10, 7}, {10, 13}, ink.accent);
}

// The monitor with a cross that leaves its centre free, as the overlay does.
void drawCross(const IconCanvas& canvas, const IconInk& ink, bool on) {
    canvas.box({QPointF(3, 3), QPointF(21, 21)}, 1.5, ink.line, on ? ink.accentBody : ink.body);
    const QColor& arm = on ? ink.accent : ink.line;
    canvas.line({12, 6}, {12, 10}, arm);
    canvas.line({12, 14}, {12, 18}, arm);
    canvas.line({6, 12}, {10, 12}, arm);
    canvas.line({14, 12}, {18, 12}, arm);
}

// The monitor ruled in both directions.
void drawGrid(const IconCanvas& canvas, const IconInk& ink, bool on) {
    const QColor& rule = on ? ink.accent : ink.line;
    canvas.box({QPointF(3, 3), QPointF(21, 21)}, 1.5, none, on ? ink.accentBody : ink.body);
    for (const qreal at : {9.0, 15.0}) {
        canvas.line({at, 4}, {at, 20}, rule);
        canvas.line({4, at}, {20, at}, rule);
    }
    canvas.box({QPointF(3, 3), QPointF(21, 21)}, 1.5, ink.line, none);
}

// A specimen driven in four directions.
void drawStage(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.polyline({{9, 5}, {12, 2}, {15, 5}}, ink.line);
    canvas.polyline({{9, 19}, {12, 22}, {15, 19}}, ink.line);
    canvas.polyline({{5, 9}, {2, 12}, {5, 15}}, ink.line);
    canvas.polyline({{19, 9}, {22, 12}, {19, 15}}, ink.line);
    canvas.line({12, 2}, {12, 22}, ink.line);
    canvas.line({2, 12}, {22, 12}, ink.line);
    canvas.slab({QPointF(9, 9), QPointF(15, 15)}, ink.accent);
}

// A mount with reference samples in it.
void drawStandard(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.ring({12, 12}, 9, ink.line, ink.body);
    canvas.dot({12, 12}, 2.4, ink.accent);
    for (const QPointF centre : {QPointF(12, 7), QPointF(17, 12), QPointF(12, 17), QPointF(7, 12)}) {
        canvas.dot(centre, 1.4, ink.line);
    }
}

// An objective over the specimen, its beam on the surface, and the way that it is driven for focus.
void drawFocus(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.polygon({{5, 15}, {11, 15}, {8, 20}}, none, ink.accentBody);
    canvas.polygon({{4, 3}, {12, 3}, {12, 10}, {10, 14}, {6, 14}, {4, 10}}, ink.line, ink.body);
    canvas.line({4, 10}, {12, 10}, ink.line);
    canvas.line({3, 21}, {21, 21}, ink.line);
    canvas.line({18, 4}, {18, 16}, ink.accent);
    canvas.polyline({{15, 6}, {18, 3}, {21, 6}}, ink.accent);
    canvas.polyline({{15, 14}, {18, 17}, {21, 14}}, ink.accent);
}

// A gear wheel.
void drawSetup(const IconCanvas& canvas, const IconInk& ink, bool) {
    constexpr int teeth = 8;
    constexpr qreal rootRadius = 7.2;
    constexpr qreal tipRadius = 9.6;
    QPainterPath wheel;
    for (int corner = 0; corner < 4 * teeth; ++corner) {
        // Two corners at the tip and two at the root of each tooth; the flanks lean inwards.
        const bool tip = corner % 4 == 1 || corner % 4 == 2;
        const qreal lean = corner % 2 == 0 ? 0.06 : -0.06;
        const qreal angle = (corner - 1.5 + (tip ? lean * -3 : lean)) * 2 * M_PI / (4 * teeth) - M_PI / 2;
        const qreal radius = tip ? tipRadius : rootRadius;
        const QPointF point(12 + radius * qCos(angle), 12 + radius * qSin(angle));
        if (corner == 0) {
            wheel.moveTo(point);
        } else {
            wheel.lineTo(point);
        }
    }
    wheel.closeSubpath();
    canvas.shape(wheel, ink.line, ink.body);
    canvas.ring({12, 12}, 3, ink.accent, none);
}

// Not for a button: represents a separator in lists.
void drawSeparator(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.line({12, 4}, {12, 20}, ink.unlit);
}

// Not a button's either: there is more than the bar has room for.
void drawOverflow(const IconCanvas& canvas, const IconInk& ink, bool) {
    canvas.polyline({{4, 5}, {11, 12}, {4, 19}}, ink.line);
    canvas.polyline({{13, 5}, {20, 12}, {13, 19}}, ink.line);
}

struct Icon {
    QLatin1StringView key;
    void (*draw)(const IconCanvas&, const IconInk&, bool on);
};

constexpr std::array icons{
    Icon{QLatin1StringView{"Save"}, drawSave},
    Icon{QLatin1StringView{"Acq"}, drawAcq},
    Icon{QLatin1StringView{"Zoom"}, drawZoom},
    Icon{QLatin1StringView{"Cross"}, drawCross},
    Icon{QLatin1StringView{"Grid"}, drawGrid},
    Icon{QLatin1StringView{"Stage"}, drawStage},
    Icon{QLatin1StringView{"Standard"}, drawStandard},
    Icon{QLatin1StringView{"Focus"}, drawFocus},
    Icon{QLatin1StringView{"Setup"}, drawSetup},
    Icon{separatorText, drawSeparator},
    Icon{overflowIconKey, drawOverflow},
};

QImage blankImage(int sizePx) {
    QImage image(sizePx, sizePx, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

QStringList iconKeys() {
    QStringList keys;
    for (const Icon& icon : icons) {
        keys.append(icon.key);
    }
    return keys;
}

QImage drawIcon(const QString& key, bool on, const IconInk& ink, int sizePx) {
    QImage image = blankImage(std::max(1, sizePx));
    const auto* const icon =
        std::find_if(icons.begin(), icons.end(), [&](const Icon& i) { return key == i.key; });
    if (icon != icons.end()) {
        QPainter painter(&image);
        icon->draw(IconCanvas(painter, image.width()), ink, on);
    }
    return image;
}

void paintEmblem(QPainter& painter, qreal side) {
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal scale = side / IconCanvas::gridUnits;
    painter.scale(scale, scale);

    QLinearGradient badge(0, 1, 0, 23);
    badge.setColorAt(0, QColor(0x24, 0x4a, 0x6e));
    badge.setColorAt(1, QColor(0x0d, 0x1f, 0x33));
    painter.setPen(Qt::NoPen);
    painter.setBrush(badge);
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);

    QRadialGradient field(QPointF(12, 12), 7, QPointF(9.5, 9));
    field.setColorAt(0, QColor(0xc9, 0xf1, 0xff));
    field.setColorAt(0.6, QColor(0x4f, 0xb0, 0xf5));
    field.setColorAt(1, QColor(0x16, 0x68, 0xb4));
    painter.setBrush(field);
    painter.setPen(QPen(QColor(0xee, 0xf4, 0xf8), 1.75));
    painter.drawEllipse(QPointF(12, 12), 7.5, 7.5);

    painter.setPen(QPen(QColor(0x0d, 0x1f, 0x33), 1.0, Qt::SolidLine, Qt::FlatCap));
    for (const int quarter : {0, 1, 2, 3}) {
        painter.save();
        painter.translate(12, 12);
        painter.rotate(90.0 * quarter);
        painter.drawLine(QPointF(0, 2.2), QPointF(0, 6.6));
        painter.restore();
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0x52, 0x45));
    painter.drawEllipse(QPointF(12, 12), 1.3, 1.3);
}

QImage drawEmblem(int sizePx) {
    QImage image = blankImage(std::max(1, sizePx));
    QPainter painter(&image);
    paintEmblem(painter, image.width());
    return image;
}

} // namespace ocuva
