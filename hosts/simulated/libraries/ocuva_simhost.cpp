#include "hosts/common/libraries/ProcessHost.h"
#include "hosts/simulated/SimulatedHost.h"

#include <memory>
#include <utility>

std::unique_ptr<ocuva::Host> hosts::makeProcessHost(HostOptions options) {
    return std::make_unique<simulated::SimulatedHost>(
        simulated::SimulatedHostOptions{std::move(options), nullptr});
}

namespace {

std::shared_ptr<hosts::VirtualClock>& testClock() {
    static std::shared_ptr<hosts::VirtualClock> clock;
    return clock;
}

} // namespace

/// For tests: replaces the host by a new one on that folder, with a virtual clock.
HOSTS_EXPORT void SimulatedHostRestart(const char* dataFolder) {
    hosts::replaceProcessHost([dataFolder] {
        testClock() = std::make_shared<hosts::VirtualClock>();
        hosts::simulated::SimulatedHostOptions options;
        options.dataFolder = dataFolder;
        options.clock = testClock();
        return std::make_unique<hosts::simulated::SimulatedHost>(std::move(options));
    });
}

/// For tests: advances the virtual clock.
HOSTS_EXPORT void SimulatedHostAdvance(double ms) { testClock()->advance(ms); }
