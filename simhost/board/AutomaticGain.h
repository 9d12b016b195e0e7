#pragma once
// The automatic gain: chooses among the gain ranges by how bright the pictures come out.

#include "hostlink/DisplayWindow.h"
#include "simhost/picture/PictureControls.h"

namespace simhost {

class AutomaticGain {
public:
    /// 0 to 4, as a gain that is set by hand.
    int range() const { return m_range; }

    /// Looks at a picture that was made with these controls at this range; true when the next one gets
    /// another range. One step at a time, as such a circuit follows the light over some frames. Contrast and
    /// brightness work behind it and are reckoned out.
    bool follow(const ocuva::Frame& frame, const PictureControls& controls);

    /// Mean grey levels that are left alone. They are further apart than one step of gain, so it cannot hunt.
    static constexpr double darkest = 80.0;
    static constexpr double brightest = 175.0;

private:
    static constexpr int unity = 2; ///< the range of factor 1
    int m_range = unity;
};

} // namespace simhost
