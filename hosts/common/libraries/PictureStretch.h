#pragma once
// Brings a picture to the size of a window.

#include "hostlink/DisplayWindow.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace hosts {

/// Fills `pixels` with width x height pixels, row after row, each the pixel of the frame that its middle
/// falls on.
inline void stretch(const ocuva::Frame& frame, int width, int height, std::vector<std::uint32_t>& pixels) {
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::uint32_t* to = pixels.data();
    for (int y = 0; y < height; ++y) {
        const std::int64_t row = (std::int64_t{2} * y + 1) * frame.height / (std::int64_t{2} * height);
        const std::uint32_t* from = frame.pixels.data() + row * frame.width;
        if (width == frame.width) {
            to = std::copy_n(from, width, to);
            continue;
        }
        for (int x = 0; x < width; ++x) {
            *to++ = from[(std::int64_t{2} * x + 1) * frame.width / (std::int64_t{2} * width)];
        }
    }
}

} // namespace hosts
