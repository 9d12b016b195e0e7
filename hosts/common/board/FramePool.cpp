#include "hosts/common/board/FramePool.h"

#include <mutex>
#include <utility>
#include <vector>

namespace hosts {

using ocuva::Frame;

struct FramePool::Shelf {
    std::mutex mutex;
    std::vector<std::unique_ptr<Frame>> spare;

    std::unique_ptr<Frame> pick() {
        const std::lock_guard lock(mutex);
        if (spare.empty()) {
            return std::make_unique<Frame>();
        }
        std::unique_ptr<Frame> frame = std::move(spare.back());
        spare.pop_back();
        return frame;
    }
    void putBack(std::unique_ptr<Frame> frame) {
        const std::lock_guard lock(mutex);
        if (spare.size() < spareFrames) {
            spare.push_back(std::move(frame));
        }
    }
};

// The shelf has its full room from the start: giving a frame back happens in a deleter, which must not fail.
FramePool::FramePool()
    : m_shelf(std::make_shared<Shelf>()) {
    m_shelf->spare.reserve(spareFrames);
}

std::shared_ptr<Frame> FramePool::take(int width, int height) {
    std::unique_ptr<Frame> frame = m_shelf->pick();
    frame->width = width;
    frame->height = height;
    frame->pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    return {frame.release(),
            [shelf = m_shelf](Frame* used) { shelf->putBack(std::unique_ptr<Frame>(used)); }};
}

} // namespace hosts
