#pragma once
// Pictures to be saved and opened.

#include "pictures/Picture.h"
#include "pictures/PictureNotes.h"
#include "pictures/TiffFile.h"

namespace ocuva {

/// Every pixel another, so that a row or a channel in the wrong place shows.
inline QImage sampleImage(int width, int height, QImage::Format format) {
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (format == QImage::Format_Grayscale8) {
                image.scanLine(y)[x] = static_cast<uchar>(x * 7 + y * 31);
            } else {
                image.setPixel(x, y, qRgb((x * 7) & 255, (y * 31) & 255, (x + y * 3) & 255));
            }
        }
    }
    return image;
}

/// 400 times, 2560 x 1920 units at 100 times: a field of 640 x 480 micrometres.
inline Picture samplePicture(const QImage& image) {
    const Magnification magnification{400, 2560.0F, 1920.0F};
    return {image, fieldScale(magnification, image.size()), cameraNotes({-320, 1250, 7}, magnification),
            QDateTime(QDate(2026, 3, 1), QTime(9, 5, 7))};
}

/// Throws when there is no such file.
inline RegularFile openedFile(const std::filesystem::path& file) {
    std::error_code error;
    RegularFile opened = RegularFile::openToRead(file, error);
    return error ? throw std::system_error(error) : std::move(opened);
}

/// In place of whatever file is there.
inline void writeTiffFile(const std::filesystem::path& file, const Picture& picture) {
    std::error_code error;
    std::filesystem::remove(file, error);
    const RegularFile created = RegularFile::createNew(file, false, error);
    error ? throw std::system_error(error) : writeTiff(created, picture);
}

/// The picture of a TIFF by its name.
inline Picture readTiffFile(const std::filesystem::path& file) { return readTiff(openedFile(file), file); }

} // namespace ocuva
