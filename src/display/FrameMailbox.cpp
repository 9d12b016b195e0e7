#include "display/FrameMailbox.h"

#include <utility>

namespace ocuva {

FrameMailbox::FrameMailbox(std::function<void()> wake)
    : m_wake(std::move(wake)) {}

void FrameMailbox::present(FramePtr frame) {
    {
        const std::lock_guard lock(m_mutex);
        // The frame before goes with `frame`, outside the lock.
        std::swap(m_latest, frame);
    }
    if (frame != nullptr) {
        ++m_dropped;
    } else {
        m_wake();
    }
}

FramePtr FrameMailbox::take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_latest, nullptr);
}

} // namespace ocuva
