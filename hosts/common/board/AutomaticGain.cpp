#include "hosts/common/board/AutomaticGain.h"

#include "hosts/common/picture/GreyStatistics.h"

namespace hosts {

int AutomaticGain::follow(const ocuva::Frame& frame, const PictureControls& controls, int frames) {
    constexpr double neutralContrast = 50.0;
    constexpr double leastContrast = 0.1; // below this, the picture contains no information about the light
    constexpr int highestRange = 4;
    const double contrast = controls.contrast / neutralContrast;
    if (contrast < leastContrast || frame.pixels.empty() || frames < 1) {
        return 0;
    }
    const GreyStatistics found = statistics(frame.pixels.data(), frame.pixels.size());
    const double mean = static_cast<double>(found.sum) / static_cast<double>(found.count);
    const double signal = (mean - static_cast<double>(transformOf(controls).offset)) / contrast;
    const bool tooDark = signal < darkest && m_range < highestRange;
    const bool tooBright = signal > brightest && m_range > 0;
    if (!tooDark && !tooBright) {
        return stepBack(signal, frames);
    }
    m_range += tooDark ? 1 : -1;
    m_quietFrames = 0;
    return 1;
}

int AutomaticGain::stepBack(double signal, int frames) {
    constexpr double step = 1.4142135623730951; // from one range to the next
    constexpr double margin = 4.0;              // otherwise noise could switch it back and forth
    const double afterwards = m_range < unity ? signal * step : signal / step;
    const bool fits = afterwards > darkest + margin && afterwards < brightest - margin;
    if (m_range == unity || !fits) {
        m_quietFrames = 0;
        return 0;
    }
    const int needed = patienceFrames - m_quietFrames;
    if (frames < needed) {
        m_quietFrames += frames;
        return 0;
    }
    m_range += m_range < unity ? 1 : -1;
    m_quietFrames = 0;
    return needed;
}

} // namespace hosts
