#pragma once
// Pictures as files.

#include <cstdint>
#include <filesystem>
#include <string>

namespace hosts {

/// Write width * height pixels 0xffRRGGBB, row by row from the top left, as 24-bit colour or as 8-bit grey
/// (the luminance of GreyStatistics.h). TIFF is uncompressed. The file is written under a temporary name
/// in the same folder and moved into place when it is complete: on failure (false, with the reason in
/// `error`) an earlier file is unchanged and no temporary file is left.
bool saveTiff(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
              bool colour, std::string& error);
bool saveBmp(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
             bool colour, std::string& error);

} // namespace hosts
