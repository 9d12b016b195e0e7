#pragma once
// Shows the message boxes of a host that runs inside this process.

#include "hostlink/tarn_abi.h"

#include <string>

namespace ocuva {

/// Shows the box over the program's active window and waits. style is TARN_BOX_..., the result
/// TARN_ANSWER_...; closing the box counts as the answer that changes least.
TarnLong showMessageBox(const std::string& text, const std::string& title, TarnLong style);

/// The same for a host. If no window of the program is on the screen, nobody would see the box: none
/// opens, and the result is the answer that changes least.
TarnLong showHostMessageBox(const std::string& text, const std::string& title, TarnLong style);

} // namespace ocuva
