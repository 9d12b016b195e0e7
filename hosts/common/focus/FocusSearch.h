#pragma once
// The host's focus search: one sweep through Z with one frame at each height, after which Z is moved to
// the computed surface.

#include "hostlink/DisplayWindow.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/devices/Stage.h"
#include "hosts/common/focus/FocusPeak.h"
#include "hosts/common/focus/FocusPlan.h"
#include "hosts/common/services/HostLog.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace hosts {

enum class FocusVerdict {
    found,    ///< Z is at the focus
    edge,     ///< sharpest at an end of the range: Z is there, and another search continues from there
    flat,     ///< nothing to focus on; Z is back
    refused,  ///< the stage does not go, or not on; Z is back if the stage goes so far
    noFrames, ///< there is nothing to measure; Z is back
};

class FocusSearch {
public:
    /// expose takes a frame at the current stage position and returns when it is complete; null if there
    /// is none. All arguments outlive the search.
    FocusSearch(Stage& stage, Clock& clock, std::function<ocuva::FramePtr()> expose, HostLog& log);

    /// Waits for running moves and returns when Z is at rest. Heights are evenly spaced over the range
    /// around the current Z, as far as the limits of the stage allow; heights that round to the same unit
    /// are tried once. Logs its result in one line.
    FocusVerdict run(const FocusPlan& plan);

    /// The last move to a height comes from this far below it, or from the limit if that is nearer, because
    /// the sweep goes upwards as well: play of the Z drive up to this much does not shift the focus.
    static constexpr ocuva::Long approachUnits = 2;

    /// An axis that moves without getting anywhere for so long is stuck.
    static constexpr double stallMs = 5000.0;

private:
    std::vector<ocuva::Long> heights(const FocusPlan& plan, ocuva::Long middle) const;
    FocusVerdict settle(const FocusPeak& peak, ocuva::Long began);
    FocusVerdict giveUp(FocusVerdict verdict, ocuva::Long began, const std::string& why);
    bool moveTo(ocuva::Long z);
    bool arriveFromBelow(ocuva::Long z);
    bool awaitStanding(std::initializer_list<ocuva::Long> axes);
    bool isLimit(ocuva::Long z) const;

    Stage& m_stage;
    Clock& m_clock;
    std::function<ocuva::FramePtr()> m_expose;
    HostLog& m_log;
};

} // namespace hosts
