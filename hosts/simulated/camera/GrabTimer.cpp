#include "hosts/simulated/camera/GrabTimer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

namespace hosts::simulated {

namespace {
constexpr double never = std::numeric_limits<double>::infinity();
}

GrabTimer::GrabTimer(Clock& clock, std::function<double()> periodMs, std::function<void()> capture,
                     std::function<void()> settle, std::function<void()> warmUp)
    : m_clock(clock)
    , m_virtualClock(dynamic_cast<VirtualClock*>(&clock))
    , m_periodMs(std::move(periodMs))
    , m_capture(std::move(capture))
    , m_warmUp(std::move(warmUp))
    , m_tickerDueMs(never) {
    if (m_virtualClock == nullptr) {
        return;
    }
    const auto act = [this](double nowMs) {
        m_tickerDueMs = m_continuous ? nowMs + m_periodMs() : never;
        m_capture();
    };
    m_tickerNumber = m_virtualClock->addTicker({[this] { return m_tickerDueMs; }, act, std::move(settle)});
}

GrabTimer::~GrabTimer() {
    stop();
    if (m_virtualClock != nullptr) {
        m_virtualClock->removeTicker(m_tickerNumber);
    }
}

void GrabTimer::start(bool continuous) {
    stop();
    if (m_virtualClock != nullptr) {
        m_continuous = continuous;
        m_tickerDueMs = m_clock.nowMs() + m_periodMs();
        return;
    }
    m_stopping = false;
    m_thread = std::thread([this, continuous] { runThread(continuous); });
}

void GrabTimer::stop() {
    m_tickerDueMs = never;
    if (!m_thread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void GrabTimer::runThread(bool continuous) {
    double dueMs = m_clock.nowMs() + m_periodMs();
    if (m_warmUp) {
        m_warmUp();
    }
    while (waitUntil(dueMs)) {
        m_capture();
        if (!continuous) {
            return;
        }
        dueMs = dueAfter(dueMs);
    }
}

bool GrabTimer::waitUntil(double dueMs) {
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        const double remainingMs = dueMs - m_clock.nowMs();
        if (remainingMs <= 0.0) {
            return true;
        }
        const std::chrono::duration<double, std::milli> wait(m_clock.wallMs(remainingMs));
        m_wake.wait_for(lock, wait, [this] { return m_stopping; });
    }
    return false;
}

double GrabTimer::dueAfter(double dueMs) const {
    const double periodMs = m_periodMs();
    const double periods = std::ceil((m_clock.nowMs() - dueMs) / periodMs);
    return dueMs + std::max(periods, 1.0) * periodMs;
}

} // namespace hosts::simulated
