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

/// Reads the first picture of any TIFF that libtiff can turn into colours. 8-bit grey stays grey; a palette,
/// 16 bits or transparency become 24-bit colour. The scale counts only where the file says that it is one of
/// micrometres: a print resolution is none. Throws PictureFileError for what is no TIFF, damaged, cut off or
/// too large.
Picture readTiff(const RegularFile& source, const std::filesystem::path& name);

} // namespace ocuva
