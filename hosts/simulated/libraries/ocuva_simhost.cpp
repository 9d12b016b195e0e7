#include "hostlink/InterposedHost.h"
#include "hosts/common/libraries/HostBox.h"
#include "hosts/common/libraries/ProcessHost.h"
#include "hosts/common/libraries/WindowPainter.h"
#include "hosts/simulated/SimulatedHost.h"

#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

namespace hosts {

using namespace simulated;

namespace {

/// The video library as it is exported: live video appears in the window that the program hands over.
struct VideoInWindow final : ocuva::Interposed<ocuva::TnVideo, ocuva::HandOn> {
    VideoInWindow(ocuva::TnVideo& video, std::function<void(ocuva::Long windowHandle)> show)
        : Interposed(ocuva::HandOn(), video)
        , showIn(std::move(show)) {}
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override {
        if (functionCode == TARN_BOARD_FUNCTION_DISPLAY && data != nullptr) {
            showIn(static_cast<const TarnDisplayRequest*>(data)->windowHandle);
        }
        return Interposed::TarnVideoBoardFunction(functionCode, data);
    }
    std::function<void(ocuva::Long)> showIn;
};

struct ExportedHost final : ocuva::InterposedHost<ocuva::HandOn> {
    ExportedHost(ocuva::Host& host, std::function<void(ocuva::Long windowHandle)> show)
        : InterposedHost(ocuva::HandOn(), host)
        , video(host.tn_video(), std::move(show)) {}
    ocuva::TnVideo& tn_video() override { return video; }
    VideoInWindow video;
};

struct ProcessWide {
    std::shared_ptr<VirtualClock> clock; // null: real time
    std::unique_ptr<SimulatedHost> host;
    std::unique_ptr<ExportedHost> exported;
    bool failed = false;
    ocuva::DisplayWindows windows;
    ocuva::Long shownIn = 0;
    std::unique_ptr<WindowPainter> painter;

    void start(SimulatedHostOptions options) {
        try {
            host = std::make_unique<SimulatedHost>(std::move(options));
            exported = std::make_unique<ExportedHost>(*host, [this](ocuva::Long handle) { showIn(handle); });
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            failed = true;
        }
    }

    void showIn(ocuva::Long windowHandle) {
        if (windowHandle == shownIn) {
            return;
        }
        if (painter) {
            windows.detach(shownIn);
            painter.reset();
        }
        painter = std::make_unique<WindowPainter>(windowHandle);
        shownIn = windowHandle;
        windows.attach(windowHandle, *painter);
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
    return wide.exported.get();
}

} // namespace hosts

void SimulatedHostRestart(const char* dataFolder) {
    hosts::ProcessWide& wide = hosts::processWide();
    wide.exported.reset();
    wide.host.reset();
    wide.clock = std::make_shared<hosts::VirtualClock>();
    hosts::simulated::SimulatedHostOptions options;
    options.dataFolder = dataFolder;
    options.clock = wide.clock;
    wide.start(std::move(options));
}

void SimulatedHostAdvance(double ms) { hosts::processWide().clock->advance(ms); }
