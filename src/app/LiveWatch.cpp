#include "app/LiveWatch.h"

namespace ocuva {

void LiveWatch::start(std::int64_t nowMs) {
    *this = {};
    m_lastSignMs = nowMs;
    checkIn(patienceMs, nowMs);
}

std::int64_t LiveWatch::checkIn(std::int64_t fromNowMs, std::int64_t nowMs) {
    m_checkDueMs = nowMs + fromNowMs;
    return fromNowMs;
}

void LiveWatch::startPeriod(std::int64_t nowMs) {
    m_periodStartMs = nowMs;
    m_framesInPeriod = 0;
}

bool LiveWatch::frameCame(std::int64_t nowMs) {
    m_lastSignMs = nowMs;
    if (m_stopped) {
        checkIn(patienceMs, nowMs);
    }
    if (m_stopped || m_framesInPeriod < 0) {
        m_stopped = false;
        m_framesPerSecond = 0.0;
        startPeriod(nowMs);
        return true;
    }
    ++m_framesInPeriod;
    const std::int64_t elapsedMs = nowMs - m_periodStartMs;
    if (elapsedMs < ratePeriodMs) {
        return false;
    }
    m_framesPerSecond = static_cast<double>(m_framesInPeriod) * 1000.0 / static_cast<double>(elapsedMs);
    startPeriod(nowMs);
    return true;
}

std::int64_t LiveWatch::check(std::int64_t nowMs) {
    const std::int64_t silentMs = nowMs - m_lastSignMs;
    if (silentMs < patienceMs) {
        return checkIn(patienceMs - silentMs, nowMs);
    }
    if (nowMs - m_checkDueMs > lateMs) {
        return checkIn(lateMs, nowMs);
    }
    m_stopped = true;
    return 0;
}

} // namespace ocuva
