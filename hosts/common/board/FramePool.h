#pragma once
// Reuses frames that are no longer needed, so that live video does not allocate 1.7 MB per frame.

#include "hostlink/DisplayWindow.h"

#include <cstddef>
#include <memory>

namespace hosts {

class FramePool {
public:
    FramePool();
    /// A frame of that size with pixels of any value; it returns to the pool with its last reference, on any
    /// thread, even after the pool itself is gone.
    std::shared_ptr<ocuva::Frame> take(int width, int height);

    static constexpr std::size_t spareFrames = 4; ///< kept; further ones that return are freed

private:
    struct Shelf;
    std::shared_ptr<Shelf> m_shelf;
};

} // namespace hosts
