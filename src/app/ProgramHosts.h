#pragma once
// The hosts that this program can run on.

#include "app/HostChoice.h"

#include <span>

namespace ocuva {

inline constexpr int exitNoHost = 3;

/// Unless one is wanted by name, the first that is found is taken.
std::span<const NamedHost> programHosts();

} // namespace ocuva
