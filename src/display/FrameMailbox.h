#pragma once
// The only path of frames from a host's grab thread to the user-interface thread. It holds just the latest
// frame: a frame that was not fetched in time is dropped, not shown late.

#include "hostlink/DisplayWindow.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>

namespace ocuva {

/// present may be called on any thread, everything else only on the owner's thread.
class FrameMailbox final : public FrameSink {
public:
    /// `wake` is called on the presenting thread when a frame arrives in the empty box, and must make the
    /// owner's thread call take soon. It is called again only after take.
    explicit FrameMailbox(std::function<void()> wake);

    /// Any thread. Replaces a frame that has not been taken.
    void present(FramePtr frame) override;
    /// Any thread. As set last; 1 before that.
    double devicePixelRatio() const override { return m_devicePixelRatio; }

    /// Empties the box; null when nothing new has come.
    FramePtr take();

    /// Sets the screen density that hosts see.
    void setDevicePixelRatio(double ratio) { m_devicePixelRatio = ratio; }

    /// Number of frames that were replaced before they were taken.
    std::uint64_t droppedFrames() const { return m_dropped; }

private:
    std::function<void()> m_wake;
    std::mutex m_mutex;
    FramePtr m_latest;
    std::atomic<std::uint64_t> m_dropped{0};
    std::atomic<double> m_devicePixelRatio{1.0};
};

} // namespace ocuva
