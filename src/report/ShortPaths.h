#pragma once
// Removes folder names from the texts of a report.

#include <string>
#include <string_view>

namespace ocuva {

/// Shortens one line of any text: the home folder, with any separators, to "~", and the path of a picture
/// (.tif, .tiff, .bmp, .pic, in any letter case) to ".../" and its name. A path begins after a quotation
/// mark, comma, equals sign or tab, or at the start of the line.
std::string withShortPaths(std::string_view line, std::string_view home);

} // namespace ocuva
