#pragma once
// The currently requested faults: section [Faults] of "simulator.ini", and the lamp of section [Camera].
// README.md in hosts/simulated/ lists the keys.

#include "hosts/common/faults/FunctionFault.h"
#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"
#include "hosts/simulated/faults/DeviceFaults.h"

#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace hosts::simulated {

/// Checks the file at each call, so that faults can be changed while the host runs; an unchanged file
/// costs only a look at its stamp. An unknown key or an invalid value means no fault, with one log line
/// each; each change of the faults is one log line. Any thread.
class FaultPlan {
public:
    /// store: the file's name among the stores.
    FaultPlan(Stores& stores, HostLog& log, std::string store = "simulator.ini");

    FunctionFault function(std::string_view name);
    DeviceFaults devices();

    static constexpr const char* section = "Faults";
    static constexpr double slowestMs = 600000.0;
    static constexpr double greatestLie = 1e6; ///< stage units
    static constexpr int mostFrames = 1000000;

    struct Faults {
        std::map<std::string, FunctionFault, std::less<>> functions; ///< by name
        DeviceFaults devices;
    };

private:
    const Faults& refreshed();
    void take(const std::string& entry, Faults& faults, std::string& told);
    void takeLamp(Faults& faults);
    void complain(const std::string& sentence);

    Stores& m_stores;
    HostLog& m_log;
    std::string m_store;
    std::mutex m_mutex;
    bool m_known = false;
    std::uint64_t m_revision = 0;
    Faults m_faults;
    std::string m_told;               ///< the faults that were logged last
    std::set<std::string> m_reported; ///< problems that have been logged already
};

} // namespace hosts::simulated
