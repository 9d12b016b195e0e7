#pragma once
// What can be wrong with a host function.

#include <functional>
#include <string_view>

namespace hosts {

/// The current fault of one host function; the defaults mean none.
struct FunctionFault {
    bool fails = false;  ///< returns its failure result and does nothing else
    double slowMs = 0.0; ///< time on the host's clock that it takes before it answers
};

/// The fault of the named function. Called at each host call, on any thread; empty means no faults.
using FunctionFaults = std::function<FunctionFault(std::string_view name)>;

} // namespace hosts
