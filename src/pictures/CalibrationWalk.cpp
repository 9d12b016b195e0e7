#include "pictures/CalibrationWalk.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

namespace ocuva {

namespace {

using State = CalibrationWalk::State;

constexpr std::array<std::pair<State, State>, 17> transitions{{
    {State::Idle, State::Picking},
    {State::Picking, State::Ready},
    {State::Picking, State::Idle},
    {State::Ready, State::Picking},
    {State::Ready, State::DrivingThere},
    {State::Ready, State::Idle},
    {State::DrivingThere, State::AtPoint},
    {State::DrivingThere, State::Left},
    {State::AtPoint, State::DrivingThere},
    {State::AtPoint, State::DrivingBack},
    {State::AtPoint, State::Left},
    {State::DrivingBack, State::Done},
    {State::DrivingBack, State::Idle},
    {State::DrivingBack, State::Left},
    {State::Done, State::Idle},
    {State::Left, State::DrivingBack},
    {State::Left, State::Idle},
}};

bool isNear(Long a, Long b) { return std::abs(std::int64_t{a} - b) <= sameViewUnits; }

bool sameView(const StagePosition& a, const StagePosition& b) { return isNear(a.x, b.x) && isNear(a.y, b.y); }

StagePosition less(const StagePosition& a, const StagePosition& b) {
    return {checkedSubtract(a.x, b.x), checkedSubtract(a.y, b.y), checkedSubtract(a.z, b.z)};
}

} // namespace

const char* nameOf(State state) {
    static constexpr std::array<const char*, 8> names{"Idle",    "Picking",     "Ready", "DrivingThere",
                                                      "AtPoint", "DrivingBack", "Done",  "Left"};
    return names.at(static_cast<std::size_t>(state));
}

void CalibrationWalk::refuse(State to) const {
    throw std::logic_error(std::string("The assistant cannot go from ") + nameOf(m_state) + " to " +
                           nameOf(to));
}

void CalibrationWalk::go(State to) {
    if (std::find(transitions.begin(), transitions.end(), std::pair(m_state, to)) == transitions.end()) {
        refuse(to);
    }
    m_state = to;
}

bool CalibrationWalk::waitsForEnter() const {
    return m_state == State::Ready || m_state == State::AtPoint || m_state == State::Left;
}

void CalibrationWalk::start(std::size_t count) {
    if (m_state != State::Idle) {
        refuse(State::Picking);
    }
    go(State::Picking);
    m_count = count;
    m_wasMoved = false;
    beginPicking();
}

void CalibrationWalk::beginPicking() {
    m_home = m_actions.position();
    m_point = 0;
    m_missed = false;
    m_picks.clear();
    m_targets.clear();
    m_readings.clear();
}

void CalibrationWalk::pick(const PicturePoint& at) {
    if (m_state != State::Picking) {
        refuse(State::Ready);
    }
    m_picks.push_back(at);
    m_point = m_picks.size();
    if (m_picks.size() == m_count) {
        m_point = 0;
        go(State::Ready);
    }
}

void CalibrationWalk::enter() {
    switch (m_state) {
    case State::Ready:
        if (!sameView(m_actions.position(), m_home)) {
            go(State::Picking);
            m_wasMoved = true;
            beginPicking();
            return;
        }
        for (const PicturePoint& pick : m_picks) {
            const StagePosition offset = m_actions.offsetTo(pick);
            m_targets.push_back({checkedAdd(m_home.x, offset.x), checkedAdd(m_home.y, offset.y), m_home.z});
        }
        driveToPoint(0);
        break;
    case State::AtPoint:
        if (m_missed && sameView(m_actions.position(), m_place)) {
            driveToPoint(m_point);
        } else {
            readPoint();
        }
        break;
    case State::Left:
        go(State::DrivingBack);
        driveTo(m_home);
        break;
    default:
        refuse(State::DrivingThere);
    }
}

void CalibrationWalk::readPoint() {
    m_readings.push_back(m_actions.position());
    if (m_readings.size() < m_count) {
        driveToPoint(m_readings.size());
        return;
    }
    go(State::DrivingBack);
    driveTo(m_home);
}

void CalibrationWalk::driveToPoint(std::size_t point) {
    go(State::DrivingThere);
    m_point = point;
    // The focus of the last point is nearer to that of the next than the one at home.
    StagePosition target = m_targets.at(point);
    target.z = m_actions.position().z;
    driveTo(target);
}

void CalibrationWalk::driveTo(const StagePosition& target) {
    m_target = target;
    m_actions.driveBy(less(target, m_actions.position()));
}

void CalibrationWalk::arrived() {
    const bool isThere = m_state == State::DrivingThere;
    if (!isThere && m_state != State::DrivingBack && m_state != State::Left) {
        return;
    }
    m_place = m_actions.position();
    m_missed = !sameView(m_place, m_target) || (!isThere && !isNear(m_place.z, m_target.z));
    if (isThere) {
        if (!m_missed) {
            m_actions.focus();
            m_place = m_actions.position();
        }
        go(State::AtPoint);
    } else if (m_state == State::DrivingBack) {
        go(m_readings.size() == m_count ? State::Done : State::Idle);
    }
}

void CalibrationWalk::leave() {
    switch (m_state) {
    case State::DrivingThere:
    case State::AtPoint:
    case State::DrivingBack:
        m_place = m_actions.position();
        go(State::Left);
        break;
    case State::Idle:
        break;
    default:
        go(State::Idle);
    }
}

} // namespace ocuva
