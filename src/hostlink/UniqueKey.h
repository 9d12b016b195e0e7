#pragma once
// Keys that identify objects.

#include "hostlink/Host.h"

#include <string>

namespace ocuva {

/// A key that the host has never returned before; empty if it returns none.
std::string uniqueObjectKey(TnLogKeys& keys);

} // namespace ocuva
