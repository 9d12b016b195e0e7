#pragma once
// Where faults of host functions happen: each call first asks the plan whether its function fails or is slow.
// A function that is well goes straight through.

#include "hostlink/InterposedHost.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/faults/FaultPlan.h"

namespace hosts {

/// Lets calls through, late or not at all; a handler for ocuva::InterposedHost.
class FaultGate {
public:
    /// All outlive the gate.
    FaultGate(FaultPlan& plan, Clock& clock, HostLog& log)
        : m_plan(plan)
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

    FaultPlan& m_plan;
    Clock& m_clock;
    HostLog& m_log;
};

} // namespace hosts
