#pragma once
// Watches the loading of the host's libraries, which a library or a dead network drive can block forever.

#include "hostlink/CallMark.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace ocuva {

/// Reports once, on a thread of its own, that the marked call has not ended within a limit. The watched
/// thread is blocked then, so the receiver must not depend on it.
class LoadWatch {
public:
    /// Receives the words of the mark.
    using Late = std::function<void(const std::string& running)>;

    /// Starts watching; the mark outlives this object.
    LoadWatch(const CallMark& mark, std::chrono::milliseconds bound, Late late);
    /// Stops watching. Waits for a receiver that is still running.
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
