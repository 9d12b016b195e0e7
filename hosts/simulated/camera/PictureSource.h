#pragma once
// The source of the simulated camera's pictures.

#include "hosts/common/picture/PictureControls.h"
#include "hosts/simulated/world/Exposure.h"

#include <cstdint>

namespace hosts::simulated {

class PictureSource {
public:
    virtual ~PictureSource() = default;
    /// Fills mode.width x mode.height pixels 0xffRRGGBB, row after row. Calls come one at a time, from the
    /// thread that grabs or the one that focuses.
    virtual void render(const Exposure& exposure, const PictureControls& controls, std::uint32_t* pixels) = 0;
};

} // namespace hosts::simulated
