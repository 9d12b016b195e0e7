#pragma once
// The host's search for the focus: steps through Z, measures how sharp each picture is, stands at the peak.

#include "hostlink/DisplayWindow.h"
#include "simhost/clock/Clock.h"
#include "simhost/mechanics/StageMechanics.h"
#include "simhost/services/HostLog.h"

#include <functional>
#include <vector>

namespace simhost {

/// Sum of the squared differences of neighbouring grey levels, per pixel, in the middle part of a frame:
/// 1 / fraction of its width and of its height. 0 for a frame too small to have neighbours.
double gradientEnergy(const ocuva::Frame& frame, int fraction);

struct FocusPlan {
    double range = 18.0; ///< stage units from the first Z to the last, around the present Z
    int points = 7;      ///< Z positions tried
    int fraction = 1;    ///< part of the picture that is measured, see gradientEnergy
};

class FocusSearch {
public:
    /// expose takes a frame where the stage stands. All outlive the search.
    FocusSearch(StageMechanics& stage, Clock& clock, std::function<ocuva::FramePtr()> expose, HostLog& log);

    /// Returns when Z stands: at the peak (true), or back where it began (false) when the sharpness has no
    /// peak inside the range. Z stays within the stage's limits. Tells the log its verdict.
    bool run(const FocusPlan& plan);

private:
    struct Sample {
        ocuva::Long z;
        double sharpness;
    };
    std::vector<ocuva::Long> positions(const FocusPlan& plan, ocuva::Long middle) const;
    std::vector<Sample> measure(const std::vector<ocuva::Long>& positions, int fraction);
    bool moveTo(ocuva::Long z);
    void awaitStanding();

    StageMechanics& m_stage;
    Clock& m_clock;
    std::function<ocuva::FramePtr()> m_expose;
    HostLog& m_log;
};

} // namespace simhost
