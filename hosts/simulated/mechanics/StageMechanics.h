#pragma once
// The simulated stage: three motor axes with limits, speed and acceleration.

#include "base/StagePosition.h"
#include "base/Types.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/devices/Stage.h"
#include "hosts/simulated/faults/DeviceFaults.h"
#include "hosts/simulated/mechanics/MotionProfile.h"
#include "hosts/simulated/mechanics/StageWear.h"

#include <array>
#include <mutex>
#include <optional>

namespace hosts::simulated {

/// One axis. Units are stage units (micrometres) and seconds.
struct AxisSettings {
    ocuva::Long lower = 0;     ///< limit, reached
    ocuva::Long upper = 0;     ///< limit, reached
    double speed = 0.0;        ///< units per second
    double acceleration = 0.0; ///< units per second squared
    ocuva::Long start = 0;     ///< position when the simulated host starts; pulled inside the limits
    ocuva::Long backlash = 0;  ///< how far the approach move goes away, 0 or more
};

/// The axes of the stage as it is built.
struct StageSettings {
    /// X, Y and Z: by default a stage of 50 mm in the plane and 2 mm in height.
    ///@{
    AxisSettings x{-25000, 25000, 8000.0, 40000.0, 0, 10};
    AxisSettings y{-25000, 25000, 8000.0, 40000.0, 0, 10};
    AxisSettings z{-1000, 1000, 200.0, 2000.0, 0, 10};
    ///@}
};

/// Targets are whole units (half to even), so an axis always stops at one. Any thread may call; positions
/// depend only on the clock.
class StageMechanics final : public Stage {
public:
    /// The clock must outlive the stage. Speeds and accelerations that are not above 0 become 1, limits the
    /// wrong way round are swapped.
    StageMechanics(Clock& clock, const StageSettings& settings, const StageWear& wear = {},
                   DeviceFaultsSource faults = {});

    /// Stage.
    ///@{
    bool loadAbsolute(ocuva::Long axis, double target) override;
    bool loadRelative(ocuva::Long axis, double distance) override;
    /// Down by the backlash distance, no further than the limit, and back up.
    bool loadBacklash(ocuva::Long axis) override;
    /// A moving axis turns to its new target without a jump in position or speed.
    bool start(ocuva::Long axis) override;
    /// Rounded half to even while the axis moves.
    bool position(ocuva::Long axis, ocuva::Long& position) const override;
    /// On a virtual clock each answer takes statusReadMs, so that a loop that does nothing but ask comes to
    /// its end, as it does on real hardware.
    bool isMoving(ocuva::Long axis, bool& moving) override;
    bool limits(ocuva::Long axis, ocuva::Long& lower, ocuva::Long& upper) const override;
    ///@}

    /// All three axes at one moment, between whole units: the positions of the motors.
    ocuva::ExactStagePosition exactPosition() const;
    /// One axis; 0 for an axis that there is not.
    double exactPosition(ocuva::Long axis) const;

    /// The true position of the sample: the motors, less play, vibration and drift.
    ocuva::ExactStagePosition truePosition() const;

    static constexpr double settlingHz = 12.0;   ///< how fast the sample swings after a stop
    static constexpr double statusReadMs = 0.05; ///< a status question over the controller's bus

private:
    struct Load {
        ocuva::Long target;
        std::optional<ocuva::Long> via; ///< first leg of the backlash move
    };
    struct Stall {
        double after;     ///< units of way
        double timeoutMs; ///< reported as moving so long after the stop
    };
    struct Axis {
        Axis(AxisSettings axisSettings, AxisWear axisWear);
        AxisSettings settings;
        AxisWear wear;
        MotionProfile motion;
        double carried;           ///< the sample's place when the motion began
        double busyUntilMs = 0.0; ///< reported as moving until then
        bool hasMoved = false;    ///< something may swing
        std::optional<Load> load;

        ocuva::Long boundFor() const;
        MotionLimits motionLimits() const { return {settings.speed, settings.acceleration}; }
        bool startAt(double nowMs, std::optional<Stall> stall);
        void go(double nowMs, const Load& to, std::optional<Stall> stall);
        double positionAt(double nowMs) const;
        double carriedAt(double nowMs) const { return motion.carriedAt(nowMs, carried, wear.play); }
    };
    Axis* find(ocuva::Long axis);
    const Axis* find(ocuva::Long axis) const;
    /// Calls the action, which answers a bool, for the axis or for all; true when one of them answered true.
    template <typename Action> bool forAxes(ocuva::Long axis, Action action);

    std::optional<Stall> stallOf(std::size_t index, StageFault fault) const;
    double trueAt(std::size_t index, double nowMs) const;
    bool isRefusing() const { return present(m_faults).stage == StageFault::refusing; }
    /// Applies the second controller's moves up to now; called before the axes are read.
    void catchUp(double nowMs) const;

    Clock& m_clock;
    StageWear m_wear;
    DeviceFaultsSource m_faults;
    double m_beganMs;
    mutable std::mutex m_mutex;
    mutable std::array<Axis, 3> m_axes; // moves of the second controller are computed when they are needed
    mutable double m_otherControllerDueMs;
    mutable bool m_otherControllerGoesUp = true;
};

} // namespace hosts::simulated
