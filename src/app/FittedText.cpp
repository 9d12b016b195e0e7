#include "app/FittedText.h"

#include <QFontMetrics>

#include <algorithm>
#include <optional>

namespace ocuva {

namespace {

QFont scaled(const QFont& font, double size) {
    QFont smaller = font;
    if (font.pointSizeF() > 0.0) {
        smaller.setPointSizeF(font.pointSizeF() * size);
    } else {
        smaller.setPixelSize(std::max(1, qRound(font.pixelSize() * size)));
    }
    return smaller;
}

bool fits(const QString& line, const QFontMetrics& metrics, const QSize& room) {
    return metrics.horizontalAdvance(line) <= room.width();
}

// Broken at the last separator before which the first line still fits.
QStringList broken(const QString& text, const QString& separator, const QFontMetrics& metrics,
                   const QSize& room) {
    for (qsizetype at = text.lastIndexOf(separator); at > 0; at = text.lastIndexOf(separator, at - 1)) {
        const QString first = text.left(at).trimmed();
        if (fits(first, metrics, room)) {
            return {first, text.mid(at).trimmed()};
        }
    }
    return {text};
}

std::optional<FittedText> fittedAt(double size, const QString& text, const QString& separator,
                                   const QFont& font, const QSize& room) {
    const QFont smaller = scaled(font, size);
    const QFontMetrics metrics(smaller);
    if (fits(text, metrics, room)) {
        return FittedText{smaller, {text}};
    }
    const QStringList lines = broken(text, separator, metrics, room);
    const bool areTwo = lines.size() == 2 && 2 * metrics.height() <= room.height();
    return areTwo && fits(lines.at(1), metrics, room) ? std::optional(FittedText{smaller, lines})
                                                      : std::nullopt;
}

} // namespace

QString partSeparator() { return QStringLiteral("   "); }

FittedText fittedText(const QString& text, const QFont& font, const QSize& room) {
    if (fits(text, QFontMetrics(font), room)) {
        return {font, {text}};
    }
    constexpr int steps = 5;
    for (const QString& separator : {partSeparator(), QStringLiteral(" ")}) {
        for (int step = 0; step <= steps; ++step) {
            const double size = 1.0 - (1.0 - smallestText) * step / steps;
            if (const auto fitted = fittedAt(size, text, separator, font, room)) {
                return *fitted;
            }
        }
    }
    const QFont smallest = scaled(font, smallestText);
    const QFontMetrics metrics(smallest);
    QStringList lines = 2 * metrics.height() <= room.height()
                            ? broken(text, QStringLiteral(" "), metrics, room)
                            : QStringList{text};
    lines.last() = metrics.elidedText(lines.last(), Qt::ElideRight, room.width());
    return {smallest, lines, false};
}

int heightOfTwoLines(const QFont& font) { return 2 * QFontMetrics(scaled(font, twoLineText)).height(); }

} // namespace ocuva
