#pragma once
// Where faults of host functions happen: each call first asks whether its function fails or is slow.
// A function that is well goes straight through.

#include "hostlink/InterposedHost.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/faults/FunctionFault.h"
#include "hosts/common/services/HostLog.h"

namespace hosts {

/// Lets calls through, late or not at all; a handler for ocuva::InterposedHost.
class FaultGate {
public:
    /// All outlive the gate.
    FaultGate(const FunctionFaults& faults, Clock& clock, HostLog& log)
        : m_faults(faults)
        , m_clock(clock)
        , m_log(log) {}

    /// The result of the call, or without a call the one that stands for its failure. No exception leaves it.
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
