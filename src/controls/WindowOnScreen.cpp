#include "controls/WindowOnScreen.h"

namespace ocuva {

void WindowOnScreen::request(bool shown) {
    m_wanted = shown;
    m_requestedMs = m_hands.nowMs();
    m_rightSinceMs.reset();
    m_repetitions = 0;
    if (m_carriedOut && (++m_requests > floodAfter || !takesEffect(*m_carriedOut))) {
        m_requestWaits = true;
    } else {
        carryOut();
    }
    m_hands.enableTimer(true);
}

void WindowOnScreen::tick() {
    const std::int64_t now = m_hands.nowMs();
    if (m_requestWaits || m_carriedOut != m_wanted) {
        if (takesEffect(*m_carriedOut) || now - m_carriedOutMs >= changeMs) {
            carryOut();
        }
    } else if (takesEffect(m_wanted)) {
        if (now - m_rightSinceMs.value_or(now) >= quietMs) {
            letGo();
            return;
        }
        m_rightSinceMs = m_rightSinceMs.value_or(now);
    } else if (now - m_requestedMs >= patienceMs) {
        letGo();
        m_hands.givenUp();
    } else {
        m_rightSinceMs.reset();
        repeat(now);
    }
}

void WindowOnScreen::letGo() {
    m_hands.enableTimer(false);
    m_carriedOut.reset();
    m_requestWaits = false;
    m_requests = 0;
}

bool WindowOnScreen::takesEffect(bool shown) const {
    return m_hands.look() == (shown ? WindowPresence::Shown : WindowPresence::Hidden);
}

void WindowOnScreen::carryOut() {
    m_carriedOut = m_wanted;
    m_carriedOutMs = m_hands.nowMs();
    m_requestWaits = false;
    m_rightSinceMs.reset();
    if (m_wanted) {
        m_hands.show();
    } else {
        m_hands.hide();
    }
}

void WindowOnScreen::repeat(std::int64_t now) {
    if (now - m_carriedOutMs < repeatMs * (m_repetitions + 1)) {
        return;
    }
    ++m_repetitions;
    if (m_repetitions % 2 == 1) {
        carryOut();
        return;
    }
    // Qt ignores a repeated request that it believes done, so the opposite is requested; the next look
    // sees its effect and carries out the wanted state.
    m_carriedOut = !m_wanted;
    m_carriedOutMs = now;
    m_hands.setMapped(!m_wanted);
}

} // namespace ocuva
