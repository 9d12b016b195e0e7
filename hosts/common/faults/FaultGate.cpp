#include "hosts/common/faults/FaultGate.h"

#include "hosts/common/services/GuardedCall.h"

namespace hosts {

// The time passes before the call, so that a slow status is that of the moment at which it arrives.
bool FaultGate::admits(const char* function) const noexcept {
    return guardedCall(m_log, function, true, [&] {
        const FunctionFault fault = m_faults ? m_faults(function) : FunctionFault();
        if (fault.slowMs > 0.0) {
            m_clock.spend(fault.slowMs);
        }
        return !fault.fails;
    });
}

} // namespace hosts
