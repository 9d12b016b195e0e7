#include "hosts/common/libraries/ProcessHost.h"

#include "hostlink/InterposedHost.h"
#include "hosts/common/HostOptions.h"
#include "hosts/common/libraries/HostBox.h"
#include "hosts/common/libraries/WindowPainter.h"

#include <cstdio>
#include <exception>
#include <utility>

namespace hosts {

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
    std::unique_ptr<ocuva::Host> host;
    std::unique_ptr<ExportedHost> exported;
    bool failed = false;
    ocuva::DisplayWindows windows;
    ocuva::Long shownIn = 0;
    std::unique_ptr<WindowPainter> painter;

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

// Never destroyed: threads of the camera must not be waited for while the system takes libraries down.
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
        HostOptions options;
        options.showMessage = showBox;
        options.windows = &wide.windows;
        replaceProcessHost([&options] { return makeProcessHost(std::move(options)); });
    }
    return wide.exported.get();
}

void replaceProcessHost(const std::function<std::unique_ptr<ocuva::Host>()>& make) {
    ProcessWide& wide = processWide();
    wide.exported.reset();
    wide.host.reset();
    try {
        wide.host = make();
        wide.exported =
            std::make_unique<ExportedHost>(*wide.host, [&wide](ocuva::Long handle) { wide.showIn(handle); });
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        wide.failed = true;
    }
}

} // namespace hosts
