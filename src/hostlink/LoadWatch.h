#pragma once
// Watches over the loading of the host's libraries, which a library or a dead network drive can hold for
// ever.

#include "hostlink/CallMark.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace ocuva {

/// Says once, in a thread of its own, that what is marked has not come to its end within a bound. The watched
/// thread cannot answer then, so the receiver must need nothing of it.
class LoadWatch {
public:
    /// Called with the words of the mark.
    using Late = std::function<void(const std::string& running)>;

    /// Begins to watch; the mark outlives it.
    LoadWatch(const CallMark& mark, std::chrono::milliseconds bound, Late late);
    /// Ends the watch. A receiver that is still at work is waited for.
    ~LoadWatch();
    LoadWatch(const LoadWatch&) = delete;
    LoadWatch& operator=(const LoadWatch&) = delete;

private:
    void watch(std::chrono::milliseconds bound);

    const CallMark& m_mark;
    Late m_late;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ended = false;
    std::thread m_thread;
};

} // namespace ocuva
