#pragma once
// Keys by which objects are told apart.

#include "hostlink/Host.h"

#include <string>

namespace ocuva {

/// A key that the host has never given before; empty when it gives none.
std::string uniqueObjectKey(TnLogKeys& keys);

} // namespace ocuva
