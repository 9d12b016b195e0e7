#include "app/MagnificationWatch.h"

#include <bit>
#include <cstdint>
#include <utility>

namespace ocuva {

namespace {

// Bitwise: a factor that is not a number equals itself, so it does not count as a change every second.
bool same(Single a, Single b) { return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); }

bool same(const Magnification& a, const Magnification& b) {
    return a.magnification == b.magnification && same(a.x100, b.x100) && same(a.y100, b.y100);
}

} // namespace

MagnificationWatch::MagnificationWatch(MagnificationWatchContext context, QObject* parent)
    : QObject(parent)
    , m_context(std::move(context)) {
    m_tSoon.setParent(this);
    m_tSoon.setSingleShot(true);
    m_tSoon.setInterval(soonMs);
    m_tLive.setParent(this);
    m_tLive.setInterval(liveMs);
    connect(&m_tSoon, &QTimer::timeout, this, &MagnificationWatch::check);
    connect(&m_tLive, &QTimer::timeout, this, &MagnificationWatch::check);
}

void MagnificationWatch::readSoon() {
    if (!m_stopped) {
        m_tSoon.start();
    }
}

void MagnificationWatch::setLive(bool live) {
    if (m_stopped || live == m_tLive.isActive()) {
        return;
    }
    readSoon();
    if (live) {
        m_tLive.start();
    } else {
        m_tLive.stop();
    }
}

void MagnificationWatch::stop() {
    m_stopped = true;
    m_tSoon.stop();
    m_tLive.stop();
}

void MagnificationWatch::check() {
    if (!m_context.isSeen()) {
        return;
    }
    const Magnification now = m_context.read();
    if (same(now, m_drawn) && now.magnification == m_shown) {
        return;
    }
    m_drawn = now;
    m_shown = now.magnification;
    m_context.changed(now);
}

} // namespace ocuva
