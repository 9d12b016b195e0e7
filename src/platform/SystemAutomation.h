#pragma once
// The automation objects of the system that the program runs on.

#include "video/Automation.h"

#include <memory>

namespace ocuva {

/// On Windows, objects of registered classes through COM, in a single-threaded apartment: made, used and
/// destroyed on one thread. Elsewhere no class is registered.
std::unique_ptr<Automation> systemAutomation();

} // namespace ocuva
