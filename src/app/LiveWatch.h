#pragma once
// Whether the live image is really live: frames must keep arriving while a grab is running.

#include <cstdint>

namespace ocuva {

/// Times in milliseconds of any one clock that never goes back; the caller reads it.
class LiveWatch {
public:
    /// So long may a frame be overdue.
    static constexpr std::int64_t patienceMs = 1000;
    /// Frames are counted over periods of this length.
    static constexpr std::int64_t ratePeriodMs = 1000;
    /// A check that is this late means that the program itself was busy, with frames waiting for it.
    static constexpr std::int64_t lateMs = 250;

    /// A grab begins; the first check is due after patienceMs.
    void start(std::int64_t nowMs);
    /// A frame has arrived. True if this changes the display: the rate is new, or the image is live again;
    /// a check is then due after patienceMs.
    bool frameCame(std::int64_t nowMs);
    /// Checks whether the image has stopped; to be repeated after the returned time. 0 if it has stopped:
    /// no check is needed until the next frame.
    std::int64_t check(std::int64_t nowMs);

    /// As the last check has found; false again with the next frame.
    bool hasStopped() const { return m_stopped; }
    /// When the last frame came, or the grab began.
    std::int64_t lastSignMs() const { return m_lastSignMs; }
    /// Over the last whole period; 0 before the first has ended.
    double framesPerSecond() const { return m_framesPerSecond; }

private:
    void startPeriod(std::int64_t nowMs);
    std::int64_t checkIn(std::int64_t fromNowMs, std::int64_t nowMs);

    std::int64_t m_lastSignMs = 0;
    std::int64_t m_checkDueMs = 0;
    bool m_stopped = false;
    std::int64_t m_periodStartMs = 0;
    std::int64_t m_framesInPeriod = -1; // the frame that opens a period does not count; before it -1
    double m_framesPerSecond = 0.0;
};

} // namespace ocuva
