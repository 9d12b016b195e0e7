#pragma once
// How a standard is called on the screen.

#include <string>

namespace ocuva {

/// Below the standards directory (compared without regard to letter case, whatever the letters) its bare file
/// name, whose last four characters (".std") are cut off unseen; elsewhere its full name. Texts in the
/// platform's 8-bit code.
std::string standardText(const std::string& name, const std::string& directory);

} // namespace ocuva
