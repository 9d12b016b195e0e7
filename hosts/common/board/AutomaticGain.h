#pragma once
// The automatic gain: chooses among the gain ranges by how bright the pictures come out.

#include "hostlink/DisplayWindow.h"
#include "hosts/common/picture/PictureControls.h"

namespace hosts {

class AutomaticGain {
public:
    /// 0 to 4, as a gain that is set by hand.
    int range() const { return m_range; }

    /// Evaluates a picture taken with these controls at the current range, which the next frames also show
    /// while the range stays. Returns the number of frames, at most `frames`, after which the next one
    /// gets another range; 0 if it stays for all of them. The range changes by one step at a time, like
    /// such a circuit. The effects of contrast and brightness are removed first.
    int follow(const ocuva::Frame& frame, const PictureControls& controls, int frames = 1);

    /// Mean grey levels that are left alone. They are further apart than one step of gain, so it cannot hunt.
    static constexpr double darkest = 80.0;
    static constexpr double brightest = 175.0;

    /// A picture that has been neither too dark nor too bright for this many frames, and would not be
    /// after one step towards the range of factor 1 either, gets that step: the same light gets the same
    /// gain again, wherever the stage has been. At 25 frames a second the two steps from an end take less
    /// than two seconds.
    static constexpr int patienceFrames = 20;

private:
    int stepBack(double signal, int frames);

    static constexpr int unity = 2; ///< the range of factor 1
    int m_range = unity;
    int m_quietFrames = 0; ///< that could have had the step nearer to unity
};

} // namespace hosts
