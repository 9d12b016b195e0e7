#pragma once
// A picture with its pixels and everything known about it.

#include <QDateTime>
#include <QImage>
#include <QString>

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace ocuva {

/// The scale of a picture. 0 means unknown, and then no scale is shown or written.
struct PictureScale {
    /// Pixels of the picture per centimetre of the sample.
    ///@{
    double pixelsPerCmX = 0.0;
    double pixelsPerCmY = 0.0;
    ///@}

    /// In both directions.
    bool isKnown() const { return pixelsPerCmX > 0.0 && pixelsPerCmY > 0.0; }
};

/// One further piece of information, for example "stageX" and "1250". The key consists of letters and
/// digits, the value is one line without control characters.
struct PictureNote {
    /// As they stand in the file.
    ///@{
    QString key;
    QString value;
    ///@}

    bool operator==(const PictureNote&) const = default;
};

/// The contents of a picture's file that are not read, and that saving the picture would therefore lose.
struct FileSurplus {
    bool furtherPages = false; ///< only the first is read
    int bitsPerChannel = 8;    ///< more than 8 are reduced to 8
    int furtherChannels = 0;   ///< channels besides the colours, for example transparency; not read

    bool operator==(const FileSurplus&) const = default;
};

/// One picture, of the camera or from a file.
struct Picture {
    QImage image; ///< Format_Grayscale8 or Format_RGB888, as files hold them; others are converted when saved
    PictureScale scale;             ///< of this image, independent of the zoom
    std::vector<PictureNote> notes; ///< in the order in which they are written
    QDateTime taken;                ///< local time; invalid when not known
    FileSurplus surplus = {};       ///< of the file that it was read from
};

/// Pictures beyond these sizes are neither written nor read.
///@{
inline constexpr int largestSide = 32767;
inline constexpr qint64 mostPixels = 100'000'000;
///@}

/// Why a picture could not be saved or opened: a sentence in the platform's 8-bit text that names the file.
class PictureFileError : public std::runtime_error {
public:
    /// The sentence as the operator reads it.
    explicit PictureFileError(const QString& sentence)
        : std::runtime_error(sentence.toLocal8Bit().toStdString()) {}
};

} // namespace ocuva
