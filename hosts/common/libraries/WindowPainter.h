#pragma once
// Draws live video into a window of the program, as a real video library does: it knows nothing of the window
// but its handle.

#include "hostlink/DisplayWindow.h"

#include <memory>

namespace hosts {

/// Takes frames from any thread and draws the newest, stretched to the window. Redraws it when the window
/// has been covered. Created and destroyed on the window's thread. A destroyed window is not drawn.
class WindowPainter final : public ocuva::FrameSink {
public:
    explicit WindowPainter(ocuva::Long windowHandle);
    ~WindowPainter() override;

    void present(ocuva::FramePtr frame) override;
    double devicePixelRatio() const override { return 1.0; }

private:
    struct Window;
    std::unique_ptr<Window> m_window;
};

} // namespace hosts
