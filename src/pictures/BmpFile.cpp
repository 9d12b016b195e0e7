#include "pictures/BmpFile.h"

#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ocuva {

namespace {

int dotsPerMetre(double pixelsPerCm) {
    constexpr double cmPerMetre = 100.0;
    return static_cast<int>(
        std::lrint(std::clamp(pixelsPerCm * cmPerMetre, 1.0, double{std::numeric_limits<int>::max()})));
}

// As the writer wants it: 8 bits only with a palette.
QImage forWriter(const Picture& picture) {
    QImage image = picture.image;
    if (image.format() == QImage::Format_Grayscale8) {
        QList<QRgb> greys;
        for (int grey = 0; grey < 256; ++grey) {
            greys.append(qRgb(grey, grey, grey));
        }
        image = image.convertToFormat(QImage::Format_Indexed8, greys);
    }
    if (picture.scale.isKnown()) {
        image.setDotsPerMeterX(dotsPerMetre(picture.scale.pixelsPerCmX));
        image.setDotsPerMeterY(dotsPerMetre(picture.scale.pixelsPerCmY));
    }
    return image;
}

// Qt fills the rest of a picture that is cut off with black; the header tells how long the file must be.
bool isCutOff(QFile& file, const QSize& size) {
    constexpr qint64 headerBytes = 34;
    constexpr qint64 dataOffsetAt = 10;
    constexpr qint64 bitsAt = 28;
    constexpr qint64 compressionAt = 30;
    constexpr quint32 runLength8 = 1;
    constexpr quint32 runLength4 = 2;
    const QByteArray header = file.peek(headerBytes);
    if (header.size() < headerBytes) {
        return true;
    }
    const auto compression = qFromLittleEndian<quint32>(header.constData() + compressionAt);
    if (compression == runLength8 || compression == runLength4) {
        return false;
    }
    const auto start = qint64{qFromLittleEndian<quint32>(header.constData() + dataOffsetAt)};
    const auto bits = qint64{qFromLittleEndian<quint16>(header.constData() + bitsAt)};
    const qint64 line = (qint64{size.width()} * bits + 31) / 32 * 4;
    return file.size() < start + line * size.height();
}

} // namespace

void writeBmp(const std::filesystem::path& name, const Picture& picture) {
    QFile file(nameOf(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        throw PictureFileError(file.errorString());
    }
    QImageWriter writer(&file, "bmp");
    const bool written = writer.write(forWriter(picture));
    if (!file.flush() || file.error() != QFileDevice::NoError) {
        throw PictureFileError(file.errorString());
    }
    if (!written) {
        throw PictureFileError(writer.errorString());
    }
}

Picture readBmp(const std::filesystem::path& name) {
    QFile file(nameOf(name));
    const auto fail = [&](const QString& reason) {
        throw PictureFileError(
            QStringLiteral("\"%1\" cannot be opened as a BMP picture: %2").arg(nameOf(name), reason));
    };
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.errorString());
    }
    QImageReader reader(&file, "bmp");
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) {
        fail(QStringLiteral("it is none"));
    }
    if (size.width() > largestSide || size.height() > largestSide ||
        qint64{size.width()} * size.height() > mostPixels) {
        fail(QStringLiteral("its %1 x %2 pixels are too many").arg(size.width()).arg(size.height()));
    }
    file.seek(0);
    if (isCutOff(file, size)) {
        fail(QStringLiteral("it is cut off"));
    }
    QImageReader whole(&file, "bmp");
    Picture picture;
    picture.image = whole.read();
    if (picture.image.isNull()) {
        fail(whole.errorString());
    }
    picture.image.convertTo(picture.image.isGrayscale() && picture.image.format() == QImage::Format_Indexed8
                                ? QImage::Format_Grayscale8
                                : QImage::Format_RGB888);
    return picture;
}

} // namespace ocuva
