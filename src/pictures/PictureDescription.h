#pragma once
// The text file next to a saved picture that relates its points to stage positions.

#include "base/AsideFile.h"
#include "pictures/Calibration.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ocuva {

/// Why a description could not be written or read; what() is a sentence that names the file or the line.
class PictureDescriptionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Name of the description: the picture's with its last three characters replaced by "pic". Empty for a name
/// shorter than that.
std::filesystem::path descriptionName(const std::filesystem::path& pictureName);

/// The file's text: strings in double quotes, numbers in decimal, \#TRUE# or \#FALSE#, items of a line
/// separated by commas, lines ended by CR LF. 12 lines for two points, 14 for three.
std::string descriptionText(const CalibrationPoints& points);

/// Parses such a text. Lines may end with LF alone, and blanks may surround an item. Anything else that
/// the format does not allow is refused with the line's number, including a last line without its end: the
/// file may have been cut off inside a number.
CalibrationPoints parseDescription(std::string_view text);

/// Writes the text of a description into an empty file; the error names the file that it is going to be.
void writeDescriptionFile(const AsideFile& file, const CalibrationPoints& points);

/// Writes the description of a picture to a temporary file and renames it, so that it is never incomplete.
/// An empty picture name writes nothing.
void writeDescription(const std::filesystem::path& pictureName, const CalibrationPoints& points);

/// Reads the description of a picture.
CalibrationPoints readDescription(const std::filesystem::path& pictureName);

} // namespace ocuva
