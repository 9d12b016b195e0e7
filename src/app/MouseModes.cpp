#include "app/MouseModes.h"

#include "base/Numbers.h"

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

// VGA mode: a click is a point of the picture whose position the calibration computes.
class PointOnPicture final : public MouseMode {
public:
    using MouseMode::MouseMode;
    bool isOn() const override {
        return context().vgaMouse && context().calibration.viewed().givesPositions();
    }
    void release(const MousePoint& at) override {
        context().calibration.clickPicture(at.x, at.y, at.display);
    }
};

// The calibration dialog waits for a point.
class PickCalibrationPoint final : public MouseMode {
public:
    using MouseMode::MouseMode;
    bool isOn() const override { return context().calibration.isSelecting(); }
    void release(const MousePoint& at) override {
        // The point belongs to the view of this moment, even if the host has moved the stage meanwhile.
        context().updateStagePos();
        context().calibration.takePoint(at.x, at.y, at.display);
    }
};

// A stored picture is shown: the stage need not be anywhere near it.
class LookAtStoredPicture final : public MouseMode {
public:
    using MouseMode::MouseMode;
    bool isOn() const override { return context().pictures.stored().has_value(); }
    void release(const MousePoint& /*at*/) override { context().pictures.refuseClick(); }
};

// The clicked point comes to the centre.
class ClickToCentre final : public MouseMode {
public:
    using MouseMode::MouseMode;
    bool isOn() const override { return true; }
    void release(const MousePoint& at) override {
        const TwipsRect& display = at.display;
        context().moveToPoint({at.x,
                               at.y,
                               {toLong(display.width / 2.0), toLong(display.height / 2.0)},
                               {display.width, display.height}});
    }
};

bool isOnDisplay(const MousePoint& at) {
    return at.x >= 0 && at.y >= 0 && at.x <= static_cast<Single>(at.display.width) &&
           at.y <= static_cast<Single>(at.display.height);
}

} // namespace

void MouseMode::move(const MousePoint& at) {
    const bool isStored = m_context.pictures.stored().has_value();
    if (isStored ? m_context.calibration.viewed().givesPositions() : m_context.vgaMouse) {
        m_context.calibration.showPointedPosition(at.x, at.y, at.display);
    }
}

void MouseMode::leave() {
    if (m_context.calibration.endPointing()) {
        m_context.updateStagePos();
    }
}

MouseModes::MouseModes(MouseModesContext context)
    : m_context(std::move(context))
    , m_modes{std::make_unique<PointOnPicture>(m_context), std::make_unique<PickCalibrationPoint>(m_context),
              std::make_unique<LookAtStoredPicture>(m_context), std::make_unique<ClickToCentre>(m_context)} {}

MouseMode& MouseModes::mode() {
    return **std::find_if(m_modes.begin(), m_modes.end(), [](const auto& mode) { return mode->isOn(); });
}

void MouseModes::press(Qt::MouseButton button, const MousePoint& at) {
    if (button == Qt::LeftButton) {
        mode().press(at);
    }
}

void MouseModes::move(const MousePoint& at) { mode().move(at); }

// A press that is dragged off the image is taken back.
void MouseModes::release(Qt::MouseButton button, const MousePoint& at) {
    if (button == Qt::LeftButton && isOnDisplay(at)) {
        m_context.guarded([this, &at] { mode().release(at); });
    }
}

void MouseModes::leave() { mode().leave(); }

} // namespace ocuva
