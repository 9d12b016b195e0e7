#pragma once
// The displayed name of a standard.

#include <string>

namespace ocuva {

/// For a file in the standards directory (compared in any letter case) its file name without the last four
/// characters (".std"); otherwise its full name. Texts have the platform's 8-bit encoding.
std::string standardText(const std::string& name, const std::string& directory);

} // namespace ocuva
