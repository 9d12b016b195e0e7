#pragma once
// The automation objects of the operating system.

#include "video/Automation.h"

#include <memory>

namespace ocuva {

/// On Windows, objects of registered classes through COM in a single-threaded apartment: created, used and
/// destroyed on one thread. Elsewhere no class is registered.
std::unique_ptr<Automation> systemAutomation();

} // namespace ocuva
