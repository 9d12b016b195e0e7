#pragma once
// What a start does that finds another copy running, when nobody hears it.

#include "hostlink/Host.h"

#include <chrono>

namespace ocuva {

/// Sends the wake again and again until a copy takes it: the other one may still be starting. False when none
/// has within the patience.
bool wakeWithin(TnOcuva& ocuva, std::chrono::milliseconds patience);

} // namespace ocuva
