#include "pictures/TiffFile.h"

#include "base/Product.h"
#include "pictures/PictureNotes.h"

#include <QByteArray>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>
#include <tiffio.h>
#include <vector>

namespace ocuva {

namespace {

constexpr const char* timeForm = "yyyy:MM:dd HH:mm:ss";
// Strips of about this size: few calls, and a strip that had to be repacked is still in the cache when
// written.
constexpr qsizetype stripBytes = 512 * 1024;
// What libtiff may allocate at once; a damaged file asks for anything.
constexpr tmsize_t mostMemory = tmsize_t{1} << 29;

struct Trouble {
    QString text; // the first that libtiff told; what follows are consequences
};

int noteError(TIFF* /*file*/, void* trouble, const char* /*module*/, const char* format, va_list arguments) {
    QString& text = static_cast<Trouble*>(trouble)->text;
    if (text.isEmpty()) {
        const int cause = errno;
        char line[256];
        std::vsnprintf(line, sizeof line, format, arguments);
        text = QString::fromLocal8Bit(line);
        if (cause != 0) {
            text +=
                QStringLiteral(" (%1)").arg(QString::fromLocal8Bit(std::generic_category().message(cause)));
        }
    }
    return 1;
}

int swallowWarning(TIFF* /*file*/, void* /*data*/, const char* /*module*/, const char* /*format*/,
                   va_list /*arguments*/) {
    return 1;
}

using TiffHandle = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

TiffHandle open(const std::filesystem::path& name, const char* mode, Trouble& trouble) {
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), noteError, &trouble);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), swallowWarning, nullptr);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), mostMemory);
    errno = 0;
#ifdef _WIN32
    return {TIFFOpenWExt(name.c_str(), mode, options.get()), TIFFClose};
#else
    return {TIFFOpenExt(name.c_str(), mode, options.get()), TIFFClose};
#endif
}

[[noreturn]] void failWriting(const Trouble& trouble) {
    throw PictureFileError(trouble.text.isEmpty() ? QStringLiteral("the disk refused it") : trouble.text);
}

// ---- writing

void setLayout(TIFF* file, const QImage& image, int samples, std::uint32_t rowsPerStrip) {
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(image.width()));
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(image.height()));
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, samples == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
}

void setInformation(TIFF* file, const Picture& picture) {
    if (picture.scale.isKnown()) {
        TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
        TIFFSetField(file, TIFFTAG_XRESOLUTION, picture.scale.pixelsPerCmX);
        TIFFSetField(file, TIFFTAG_YRESOLUTION, picture.scale.pixelsPerCmY);
    }
    TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, imageDescription(picture).constData());
    TIFFSetField(file, TIFFTAG_SOFTWARE, (std::string(productTitle) + ' ' + productVersion).c_str());
    if (picture.taken.isValid()) {
        TIFFSetField(file, TIFFTAG_DATETIME,
                     picture.taken.toString(QString::fromLatin1(timeForm)).toLatin1().constData());
    }
}

bool writeStrips(TIFF* file, const QImage& image, int samples, int rowsPerStrip) {
    const qsizetype line = static_cast<qsizetype>(image.width()) * samples;
    const bool isPacked = image.depth() == 8 * samples;
    std::vector<uchar> repacked;
    std::uint32_t strip = 0;
    for (int top = 0; top < image.height(); top += rowsPerStrip, ++strip) {
        const int rows = std::min(rowsPerStrip, image.height() - top);
        const uchar* bytes = image.constScanLine(top);
        if (!isPacked || image.bytesPerLine() != line) {
            QImage part(bytes, image.width(), rows, image.bytesPerLine(), image.format());
            part.convertTo(samples == 3 ? QImage::Format_RGB888 : QImage::Format_Grayscale8);
            repacked.resize(static_cast<std::size_t>(line * rows));
            for (int y = 0; y < rows; ++y) {
                std::memcpy(&repacked[static_cast<std::size_t>(y * line)], part.constScanLine(y),
                            static_cast<std::size_t>(line));
            }
            bytes = repacked.data();
        }
        // Without compression the raw bytes are the encoded ones; libtiff only reads them.
        if (TIFFWriteRawStrip(file, strip, const_cast<uchar*>(bytes), line * rows) != line * rows) {
            return false;
        }
    }
    return true;
}

// ---- reading

struct Layout {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t bitsPerSample = 1;
    std::uint16_t samples = 1;
    std::uint16_t photometric = 0;
    std::uint16_t planar = PLANARCONFIG_CONTIG;
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    std::uint16_t compression = COMPRESSION_NONE;
    std::uint16_t sampleFormat = SAMPLEFORMAT_UINT;
};

Layout layoutOf(TIFF* file) {
    Layout layout;
    TIFFGetField(file, TIFFTAG_IMAGEWIDTH, &layout.width);
    TIFFGetField(file, TIFFTAG_IMAGELENGTH, &layout.height);
    TIFFGetFieldDefaulted(file, TIFFTAG_BITSPERSAMPLE, &layout.bitsPerSample);
    TIFFGetFieldDefaulted(file, TIFFTAG_SAMPLESPERPIXEL, &layout.samples);
    TIFFGetField(file, TIFFTAG_PHOTOMETRIC, &layout.photometric);
    TIFFGetFieldDefaulted(file, TIFFTAG_PLANARCONFIG, &layout.planar);
    TIFFGetFieldDefaulted(file, TIFFTAG_ORIENTATION, &layout.orientation);
    TIFFGetFieldDefaulted(file, TIFFTAG_COMPRESSION, &layout.compression);
    TIFFGetFieldDefaulted(file, TIFFTAG_SAMPLEFORMAT, &layout.sampleFormat);
    return layout;
}

// 0: not one of the plain layouts whose bytes are the picture's.
int plainSamples(TIFF* file, const Layout& layout) {
    const bool plain = layout.bitsPerSample == 8 && layout.planar == PLANARCONFIG_CONTIG &&
                       layout.orientation == ORIENTATION_TOPLEFT &&
                       layout.sampleFormat == SAMPLEFORMAT_UINT && TIFFIsTiled(file) == 0;
    if (plain && layout.samples == 1 && layout.photometric == PHOTOMETRIC_MINISBLACK) {
        return 1;
    }
    return plain && layout.samples == 3 && layout.photometric == PHOTOMETRIC_RGB ? 3 : 0;
}

bool readStrips(TIFF* file, const Layout& layout, int samples, QImage& image) {
    const auto line = static_cast<tmsize_t>(layout.width) * samples;
    std::uint32_t rowsPerStrip = layout.height;
    TIFFGetFieldDefaulted(file, TIFFTAG_ROWSPERSTRIP, &rowsPerStrip);
    rowsPerStrip = std::clamp<std::uint32_t>(rowsPerStrip, 1, layout.height);
    std::vector<uchar> padded;
    std::uint32_t strip = 0;
    for (std::uint32_t top = 0; top < layout.height; top += rowsPerStrip, ++strip) {
        const auto rows = static_cast<int>(std::min(rowsPerStrip, layout.height - top));
        const bool direct = image.bytesPerLine() == line;
        if (!direct) {
            padded.resize(static_cast<std::size_t>(line * rows));
        }
        uchar* bytes = direct ? image.scanLine(static_cast<int>(top)) : padded.data();
        if (TIFFReadEncodedStrip(file, strip, bytes, line * rows) != line * rows) {
            return false;
        }
        for (int y = 0; !direct && y < rows; ++y) {
            std::memcpy(image.scanLine(static_cast<int>(top) + y), bytes + y * line,
                        static_cast<std::size_t>(line));
        }
    }
    return true;
}

bool readAnyLayout(TIFF* file, const Layout& layout, QImage& image, Trouble& trouble) {
    char reason[1024] = "";
    if (TIFFRGBAImageOK(file, reason) == 0) {
        trouble.text = QString::fromLocal8Bit(reason);
        return false;
    }
    constexpr int stopOnError = 1;
    if (TIFFReadRGBAImageOriented(file, layout.width, layout.height,
                                  reinterpret_cast<std::uint32_t*>(image.bits()), ORIENTATION_TOPLEFT,
                                  stopOnError) == 0) {
        return false;
    }
    image.convertTo(QImage::Format_RGB888);
    return true;
}

void readInformation(TIFF* file, Picture& picture) {
    const char* text = nullptr;
    if (TIFFGetField(file, TIFFTAG_IMAGEDESCRIPTION, &text) == 1 && text != nullptr) {
        const ReadNotes read = readImageDescription(QByteArray(text));
        picture.notes = read.notes;
        std::uint16_t unit = RESUNIT_INCH;
        float x = 0.0F;
        float y = 0.0F;
        TIFFGetFieldDefaulted(file, TIFFTAG_RESOLUTIONUNIT, &unit);
        if (read.inMicrometres && unit == RESUNIT_CENTIMETER &&
            TIFFGetField(file, TIFFTAG_XRESOLUTION, &x) == 1 &&
            TIFFGetField(file, TIFFTAG_YRESOLUTION, &y) == 1 && std::isfinite(x) && std::isfinite(y)) {
            picture.scale = {x, y};
        }
    }
    if (TIFFGetField(file, TIFFTAG_DATETIME, &text) == 1 && text != nullptr) {
        picture.taken = QDateTime::fromString(QString::fromLatin1(text), QString::fromLatin1(timeForm));
    }
}

// Before memory is taken for it: what cannot be a whole picture.
QString refusal(const std::filesystem::path& name, const Layout& layout, int samples) {
    if (layout.width < 1 || layout.height < 1) {
        return QStringLiteral("it holds no picture");
    }
    const std::uint64_t pixels = std::uint64_t{layout.width} * layout.height;
    if (layout.width > std::uint32_t{largestSide} || layout.height > std::uint32_t{largestSide} ||
        pixels > std::uint64_t{mostPixels}) {
        return QStringLiteral("its %1 x %2 pixels are too many").arg(layout.width).arg(layout.height);
    }
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    if (!error && samples > 0 && layout.compression == COMPRESSION_NONE &&
        size < pixels * static_cast<std::uint64_t>(samples)) {
        return QStringLiteral("it is cut off");
    }
    return {};
}

} // namespace

void writeTiff(const std::filesystem::path& name, const Picture& picture) {
    const QImage& image = picture.image;
    Trouble trouble;
    TiffHandle file = open(name, "w", trouble);
    if (!file) {
        failWriting(trouble);
    }
    const int samples = image.format() == QImage::Format_Grayscale8 ? 1 : 3;
    const qsizetype line = static_cast<qsizetype>(image.width()) * samples;
    const auto rowsPerStrip = static_cast<int>(std::max<qsizetype>(1, stripBytes / line));
    setLayout(file.get(), image, samples, static_cast<std::uint32_t>(rowsPerStrip));
    setInformation(file.get(), picture);
    errno = 0;
    if (!writeStrips(file.get(), image, samples, rowsPerStrip) || TIFFFlush(file.get()) != 1) {
        failWriting(trouble);
    }
    file.reset();
    if (!trouble.text.isEmpty()) {
        failWriting(trouble);
    }
}

Picture readTiff(const std::filesystem::path& name) {
    Trouble trouble;
    const auto fail = [&](const QString& reason) {
        throw PictureFileError(
            QStringLiteral("\"%1\" cannot be opened as a TIFF picture: %2").arg(nameOf(name), reason));
    };
    const auto troubleOr = [&trouble](const char* otherwise) {
        return trouble.text.isEmpty() ? QString::fromLatin1(otherwise) : trouble.text;
    };
    // Read, not mapped into memory: a file that somebody cuts off meanwhile is an error then and no crash.
    const TiffHandle file = open(name, "rm", trouble);
    if (!file) {
        fail(troubleOr("it is none"));
    }
    const Layout layout = layoutOf(file.get());
    const int samples = plainSamples(file.get(), layout);
    if (const QString reason = refusal(name, layout, samples); !reason.isEmpty()) {
        fail(reason);
    }
    Picture picture;
    picture.image = QImage(static_cast<int>(layout.width), static_cast<int>(layout.height),
                           samples == 1   ? QImage::Format_Grayscale8
                           : samples == 3 ? QImage::Format_RGB888
                                          : QImage::Format_RGBA8888);
    if (picture.image.isNull()) {
        fail(QStringLiteral("there is not enough memory"));
    }
    errno = 0;
    trouble.text.clear();
    const bool whole = samples > 0 ? readStrips(file.get(), layout, samples, picture.image)
                                   : readAnyLayout(file.get(), layout, picture.image, trouble);
    if (!whole) {
        fail(troubleOr("it is damaged"));
    }
    readInformation(file.get(), picture);
    return picture;
}

} // namespace ocuva
