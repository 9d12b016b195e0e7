#pragma once
// BMP by Qt.

#include "base/RegularFile.h"
#include "pictures/Picture.h"

#include <filesystem>

namespace ocuva {

/// Writes the picture as 8-bit grey or 24-bit colour with its scale in whole pixels per metre. A BMP has no
/// room for the notes. Into an empty file that is open for reading and writing; an error leaves a piece
/// there. Throws PictureFileError.
void writeBmp(const RegularFile& target, const Picture& picture);

/// Reads a BMP of Windows or OS/2, with either row order. A BMP does not say whether its resolution is a
/// microscope's or a printer's, so its scale is unknown. Throws PictureFileError if the file is not a BMP,
/// damaged, truncated or too large.
Picture readBmp(const RegularFile& source, const std::filesystem::path& name);

} // namespace ocuva
