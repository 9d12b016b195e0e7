#pragma once
// Ties the window handle that crosses the seam to the control behind it. A real host draws into the handle
// itself; a host inside this process delivers frames to the sink that stands behind the handle.

#include "base/Types.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace ocuva {

/// One picture as a board shows it: 32-bit pixels 0xffRRGGBB, row after row without gaps.
struct Frame {
    int width = 0;                     ///< pixels
    int height = 0;                    ///< pixels
    std::int64_t number = 0;           ///< counts the frames of one host, from 1
    double capturedMs = 0.0;           ///< host clock when the exposure ended
    std::vector<std::uint32_t> pixels; ///< width times height
};

using FramePtr = std::shared_ptr<const Frame>;

/// The receiving end of a display window. The frame fills the window, whatever size the window has.
class FrameSink {
public:
    virtual ~FrameSink() = default;
    /// Takes the newest frame; may be called from any thread, returns at once, and may drop the frame before
    /// it.
    virtual void present(FramePtr frame) = 0;
    /// Device pixels in one screen pixel of the window (1, 1.5, 2); any thread. A host that reduces pictures
    /// itself need not throw away what a dense screen can show.
    virtual double devicePixelRatio() const = 0;
};

/// The table from handle to sink. Attach and detach on the user-interface thread; deliver from any.
class DisplayWindows {
public:
    /// Who puts the picture into the window.
    enum class Painter {
        program, ///< frames come to the sinks, and the program draws them
        host     ///< the host draws into the window itself; the program sees no frames
    };

    /// One and the same for the whole run.
    explicit DisplayWindows(Painter whoPaints = Painter::program)
        : m_painter(whoPaints) {}

    /// Any thread.
    Painter painter() const { return m_painter; }

    /// The sink gets the frames of this handle, in place of one attached before; it lives until detach.
    void attach(Long windowHandle, FrameSink& sink);
    /// Waits for a delivery under way. An unknown handle is ignored.
    void detach(Long windowHandle);

    /// Hands the frame to the sink of that handle; nothing happens when there is none. A sink is not called
    /// any more once detach has returned.
    void deliver(Long windowHandle, FramePtr frame) const;

    /// Device pixels per screen pixel of that window; 1 when there is none.
    double devicePixelRatio(Long windowHandle) const;

private:
    const Painter m_painter;
    mutable std::mutex m_mutex;
    std::map<Long, FrameSink*> m_sinks;
};

} // namespace ocuva
