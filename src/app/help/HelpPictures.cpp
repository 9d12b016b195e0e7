#include "app/help/HelpPictures.h"

#include <QImageReader>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>

namespace ocuva {

namespace {

constexpr qreal paddingPx = 8;

QFontMetricsF metricsOf(const QTextDocument& text) { return QFontMetricsF(text.defaultFont()); }

QString description(const QTextImageFormat& image) {
    const QString given = image.stringProperty(QTextFormat::ImageAltText);
    return QObject::tr("[Picture: %1]").arg(given.isEmpty() ? image.name() : given);
}

} // namespace

void HelpPictures::setFolder(const QDir& folder) {
    m_folder = folder;
    m_sizes.clear();
    m_fitted.clear();
}

QSize HelpPictures::sizeOnDisk(const QString& name) {
    auto known = m_sizes.find(name);
    if (known == m_sizes.end()) {
        known = m_sizes.insert(name, QImageReader(m_folder.filePath(name)).size());
    }
    return *known;
}

QSizeF HelpPictures::intrinsicSize(QTextDocument* text, int /*position*/, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    const QSizeF size = sizeOnDisk(image.name());
    if (size.isEmpty()) {
        const QFontMetricsF metrics = metricsOf(*text);
        return {metrics.horizontalAdvance(description(image)) + 2 * paddingPx,
                metrics.height() + 2 * paddingPx};
    }
    return size * std::min(1.0, m_roomWidth / size.width());
}

void HelpPictures::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* text, int /*position*/,
                              const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    if (sizeOnDisk(image.name()).isEmpty()) {
        painter->setFont(text->defaultFont());
        painter->drawText(rect, Qt::AlignCenter, description(image));
        return;
    }
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, fitted(image.name(), (rect.size() * ratio).toSize()), QRectF());
}

const QPixmap& HelpPictures::fitted(const QString& name, const QSize& sizePx) {
    QPixmap& kept = m_fitted[name];
    if (kept.size() != sizePx) {
        const QImage whole(m_folder.filePath(name));
        kept = QPixmap::fromImage(whole.scaled(sizePx, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return kept;
}

} // namespace ocuva
