#include "hosts/common/libraries/HostBox.h"
#include "hosts/common/libraries/ProcessHost.h"
#include "hosts/common/libraries/WindowPainter.h"
#include "hosts/simulated/SimulatedHost.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace hosts {

using namespace simulated;

namespace {

struct ProcessWide {
    std::shared_ptr<VirtualClock> clock; // null: real time
    std::unique_ptr<SimulatedHost> host;
    bool failed = false;
    ocuva::DisplayWindows windows;
    ocuva::Long shownIn = 0;
    std::unique_ptr<WindowPainter> painter;

    void start(SimulatedHostOptions options) {
        try {
            host = std::make_unique<SimulatedHost>(std::move(options));
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            failed = true;
        }
    }
};

// Never destroyed: threads of the board must not be waited for while the system takes libraries down.
ProcessWide& processWide() {
    static auto* const wide = [] {
        stayLoaded();
        return new ProcessWide;
    }();
    return *wide;
}

} // namespace

ocuva::Host* processHost() {
    ProcessWide& wide = processWide();
    if (!wide.host && !wide.failed) {
        SimulatedHostOptions options;
        options.showMessage = showBox;
        options.windows = &wide.windows;
        wide.start(std::move(options));
    }
    return wide.host.get();
}

void showLiveVideoIn(ocuva::Long windowHandle) {
    ProcessWide& wide = processWide();
    if (windowHandle == wide.shownIn) {
        return;
    }
    if (wide.painter) {
        wide.windows.detach(wide.shownIn);
        wide.painter.reset();
    }
    wide.painter = std::make_unique<WindowPainter>(windowHandle);
    wide.shownIn = windowHandle;
    wide.windows.attach(windowHandle, *wide.painter);
}

} // namespace hosts

void SimulatedHostRestart(const char* dataFolder) {
    hosts::ProcessWide& wide = hosts::processWide();
    wide.host.reset();
    wide.clock = std::make_shared<hosts::VirtualClock>();
    hosts::simulated::SimulatedHostOptions options;
    options.dataFolder = dataFolder;
    options.clock = wide.clock;
    wide.start(std::move(options));
}

void SimulatedHostAdvance(double ms) { hosts::processWide().clock->advance(ms); }
