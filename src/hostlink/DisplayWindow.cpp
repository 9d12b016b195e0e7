#include "hostlink/DisplayWindow.h"

#include <utility>

namespace ocuva {

void DisplayWindows::attach(Long windowHandle, FrameSink& sink) {
    const std::lock_guard lock(m_mutex);
    m_sinks[windowHandle] = &sink;
}

void DisplayWindows::detach(Long windowHandle) {
    const std::lock_guard lock(m_mutex);
    m_sinks.erase(windowHandle);
}

void DisplayWindows::deliver(Long windowHandle, FramePtr frame) const {
    const std::lock_guard lock(m_mutex);
    if (const auto sink = m_sinks.find(windowHandle); sink != m_sinks.end()) {
        sink->second->present(std::move(frame));
    }
}

double DisplayWindows::devicePixelRatio(Long windowHandle) const {
    const std::lock_guard lock(m_mutex);
    const auto sink = m_sinks.find(windowHandle);
    return sink == m_sinks.end() ? 1.0 : sink->second->devicePixelRatio();
}

} // namespace ocuva
