#include "hostlink/LoadWatch.h"

#include <utility>

namespace ocuva {

LoadWatch::LoadWatch(const CallMark& mark, std::chrono::milliseconds bound, Late late)
    : m_mark(mark)
    , m_late(std::move(late))
    , m_thread([this, bound] { watch(bound); }) {}

LoadWatch::~LoadWatch() {
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void LoadWatch::watch(std::chrono::milliseconds bound) {
    {
        std::unique_lock lock(m_mutex);
        if (m_wake.wait_for(lock, bound, [this] { return m_ended; })) {
            return;
        }
    }
    const char* running = m_mark.current();
    m_late(running != nullptr ? running : "the start");
}

} // namespace ocuva
