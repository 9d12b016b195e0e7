#pragma once
// What can be wrong with a host function.

#include <functional>
#include <string_view>

namespace hosts {

/// What is wrong with one host function at a moment; the defaults are a function in order.
struct FunctionFault {
    bool fails = false;  ///< it gives its failure result and does nothing else
    double slowMs = 0.0; ///< time on the host's clock that it takes before it answers
};

/// The fault of the function of that name. Asked at each call, from any thread; empty means no faults.
using FunctionFaults = std::function<FunctionFault(std::string_view name)>;

} // namespace hosts
