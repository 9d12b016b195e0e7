#pragma once
// The one hop by which frames come from a host's grab thread to the user-interface thread. It holds the
// latest frame and never more: a frame that nobody fetched in time is dropped, not shown late.

#include "hostlink/DisplayWindow.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>

namespace ocuva {

/// Frames may be presented by any thread; all else is for the owner's thread.
class FrameMailbox final : public FrameSink {
public:
    /// `wake` is called on the presenting thread when a frame has come into the empty box; it must make the
    /// owner's thread call take soon. It is called again only after take.
    explicit FrameMailbox(std::function<void()> wake);

    /// Any thread. Puts the frame in the place of one that nobody has taken.
    void present(FramePtr frame) override;
    /// Any thread. As set last; 1 before that.
    double devicePixelRatio() const override { return m_devicePixelRatio; }

    /// Empties the box; null when nothing new has come.
    FramePtr take();

    /// Tells hosts how dense the screen is.
    void setDevicePixelRatio(double ratio) { m_devicePixelRatio = ratio; }

    /// Frames that were replaced before anybody took them.
    std::uint64_t droppedFrames() const { return m_dropped; }

private:
    std::function<void()> m_wake;
    std::mutex m_mutex;
    FramePtr m_latest;
    std::atomic<std::uint64_t> m_dropped{0};
    std::atomic<double> m_devicePixelRatio{1.0};
};

} // namespace ocuva
