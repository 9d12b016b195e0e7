#pragma once
// Draws live video into a window of the program, as a real video library does: it knows nothing of the window
// but its handle.

#include "hostlink/DisplayWindow.h"

#include <memory>

namespace hosts {

/// Takes frames from any thread and draws the newest, stretched to the window. What was drawn last is drawn
/// again where the window was covered. Made and destroyed on the thread of the window. A window that is gone
/// is not drawn.
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
