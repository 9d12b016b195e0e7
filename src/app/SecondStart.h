#pragma once
// What a second start does if the running copy does not respond.

#include "hostlink/Host.h"

#include <chrono>

namespace ocuva {

/// Repeats the wake-up until a copy receives it, because that copy may still be starting. False if none
/// has within `patience`.
bool wakeWithin(TnOcuva& ocuva, std::chrono::milliseconds patience);

} // namespace ocuva
