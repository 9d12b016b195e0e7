// Writes the emblem, as the program draws it, into the icon theme's folders: one PNG a size, and an SVG; and
// beside those all sizes that Windows uses in one file.

#include "app/toolbar/IconArt.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QSvgGenerator>

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

constexpr int sizesPx[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};
constexpr int windowsSizesPx[] = {16, 20, 24, 32, 40, 48, 64, 256};
constexpr int svgSide = 128;

QString pathIn(const QString& folder, const QString& size, const QString& file) {
    const QString place = folder + u'/' + size + QStringLiteral("/apps");
    QDir().mkpath(place);
    return place + u'/' + file;
}

bool writePng(const QString& folder, int sizePx) {
    const QString size = QStringLiteral("%1x%1").arg(sizePx);
    return ocuva::drawEmblem(sizePx).save(pathIn(folder, size, QStringLiteral("ocuva.png")));
}

bool writeSvg(const QString& folder) {
    QFile file(pathIn(folder, QStringLiteral("scalable"), QStringLiteral("ocuva.svg")));
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QSvgGenerator svg;
    svg.setOutputDevice(&file);
    svg.setTitle(QStringLiteral("Ocuva"));
    svg.setDescription(QStringLiteral("An eyepiece with its reticle"));
    svg.setSize({svgSide, svgSide});
    svg.setViewBox(QRect(0, 0, svgSide, svgSide));
    QPainter painter(&svg);
    ocuva::paintEmblem(painter, svgSide);
    return painter.end() && file.error() == QFile::NoError;
}

QByteArray png(int sizePx) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ocuva::drawEmblem(sizePx).save(&buffer, "PNG");
    return buffer.data();
}

// A table of the pictures, then the pictures themselves as PNG; a side of 256 is stored as 0.
bool writeIco(const QString& folder) {
    QFile file(folder + QStringLiteral("/ocuva.ico"));
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    constexpr quint16 typeIcon = 1;
    constexpr quint16 planes = 1;
    constexpr quint16 bitsPerPixel = 32;
    constexpr quint32 headerBytes = 6;
    constexpr quint32 entryBytes = 16;
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto count = static_cast<quint16>(std::size(windowsSizesPx));
    stream << quint16{0} << typeIcon << count;
    QByteArray pictures;
    for (const int sizePx : windowsSizesPx) {
        const QByteArray picture = png(sizePx);
        const auto side = static_cast<quint8>(sizePx % 256);
        stream << side << side << quint16{0} << planes << bitsPerPixel << static_cast<quint32>(picture.size())
               << static_cast<quint32>(headerBytes + count * entryBytes +
                                       static_cast<quint32>(pictures.size()));
        pictures += picture;
    }
    stream.writeRawData(pictures.constData(), static_cast<int>(pictures.size()));
    return stream.status() == QDataStream::Ok && file.flush();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: draw_icons FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    bool written = writeSvg(folder);
    written = writeIco(folder) && written;
    for (const int sizePx : sizesPx) {
        written = writePng(folder, sizePx) && written;
    }
    if (!written) {
        std::fprintf(stderr, "draw_icons: cannot write into %s\n", argv[1]);
    }
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
