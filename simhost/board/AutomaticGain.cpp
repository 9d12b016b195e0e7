#include "simhost/board/AutomaticGain.h"

#include "simhost/picture/GreyStatistics.h"

namespace simhost {

bool AutomaticGain::follow(const ocuva::Frame& frame, const PictureControls& controls) {
    constexpr double neutralContrast = 50.0;
    constexpr double leastContrast = 0.1; // below, the picture tells nothing about the light
    constexpr int highestRange = 4;
    const double contrast = controls.contrast / neutralContrast;
    if (contrast < leastContrast || frame.pixels.empty()) {
        return false;
    }
    const GreyStatistics found = statistics(frame.pixels.data(), frame.pixels.size());
    const double mean = static_cast<double>(found.sum) / static_cast<double>(found.count);
    const double signal = (mean - static_cast<double>(transformOf(controls).offset)) / contrast;
    if (signal < darkest && m_range < highestRange) {
        ++m_range;
        return true;
    }
    if (signal > brightest && m_range > 0) {
        --m_range;
        return true;
    }
    return false;
}

} // namespace simhost
