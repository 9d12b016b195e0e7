// Writes the emblem, as the program draws it, into the icon theme's folders: one PNG a size, and an SVG.

#include "app/toolbar/IconArt.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QSvgGenerator>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int sizesPx[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};
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

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: draw_icons FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    bool written = writeSvg(folder);
    for (const int sizePx : sizesPx) {
        written = writePng(folder, sizePx) && written;
    }
    if (!written) {
        std::fprintf(stderr, "draw_icons: cannot write into %s\n", argv[1]);
    }
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
