#include "pictures/PictureFile.h"

#include "base/AsideFile.h"
#include "pictures/BmpFile.h"
#include "pictures/PictureDescription.h"
#include "pictures/TiffFile.h"
#include "platform/PathOf.h"

#include <QFileInfo>

#include <array>

namespace ocuva {

namespace {

using Writer = void (*)(const RegularFile&, const Picture&);
using Reader = Picture (*)(const RegularFile&, const std::filesystem::path&);

struct ByExtension {
    QLatin1StringView extension;
    Writer write;
};
constexpr std::array<ByExtension, 3> writers{{
    {QLatin1StringView("tif"), writeTiff},
    {QLatin1StringView("tiff"), writeTiff},
    {QLatin1StringView("bmp"), writeBmp},
}};

struct ByFirstBytes {
    const char* bytes;
    Reader read;
};
constexpr std::array<ByFirstBytes, 3> readers{{{"II", readTiff}, {"MM", readTiff}, {"BM", readBmp}}};

[[noreturn]] void fail(const std::filesystem::path& name, const QString& reason) {
    throw PictureFileError(QStringLiteral("\"%1\" could not be saved: %2").arg(nameOf(name), reason));
}

QString text(const std::exception& error) { return QString::fromLocal8Bit(error.what()); }
QString text(const std::error_code& error) { return QString::fromLocal8Bit(error.message()); }

// Null when no format goes by that name.
Writer writerByExtension(const std::filesystem::path& name) {
    const QString extension = QFileInfo(nameOf(name)).suffix();
    for (const ByExtension& row : writers) {
        if (extension.compare(row.extension, Qt::CaseInsensitive) == 0) {
            return row.write;
        }
    }
    return nullptr;
}

Writer writerFor(const std::filesystem::path& name) {
    if (const Writer writer = writerByExtension(name); writer != nullptr) {
        return writer;
    }
    fail(name, QStringLiteral("its name must end in .tif or .bmp"));
}

void checkTarget(const std::filesystem::path& name, const QImage& image) {
    std::error_code error;
    if (std::filesystem::is_directory(name, error)) {
        fail(name, QStringLiteral("it is a folder"));
    }
    if (!std::filesystem::is_directory(std::filesystem::absolute(name).parent_path(), error)) {
        fail(name, QStringLiteral("there is no such folder"));
    }
    if (image.isNull() || image.width() > largestSide || image.height() > largestSide ||
        qint64{image.width()} * image.height() > mostPixels) {
        fail(name, QStringLiteral("it has %1 x %2 pixels").arg(image.width()).arg(image.height()));
    }
}

void create(AsideFile& file, const std::filesystem::path& name) {
    if (const std::error_code error = file.create()) {
        const bool isPicture = file.target() == name;
        fail(name, isPicture ? text(error)
                             : QStringLiteral("its description \"%1\" cannot be written: %2")
                                   .arg(nameOf(file.target().filename()), text(error)));
    }
}

// points: null for no description.
void save(const std::filesystem::path& name, const Picture& picture, const CalibrationPoints* points) {
    const Writer write = writerFor(name);
    checkTarget(name, picture.image);
    AsideFile file(name);
    AsideFile description(descriptionName(name));
    create(file, name);
    if (points != nullptr) {
        create(description, name);
    }
    try {
        write(file.file(), picture);
        if (points != nullptr) {
            writeDescriptionFile(description, *points);
        }
    } catch (const std::exception& error) {
        fail(name, text(error));
    }
    // The old description would give the stage positions of another picture. It is moved away first, so
    // that it is never next to the new picture, whatever happens between the steps.
    FormerFile former(description.target());
    if (const std::error_code error = former.moveAway()) {
        fail(name, text(error));
    }
    if (const std::error_code error = file.moveIntoPlace()) {
        fail(name, text(error));
    }
    former.drop();
    if (points == nullptr) {
        return;
    }
    if (const std::error_code error = description.moveIntoPlace()) {
        throw DescriptionNotSaved(
            QStringLiteral("The picture is saved, but its description \"%1\" is not: %2")
                .arg(nameOf(description.target()), text(error)));
    }
}

} // namespace

bool canBeSavedAs(const std::filesystem::path& name) { return writerByExtension(name) != nullptr; }

void savePicture(const std::filesystem::path& name, const Picture& picture, const CalibrationPoints& points) {
    save(name, picture, &points);
}

void savePictureAlone(const std::filesystem::path& name, const Picture& picture) {
    save(name, picture, nullptr);
}

Picture openPicture(const std::filesystem::path& name) {
    std::error_code error;
    const RegularFile file = RegularFile::openToRead(name, error);
    std::array<char, 3> first{};
    if (!error) {
        file.read(first.data(), 2, error);
    }
    if (error) {
        throw PictureFileError(
            QStringLiteral("\"%1\" could not be opened: %2")
                .arg(nameOf(name), error == std::errc::no_such_file_or_directory
                                       ? QStringLiteral("there is no such file")
                                       : QStringLiteral("it cannot be read (%1)").arg(text(error))));
    }
    for (const ByFirstBytes& row : readers) {
        if (QLatin1StringView(row.bytes) == QLatin1StringView(first.data())) {
            return row.read(file, name);
        }
    }
    throw PictureFileError(
        QStringLiteral("\"%1\" could not be opened: it is neither a TIFF nor a BMP").arg(nameOf(name)));
}

} // namespace ocuva
