#include "hosts/common/board/PictureReduction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace hosts {

int displayReduction(ocuva::Long zoom, bool fullSize, double devicePixelRatio) {
    if (fullSize || zoom >= -1) {
        return 1;
    }
    const int asked = zoom < -greatestReduction ? greatestReduction : -zoom;
    const double ratio = devicePixelRatio >= 1.0 ? devicePixelRatio : 1.0;
    return std::max(1, static_cast<int>(std::floor(asked / ratio)));
}

void reduce(const ocuva::Frame& full, int reduction, ocuva::Frame& small) {
    const auto block = static_cast<std::uint32_t>(reduction * reduction);
    const std::uint32_t half = block / 2;
    std::uint32_t* out = small.pixels.data();
    for (int row = 0; row < small.height; ++row) {
        const std::uint32_t* const top =
            full.pixels.data() + static_cast<std::size_t>(row) * reduction * full.width;
        for (int column = 0; column < small.width; ++column) {
            // Red and blue share one sum, 16 bits apart: 256 pixels of 255 just fit.
            std::uint32_t redBlue = 0;
            std::uint32_t green = 0;
            for (int y = 0; y < reduction; ++y) {
                const std::uint32_t* in = top + static_cast<std::size_t>(y) * full.width +
                                          static_cast<std::size_t>(column) * reduction;
                for (int x = 0; x < reduction; ++x) {
                    redBlue += in[x] & 0x00ff00ffU;
                    green += (in[x] >> 8) & 0xffU;
                }
            }
            const std::uint32_t red = ((redBlue >> 16) + half) / block;
            const std::uint32_t blue = ((redBlue & 0xffffU) + half) / block;
            *out++ = 0xff000000U | red << 16 | ((green + half) / block) << 8 | blue;
        }
    }
}

} // namespace hosts
