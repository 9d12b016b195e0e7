#pragma once
// Names of folders are nobody's business whom a report is sent to.

#include <string>
#include <string_view>

namespace ocuva {

/// Shortens one line of a text, whatever it is of: the home folder, in any notation of its separators, to
/// "~", and the path of a picture (.tif, .tiff, .bmp, .pic, in any letter case) to ".../" and its name. A
/// path begins behind a quotation mark, comma, equals sign or tabulator, or with the line.
std::string withShortPaths(std::string_view line, std::string_view home);

} // namespace ocuva
