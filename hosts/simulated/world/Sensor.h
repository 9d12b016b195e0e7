#pragma once
// The camera's chip and electronics: noise, signal references, and the finished pixels.

#include "hosts/common/picture/PictureControls.h"
#include "hosts/simulated/world/Lens.h"

#include <cstdint>
#include <vector>

namespace hosts::simulated {

/// Turns light into pixels. One thread at a time.
class Sensor {
public:
    /// Widest picture that it can make, pixels.
    static constexpr int kMaxWidth = 4096;

    /// @param noiseRms grey levels, root mean square at neutral controls, 0 to 30; independent from frame to
    /// frame.
    explicit Sensor(double noiseRms);

    void setControls(const PictureControls& controls);

    /// Fills image.width * image.height pixels 0xffRRGGBB. The noise depends on the frame number alone.
    void expose(const SensorImage& image, std::uint64_t frameNumber, std::uint32_t* pixels);

private:
    void exposeRow(const SensorImage& image, int row, std::uint32_t frameSeed, std::uint32_t* pixels);
    void adjust(int channels, int width);

    double m_noiseRms;
    std::vector<std::int16_t> m_noise; // a pool that every row of every frame reads from another place; made
                                       // by the first exposure
    ColourTransform m_transform;
    bool m_neutral = true;
    std::vector<std::int16_t> m_row[3];
};

} // namespace hosts::simulated
