#pragma once
// The message box of a host that is loaded as shared libraries.

#include "hostlink/tarn_abi.h"

#include <string>

namespace hosts {

/// Shows the box and waits, or shows none while the program has no window on the screen. style is
/// TARN_BOX_..., the result TARN_ANSWER_....
TarnLong showBox(const std::string& text, const std::string& title, TarnLong style);

/// Keeps the library loaded until the process ends: its threads may still be running when the last user
/// unloads it.
void stayLoaded();

} // namespace hosts
