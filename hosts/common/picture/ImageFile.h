#pragma once
// Pictures as files.

#include <cstdint>
#include <filesystem>
#include <string>

namespace hosts {

/// Write width * height pixels 0xffRRGGBB, row by row from the top left, as 24-bit colour or as 8-bit grey
/// (the luminance of GreyStatistics.h). TIFF is uncompressed. The file is written beside its place under
/// another name and moved there when complete: on failure (false, with `error` saying why in words) an
/// earlier file is still whole and nothing is left behind.
bool saveTiff(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
              bool colour, std::string& error);
bool saveBmp(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
             bool colour, std::string& error);

} // namespace hosts
