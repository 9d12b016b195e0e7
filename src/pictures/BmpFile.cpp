#include "pictures/BmpFile.h"

#include "platform/PathOf.h"

#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
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

constexpr quint32 os2Header = 12;
constexpr quint32 windowsHeader = 40;
constexpr quint32 os2SecondHeader = 64;

constexpr quint32 uncompressed = 0;
constexpr quint32 runLength8 = 1;
constexpr quint32 runLength4 = 2;
constexpr quint32 bitFields = 3;

// What a BMP says about itself, whichever of the headers it has.
struct BmpHeader {
    quint32 dataAt = 0;
    quint32 bytes = 0; // size of the header, which identifies its kind
    qint64 width = 0;
    qint64 height = 0; // the sign, which means that the first row is the top one, is dropped
    quint32 bits = 0;
    quint32 compression = uncompressed;
    qint64 dataBytes = 0; // 0: not given

    bool isRunLength() const { return compression == runLength8 || compression == runLength4; }
};

BmpHeader headerOf(QFile& file) {
    constexpr qint64 mostBytes = 38;
    const QByteArray bytes = file.peek(mostBytes).leftJustified(mostBytes, '\0');
    const auto at32 = [&bytes](int at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
    const auto signedAt32 = [&bytes](int at) {
        return std::abs(qint64{qFromLittleEndian<qint32>(bytes.constData() + at)});
    };
    const auto at16 = [&bytes](int at) { return qFromLittleEndian<quint16>(bytes.constData() + at); };
    BmpHeader header;
    header.dataAt = at32(10);
    header.bytes = at32(14);
    if (header.bytes == os2Header) {
        header.width = at16(18);
        header.height = at16(20);
        header.bits = at16(24);
        return header;
    }
    header.width = signedAt32(18);
    header.height = signedAt32(22);
    header.bits = at16(28);
    header.compression = at32(30);
    header.dataBytes = at32(34);
    return header;
}

// Qt accepts some files that are no pictures, and fills the missing part of a truncated picture with
// black.
QString refusal(const BmpHeader& header, qint64 fileBytes) {
    constexpr std::array<quint32, 5> knownHeaders{os2Header, windowsHeader, os2SecondHeader, 108, 124};
    constexpr qint64 maskBytes = 12;
    if (std::find(knownHeaders.begin(), knownHeaders.end(), header.bytes) == knownHeaders.end()) {
        return QStringLiteral("BMP files with a header of %1 bytes are not supported").arg(header.bytes);
    }
    const bool fieldsAllowed = header.compression == bitFields && header.bytes != os2SecondHeader;
    if (header.compression != uncompressed && !header.isRunLength() && !fieldsAllowed) {
        return QStringLiteral("its compression (number %1) is not supported").arg(header.compression);
    }
    if (header.width < 1 || header.height < 1) {
        return QStringLiteral("it holds no picture");
    }
    if (header.width > largestSide || header.height > largestSide ||
        header.width * header.height > mostPixels) {
        return QStringLiteral("its %1 x %2 pixels are too many").arg(header.width).arg(header.height);
    }
    const qint64 line = (header.width * header.bits + 31) / 32 * 4;
    const qint64 data = header.isRunLength() ? header.dataBytes : line * header.height;
    if (fileBytes < header.dataAt + data) {
        return QStringLiteral("it is cut off");
    }
    if (header.compression == bitFields && header.bytes == windowsHeader &&
        header.dataAt < 14 + windowsHeader + maskBytes) {
        return QStringLiteral("it does not define which bits belong to which colour");
    }
    return {};
}

// Qt reads no image that takes more than its limit, which is below the largest picture that is saved here.
class RoomForLargestPicture {
public:
    RoomForLargestPicture() {
        constexpr qint64 bytesPerPixel = 4;
        constexpr qint64 bytesPerMiB = 1024 * 1024;
        QImageReader::setAllocationLimit(static_cast<int>(mostPixels * bytesPerPixel / bytesPerMiB) + 1);
    }
    ~RoomForLargestPicture() { QImageReader::setAllocationLimit(m_before); }
    RoomForLargestPicture(const RoomForLargestPicture&) = delete;
    RoomForLargestPicture& operator=(const RoomForLargestPicture&) = delete;

private:
    int m_before = QImageReader::allocationLimit();
};

} // namespace

void writeBmp(const RegularFile& target, const Picture& picture) {
    QFile file;
    if (!file.open(target.descriptor(), QIODevice::ReadWrite)) {
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

Picture readBmp(const RegularFile& source, const std::filesystem::path& name) {
    QFile file;
    const auto fail = [&](const QString& reason) {
        throw PictureFileError(
            QStringLiteral("\"%1\" cannot be opened as a BMP picture: %2").arg(nameOf(name), reason));
    };
    source.rewind();
    if (!file.open(source.descriptor(), QIODevice::ReadOnly)) {
        fail(file.errorString());
    }
    if (const QString reason = refusal(headerOf(file), file.size()); !reason.isEmpty()) {
        fail(reason);
    }
    const RoomForLargestPicture room;
    QImageReader reader(&file, "bmp");
    Picture picture;
    picture.image = reader.read();
    if (picture.image.isNull()) {
        fail(reader.errorString());
    }
    picture.surplus.furtherChannels = picture.image.hasAlphaChannel() ? 1 : 0;
    picture.image.convertTo(picture.image.isGrayscale() && picture.image.format() == QImage::Format_Indexed8
                                ? QImage::Format_Grayscale8
                                : QImage::Format_RGB888);
    return picture;
}

} // namespace ocuva
