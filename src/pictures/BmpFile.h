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

/// Reads a BMP of Windows or OS/2, whichever row comes first. It does not say whether its resolution is a
/// microscope's or a printer's, so its scale is not known. Throws PictureFileError for what is none, damaged,
/// cut off or too large.
Picture readBmp(const RegularFile& source, const std::filesystem::path& name);

} // namespace ocuva
