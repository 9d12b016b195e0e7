#pragma once
// Relates the window handle that crosses the seam to the control behind it. A host in shared libraries
// draws into the window; a host inside this process delivers frames to the sink of the handle.

#include "base/Types.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace ocuva {

/// One image from the board: 32-bit pixels 0xffRRGGBB, row by row without gaps.
struct Frame {
    int width = 0;                     ///< pixels
    int height = 0;                    ///< pixels
    std::int64_t number = 0;           ///< number of the frame, from 1 for each host
    double capturedMs = 0.0;           ///< end of the exposure, on the host's clock
    std::vector<std::uint32_t> pixels; ///< width times height
};

using FramePtr = std::shared_ptr<const Frame>;

/// Receives the frames of a display window. A frame fills the window, whatever its size.
class FrameSink {
public:
    virtual ~FrameSink() = default;
    /// Takes the newest frame; it may drop an earlier one that has not been shown. Any thread; returns at
    /// once.
    virtual void present(FramePtr frame) = 0;
    /// Device pixels per screen pixel of the window (1, 1.5, 2), so that a host that reduces images need
    /// not lose detail that a dense screen can show. Any thread.
    virtual double devicePixelRatio() const = 0;
};

/// The table from window handles to sinks. attach and detach on the user-interface thread, deliver on any
/// thread.
class DisplayWindows {
public:
    /// Who draws the image into the window.
    enum class Painter {
        program, ///< sinks receive frames, and the program draws them
        host     ///< the host draws into the window itself; the program sees no frames
    };

    /// The painter does not change during a run.
    explicit DisplayWindows(Painter whoPaints = Painter::program)
        : m_painter(whoPaints) {}

    /// Any thread.
    Painter painter() const { return m_painter; }

    /// Sends the frames of this handle to the sink, which lives until detach. Replaces a sink attached
    /// before.
    void attach(Long windowHandle, FrameSink& sink);
    /// Waits for a running delivery. An unknown handle is ignored.
    void detach(Long windowHandle);

    /// Passes the frame to the sink of the handle, if there is one. After detach has returned, the sink is
    /// no longer called.
    void deliver(Long windowHandle, FramePtr frame) const;

    /// Device pixels per screen pixel of the window; 1 if there is none.
    double devicePixelRatio(Long windowHandle) const;

private:
    const Painter m_painter;
    mutable std::mutex m_mutex;
    std::map<Long, FrameSink*> m_sinks;
};

} // namespace ocuva
