#pragma once
// Where the board's pictures come from.

#include "hosts/common/picture/PictureControls.h"
#include "hosts/simulated/world/Exposure.h"

#include <cstdint>

namespace hosts {

class FrameSource {
public:
    virtual ~FrameSource() = default;
    /// Fills mode.width x mode.height pixels 0xffRRGGBB, row after row. Calls come one at a time, from the
    /// thread that grabs or the one that focuses.
    virtual void render(const simulated::Exposure& exposure, const PictureControls& controls,
                        std::uint32_t* pixels) = 0;
};

} // namespace hosts
