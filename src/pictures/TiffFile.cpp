#include "pictures/TiffFile.h"

#include "base/Product.h"
#include "pictures/PictureNotes.h"
#include "platform/PathOf.h"

#include <QByteArray>
#include <QFile>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <system_error>
#include <tiffio.h>
#include <utility>
#include <vector>

namespace ocuva {

namespace {

// Of an image description no more than this is looked at: lines of KEY=VALUE need little, and a foreign one
// may be as long as the file.
constexpr std::size_t longestDescription = std::size_t{64} * 1024;
constexpr const char* timeForm = "yyyy:MM:dd HH:mm:ss";
// Strips of about this size: few calls, and a strip that had to be repacked is still in the cache when
// written.
constexpr qsizetype stripBytes = 512 * 1024;
// Limit of a single allocation by libtiff; a damaged file can request any size.
constexpr tmsize_t mostMemory = tmsize_t{1} << 29;

struct Trouble {
    QString text; // libtiff's first message; later ones are consequences
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

using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

Options optionsFor(Trouble& trouble) {
    Options options(TIFFOpenOptionsAlloc(), TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), noteError, &trouble);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), swallowWarning, nullptr);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), mostMemory);
    return options;
}

TiffHandle open(const RegularFile& file, const char* mode, Trouble& trouble) {
    const Options options = optionsFor(trouble);
    file.rewind();
    errno = 0;
    // The library closes the number that it is given, but only with a picture that it has taken.
    const int number = file.numberForTiff();
    TiffHandle tiff(TIFFFdOpenExt(number, "the file", mode, options.get()), TIFFClose);
    if (!tiff) {
        RegularFile::closeNumber(number);
    }
    return tiff;
}

// A file in memory, for tiles that libtiff 4.5 reads only from a mapped file. If the file on the disk were
// mapped, the program would crash when somebody truncates it.
class FileInMemory {
public:
    explicit FileInMemory(const RegularFile& source) {
        QFile file;
        source.rewind();
        if (file.open(source.descriptor(), QIODevice::ReadOnly) && file.size() <= mostMemory) {
            m_bytes = file.readAll();
        }
    }

    TiffHandle open(Trouble& trouble) {
        const Options options = optionsFor(trouble);
        return {TIFFClientOpenExt("", "r", this, read, write, seek, close, size, map, unmap, options.get()),
                TIFFClose};
    }

private:
    static FileInMemory& of(thandle_t handle) { return *static_cast<FileInMemory*>(handle); }
    static tmsize_t read(thandle_t handle, void* into, tmsize_t bytes) {
        FileInMemory& file = of(handle);
        const tmsize_t there = std::clamp<tmsize_t>(file.m_bytes.size() - file.m_at, 0, bytes);
        std::copy_n(file.m_bytes.constData() + file.m_at, there, static_cast<char*>(into));
        file.m_at += there;
        return there;
    }
    static tmsize_t write(thandle_t /*handle*/, void* /*from*/, tmsize_t /*bytes*/) { return 0; }
    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        FileInMemory& file = of(handle);
        const tmsize_t from = whence == SEEK_CUR ? file.m_at : whence == SEEK_END ? file.m_bytes.size() : 0;
        file.m_at = std::clamp<tmsize_t>(from + static_cast<tmsize_t>(offset), 0, file.m_bytes.size());
        return static_cast<toff_t>(file.m_at);
    }
    static int close(thandle_t /*handle*/) { return 0; }
    static toff_t size(thandle_t handle) { return static_cast<toff_t>(of(handle).m_bytes.size()); }
    static int map(thandle_t handle, void** base, toff_t* bytes) {
        *base = of(handle).m_bytes.data();
        *bytes = size(handle);
        return 1;
    }
    static void unmap(thandle_t /*handle*/, void* /*base*/, toff_t /*bytes*/) {}

    QByteArray m_bytes;
    tmsize_t m_at = 0;
};

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

// The number of samples; 0 if the layout's bytes are not those of the picture.
int plainSamples(TIFF* file, const Layout& layout) {
    const bool plain = layout.bitsPerSample == 8 && layout.planar == PLANARCONFIG_CONTIG &&
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
    // The orientation in the file is read without change: libtiff does not rotate pictures by 90 degrees.
    TIFFSetField(file, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    if (TIFFReadRGBAImageOriented(file, layout.width, layout.height,
                                  reinterpret_cast<std::uint32_t*>(image.bits()), ORIENTATION_TOPLEFT,
                                  stopOnError) == 0) {
        return false;
    }
    image.convertTo(QImage::Format_RGB888);
    return true;
}

FileSurplus surplusOf(TIFF* file, const Layout& layout) {
    const bool inThree = layout.photometric == PHOTOMETRIC_RGB || layout.photometric == PHOTOMETRIC_YCBCR;
    const int ofColours = inThree ? 3 : layout.photometric == PHOTOMETRIC_SEPARATED ? 4 : 1;
    return {TIFFLastDirectory(file) == 0, std::max<int>(layout.bitsPerSample, 8),
            std::max(layout.samples - ofColours, 0)};
}

QByteArray descriptionStart(const char* text) {
    const std::size_t length = strnlen(text, longestDescription + 1);
    QByteArray start(text, static_cast<qsizetype>(std::min(length, longestDescription)));
    if (length > longestDescription) {
        start.truncate(start.lastIndexOf('\n') + 1); // a truncated line could have another meaning
    }
    return start;
}

void readInformation(TIFF* file, Picture& picture) {
    const char* text = nullptr;
    if (TIFFGetField(file, TIFFTAG_IMAGEDESCRIPTION, &text) == 1 && text != nullptr) {
        const ReadNotes read = readImageDescription(descriptionStart(text));
        picture.notes = notesOfOnePage(read.notes, picture.surplus.bitsPerChannel);
        picture.surplus.furtherPages = picture.surplus.furtherPages || tellOfFurtherPages(read.notes);
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

// Empty for pixels that have a colour to show.
QString unknownColours(const Layout& layout) {
    const auto saved = [](const QString& what) {
        return QStringLiteral("its pixels %1; save it with 8 or 16 bits per channel first").arg(what);
    };
    switch (layout.sampleFormat) {
    case SAMPLEFORMAT_IEEEFP:
        return saved(QStringLiteral("are floating-point numbers"));
    case SAMPLEFORMAT_COMPLEXIEEEFP:
    case SAMPLEFORMAT_COMPLEXINT:
        return saved(QStringLiteral("are complex numbers"));
    case SAMPLEFORMAT_INT:
        return saved(QStringLiteral("are signed numbers"));
    default:
        break;
    }
    constexpr std::array<std::uint16_t, 5> readableBits{1, 2, 4, 8, 16};
    if (std::find(readableBits.begin(), readableBits.end(), layout.bitsPerSample) == readableBits.end()) {
        return saved(QStringLiteral("have %1 bits per channel").arg(layout.bitsPerSample));
    }
    if (layout.photometric == PHOTOMETRIC_CIELAB || layout.photometric == PHOTOMETRIC_ICCLAB ||
        layout.photometric == PHOTOMETRIC_ITULAB) {
        return QStringLiteral("its colours are L*a*b*; save it with RGB colours first");
    }
    return {};
}

// libtiff 4.5 takes uncompressed tiles whose size is not a multiple of 1 KiB for damaged unless the file
// is mapped.
bool wantsMappedFile(TIFF* file, const Layout& layout) {
    constexpr tmsize_t readAtOnce = 1024;
    return TIFFIsTiled(file) != 0 && layout.compression == COMPRESSION_NONE &&
           TIFFTileSize(file) % readAtOnce != 0;
}

bool liesOnItsSide(const Layout& layout) { return layout.orientation >= ORIENTATION_LEFTTOP; }

// The picture as it is to be seen, from the order in which its rows and columns are stored.
QImage upright(const QImage& stored, std::uint16_t orientation) {
    struct Turn {
        std::uint16_t orientation;
        int degrees;
        bool mirrored; // left and right, after the turn
    };
    constexpr std::array<Turn, 7> turns{{{ORIENTATION_TOPRIGHT, 0, true},
                                         {ORIENTATION_BOTRIGHT, 180, false},
                                         {ORIENTATION_BOTLEFT, 180, true},
                                         {ORIENTATION_LEFTTOP, 90, true},
                                         {ORIENTATION_RIGHTTOP, 90, false},
                                         {ORIENTATION_RIGHTBOT, 270, true},
                                         {ORIENTATION_LEFTBOT, 270, false}}};
    const auto turn = std::find_if(turns.begin(), turns.end(),
                                   [orientation](const Turn& one) { return one.orientation == orientation; });
    if (turn == turns.end()) {
        return stored;
    }
    const QImage turned =
        turn->degrees == 0 ? stored : stored.transformed(QTransform().rotate(turn->degrees));
    return turned.mirrored(turn->mirrored, false).convertToFormat(stored.format());
}

// Checked before memory is allocated: the reason why the file cannot be a complete picture.
QString refusal(const RegularFile& file, const Layout& layout, int samples) {
    if (layout.width < 1 || layout.height < 1) {
        return QStringLiteral("it holds no picture");
    }
    const std::uint64_t pixels = std::uint64_t{layout.width} * layout.height;
    if (layout.width > std::uint32_t{largestSide} || layout.height > std::uint32_t{largestSide} ||
        pixels > std::uint64_t{mostPixels}) {
        return QStringLiteral("its %1 x %2 pixels are too many").arg(layout.width).arg(layout.height);
    }
    if (QString reason = unknownColours(layout); !reason.isEmpty()) {
        return reason;
    }
    if (samples > 0 && layout.compression == COMPRESSION_NONE &&
        file.size() < pixels * static_cast<std::uint64_t>(samples)) {
        return QStringLiteral("it is cut off");
    }
    return {};
}

} // namespace

void writeTiff(const RegularFile& target, const Picture& picture) {
    const QImage& image = picture.image;
    Trouble trouble;
    TiffHandle file = open(target, "w", trouble);
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

Picture readTiff(const RegularFile& source, const std::filesystem::path& name) {
    Trouble trouble;
    const auto fail = [&](const QString& reason) {
        throw PictureFileError(
            QStringLiteral("\"%1\" cannot be opened as a TIFF picture: %2").arg(nameOf(name), reason));
    };
    const auto troubleOr = [&trouble](const char* otherwise) {
        return trouble.text.isEmpty() ? QString::fromLatin1(otherwise) : trouble.text;
    };
    std::optional<FileInMemory> memory; // outlives the file handle on it
    // Read instead of mapped: a file that somebody truncates meanwhile causes an error, not a crash.
    TiffHandle file = open(source, "rm", trouble);
    if (!file) {
        fail(troubleOr("it is none"));
    }
    const Layout layout = layoutOf(file.get());
    const int samples = plainSamples(file.get(), layout);
    if (const QString reason = refusal(source, layout, samples); !reason.isEmpty()) {
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
    if (wantsMappedFile(file.get(), layout)) {
        file = memory.emplace(source).open(trouble);
        if (!file) {
            fail(troubleOr("it cannot be read"));
        }
    }
    errno = 0;
    trouble.text.clear();
    const bool whole = samples > 0 ? readStrips(file.get(), layout, samples, picture.image)
                                   : readAnyLayout(file.get(), layout, picture.image, trouble);
    if (!whole) {
        fail(troubleOr("it is damaged"));
    }
    picture.surplus = surplusOf(file.get(), layout);
    readInformation(file.get(), picture);
    picture.image = upright(picture.image, layout.orientation);
    if (liesOnItsSide(layout)) {
        std::swap(picture.scale.pixelsPerCmX, picture.scale.pixelsPerCmY);
    }
    return picture;
}

} // namespace ocuva
