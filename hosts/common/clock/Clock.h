#pragma once
// The only source of time of a host. Everything that moves or waits uses it, so that tests can drive the
// world with a virtual clock and never sleep.

#include <functional>
#include <mutex>
#include <vector>

namespace hosts {

/// Milliseconds, as doubles.
class Clock {
public:
    virtual ~Clock() = default;

    /// Milliseconds since the clock was made; never goes back. Any thread.
    virtual double nowMs() const = 0;

    /// Waits for the hardware: a real clock sleeps, a virtual one advances.
    virtual void spend(double ms) = 0;

    /// True when time passes only by advance and spend.
    virtual bool isVirtual() const = 0;

    /// Milliseconds on the wall while ms of this clock pass by themselves; 0 on a virtual clock.
    virtual double wallMs(double ms) const = 0;
};

/// Wall time, run faster or slower by a factor (2 = twice as fast; 0.01 to 1000).
class RealClock final : public Clock {
public:
    /// A factor out of range is brought to its nearest end.
    explicit RealClock(double timeFactor = 1.0);
    double nowMs() const override;
    void spend(double ms) override;
    bool isVirtual() const override { return false; }
    double wallMs(double ms) const override { return ms / m_timeFactor; }
    /// Simulated milliseconds for each one on the wall.
    double timeFactor() const { return m_timeFactor; }

private:
    double m_timeFactor;
    double m_startSeconds;
};

/// A clock that stands still until it is advanced.
class VirtualClock final : public Clock {
public:
    double nowMs() const override;
    void spend(double ms) override { advance(ms); }
    bool isVirtual() const override { return true; }
    double wallMs(double) const override { return 0.0; }

    /// Moves time on, stopping at every due time that a registered ticker names, in order.
    void advance(double ms);

    /// A part that acts at its own times (the camera): `nextDueMs` returns the next one (infinity for
    /// none), `act` is called when it is reached, on the advancing thread.
    struct Ticker {
        std::function<double()> nextDueMs;     ///< time of its next act, on this clock
        std::function<void(double nowMs)> act; ///< its action
        /// Called at the end of each advance, for work that is needed only once; may be empty.
        std::function<void()> settle = {};
    };
    /// Tickers are added and removed while time stands still; returns a number for removeTicker.
    int addTicker(Ticker ticker);
    /// A number that is not in use does nothing.
    void removeTicker(int number);

private:
    struct Entry {
        int number;
        Ticker ticker;
    };
    mutable std::mutex m_mutex;
    double m_nowMs = 0.0;
    int m_lastNumber = 0;
    std::vector<Entry> m_tickers;
};

} // namespace hosts
