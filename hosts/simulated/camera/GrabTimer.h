#pragma once
// Calls the camera at its frame rate: on its own thread with a real clock, as a ticker of a virtual one.

#include "hosts/common/clock/Clock.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace hosts::simulated {

/// Commands come from one thread, and never from inside the capture.
class GrabTimer {
public:
    /// periodMs is called before each frame (simulated milliseconds, > 0), capture when a frame is due,
    /// settle at the end of each advance of a virtual clock, warmUp at each start on a real one, before
    /// the first frame. None may throw. The clock must outlive the timer; a virtual one must not be
    /// advanced by two threads.
    GrabTimer(Clock& clock, std::function<double()> periodMs, std::function<void()> capture,
              std::function<void()> settle = {}, std::function<void()> warmUp = {});
    ~GrabTimer();
    GrabTimer(const GrabTimer&) = delete;
    GrabTimer& operator=(const GrabTimer&) = delete;

    /// Starts again; the first frame is due one period from now. Due times do not drift: a frame that is
    /// too late is left out and not made up for.
    void start(bool continuous);
    /// Returns when no capture is running any more.
    void stop();

private:
    void runThread(bool continuous);
    bool waitUntil(double dueMs); ///< false when stopped meanwhile
    double dueAfter(double dueMs) const;

    Clock& m_clock;
    VirtualClock* m_virtualClock; ///< null with a real clock
    std::function<double()> m_periodMs;
    std::function<void()> m_capture;
    std::function<void()> m_warmUp;
    int m_tickerNumber = 0;
    double m_tickerDueMs;
    bool m_continuous = false; ///< of the ticker

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace hosts::simulated
