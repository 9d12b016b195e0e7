#pragma once
// TIFF by libtiff. Nothing of libtiff's warnings and errors reaches standard error; errors come as
// exceptions.

#include "base/RegularFile.h"
#include "pictures/Picture.h"

#include <filesystem>

namespace ocuva {

/// Writes the picture uncompressed as 8-bit grey or 24-bit colour with its scale in pixels per centimetre,
/// its notes, program and time. Into an empty file that is open for reading and writing;
/// an error leaves a piece there. Throws PictureFileError.
void writeTiff(const RegularFile& target, const Picture& picture);

/// Reads the first picture of any TIFF that libtiff can convert to colours. 8-bit grey stays grey;
/// palette, 16 bits and transparency become 24-bit colour. The scale counts only if the file says that it
/// is in micrometres: a print resolution is not a scale. Throws PictureFileError if the file is not a
/// TIFF, damaged, truncated or too large.
Picture readTiff(const RegularFile& source, const std::filesystem::path& name);

} // namespace ocuva
