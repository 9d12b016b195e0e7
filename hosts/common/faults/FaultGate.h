#pragma once
// Applies the faults of host functions: each call first checks whether its function fails or is slow.
// Calls without a fault pass directly.

#include "hostlink/InterposedHost.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/faults/FunctionFault.h"
#include "hosts/common/services/HostLog.h"

namespace hosts {

/// Lets calls through, delayed or not at all; a handler for ocuva::InterposedHost.
class FaultGate {
public:
    /// All outlive the gate.
    FaultGate(const FunctionFaults& faults, Clock& clock, HostLog& log)
        : m_faults(faults)
        , m_clock(clock)
        , m_log(log) {}

    /// The result of the call or, without a call, the result that means its failure. Throws nothing.
    template <class Call, class... Argument>
    auto operator()(const ocuva::HostCall& which, const Call& call,
                    const Argument&... /*passed*/) const noexcept {
        return admits(which.function) ? call() : static_cast<decltype(call())>(which.failure);
    }

private:
    bool admits(const char* function) const noexcept;

    const FunctionFaults& m_faults;
    Clock& m_clock;
    HostLog& m_log;
};

} // namespace hosts
