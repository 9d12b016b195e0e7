#include "hosts/common/clock/Clock.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

namespace hosts {

namespace {
double monotonicSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
} // namespace

RealClock::RealClock(double timeFactor)
    : m_timeFactor(std::clamp(timeFactor, 0.01, 1000.0))
    , m_startSeconds(monotonicSeconds()) {}

double RealClock::nowMs() const { return (monotonicSeconds() - m_startSeconds) * 1000.0 * m_timeFactor; }

void RealClock::spend(double ms) {
    // A system may cut a sleep down to whole milliseconds.
    const double endMs = nowMs() + ms;
    for (double leftMs = ms; leftMs > 0.0; leftMs = endMs - nowMs()) {
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(wallMs(leftMs)));
    }
}

double VirtualClock::nowMs() const {
    const std::lock_guard lock(m_mutex);
    return m_nowMs;
}

void VirtualClock::advance(double ms) {
    const double endMs = nowMs() + std::max(ms, 0.0);
    for (;;) {
        Ticker* due = nullptr;
        double dueMs = endMs;
        for (Entry& entry : m_tickers) {
            const double next = entry.ticker.nextDueMs();
            if (next < dueMs || (next == dueMs && due == nullptr)) {
                due = &entry.ticker;
                dueMs = next;
            }
        }
        if (due == nullptr) {
            break;
        }
        {
            const std::lock_guard lock(m_mutex);
            m_nowMs = std::max(m_nowMs, dueMs);
        }
        due->act(dueMs);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_nowMs = std::max(m_nowMs, endMs);
    }
    for (Entry& entry : m_tickers) {
        if (entry.ticker.settle) {
            entry.ticker.settle();
        }
    }
}

int VirtualClock::addTicker(Ticker ticker) {
    m_tickers.push_back({++m_lastNumber, std::move(ticker)});
    return m_lastNumber;
}

void VirtualClock::removeTicker(int number) {
    std::erase_if(m_tickers, [number](const Entry& entry) { return entry.number == number; });
}

} // namespace hosts
