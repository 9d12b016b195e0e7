#pragma once
// The walk of the assistant: three points are picked on the image, then the stage goes to each of them, is
// read there, and comes back.
//
//   Idle --start--> Picking --last pick--> Ready --enter--> DrivingThere --arrived--> AtPoint
//                      ^                     |                    ^                      |
//                      +-- enter, but moved -+                    +-- enter, more points +
//                                                                                        | enter, last point
//                                  Done <--arrived, all read-- DrivingBack <-------------+
//
// leave: Picking, Ready and Done end in Idle; DrivingThere, AtPoint and DrivingBack in Left, where the stage
// stays where it is. From Left, enter drives back and leave ends.

#include "pictures/Calibration.h"
#include "pictures/PicturePoint.h"

#include <vector>

namespace ocuva {

/// The walk's actions on the instrument; called only by enter() and by the arrival after it.
class CalibrationWalkActions {
public:
    virtual ~CalibrationWalkActions() = default;
    /// The current stage position, stage units.
    virtual StagePosition position() = 0;
    /// The distance from the current position to the one that brings the point to the image's centre, by
    /// the scale of the set-up. Z is 0.
    virtual StagePosition offsetTo(const PicturePoint& point) = 0;
    /// Starts a move by so much and watches it; its end is reported by arrived().
    virtual void driveBy(const StagePosition& distance) = 0;
    /// Searches the focus and returns when that has ended.
    virtual void focus() = 0;
};

/// One walk at a time. Each move follows from enter(), an action of the operator.
class CalibrationWalk {
public:
    /// As drawn above.
    enum class State { Idle, Picking, Ready, DrivingThere, AtPoint, DrivingBack, Done, Left };

    /// The actions outlive it.
    explicit CalibrationWalk(CalibrationWalkActions& actions)
        : m_actions(actions) {}

    /// Begins a walk over two or three points; it starts and ends at the current position.
    void start(std::size_t count);
    /// The next point was picked.
    void pick(const PicturePoint& at);
    /// The operator continues. In Ready, if the stage is no longer where the walk began, the points have
    /// to be picked again. At a point that the stage has not reached, the move is repeated.
    void enter();
    /// The watched move has ended. Focuses at a point that was reached; of no account in other states.
    void arrived();
    /// The operator ends the walk. A running move continues to its end; none is started.
    void leave();

    /// The state, and whether it is one in which enter() has something to do.
    ///@{
    State state() const { return m_state; }
    bool waitsForEnter() const;
    bool isUnderWay() const { return m_state != State::Idle; }
    ///@}

    /// The point, from 0, that is picked or driven to next or stood at.
    std::size_t point() const { return m_point; }
    /// How many the walk has.
    std::size_t count() const { return m_count; }
    /// Start and end position of the walk.
    const StagePosition& home() const { return m_home; }
    /// The stage position at the last arrival.
    const StagePosition& place() const { return m_place; }
    /// Whether the last move did not reach its target.
    bool hasMissed() const { return m_missed; }
    /// Whether the points had to be picked again because the stage was moved.
    bool wasMoved() const { return m_wasMoved; }
    /// The stage positions read so far, in the order of the points.
    const std::vector<StagePosition>& readings() const { return m_readings; }

private:
    [[noreturn]] void refuse(State to) const;
    void go(State to);
    void beginPicking();
    void driveTo(const StagePosition& target);
    void driveToPoint(std::size_t point);
    void readPoint();

    CalibrationWalkActions& m_actions;
    State m_state = State::Idle;
    std::size_t m_count = 3;
    std::size_t m_point = 0;
    StagePosition m_home;
    StagePosition m_target;
    StagePosition m_place;
    bool m_missed = false;
    bool m_wasMoved = false;
    std::vector<PicturePoint> m_picks;
    std::vector<StagePosition> m_targets; // of the points, fixed while the stage is at home
    std::vector<StagePosition> m_readings;
};

/// The state's name as the diagram has it.
const char* nameOf(CalibrationWalk::State state);

} // namespace ocuva
