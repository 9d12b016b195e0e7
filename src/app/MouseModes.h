#pragma once
// The mouse on the image: one object for each mode, chosen by the state of the program at each event.

#include "app/PictureOnStage.h"
#include "app/Pictures.h"
#include "display/PointMove.h"

#include <array>
#include <functional>
#include <memory>

namespace ocuva {

/// A place of the pointer in twips on milDisp, and milDisp as it is then.
struct MousePoint {
    Single x = 0.0F;   ///< from the left edge
    Single y = 0.0F;   ///< from the top edge
    TwipsRect display; ///< milDisp
};

/// The surroundings of the modes; everything outlives them.
struct MouseModesContext {
    /// The objects whose state decides the mode, and which carry out its actions.
    ///@{
    PictureOnStage& calibration;
    Pictures& pictures;
    ///@}
    bool vgaMouse = false;                                     ///< as taken at the start
    std::function<void()> updateStagePos;                      ///< reads and shows the stage position
    std::function<void(const ClickOnImage&)> moveToPoint;      ///< brings a clicked point to another one
    std::function<void(const std::function<void()>&)> guarded; ///< runs a handler, reports its errors
};

/// One way of using the mouse. Each operation is called only while isOn() holds.
class MouseMode {
public:
    /// The context outlives it.
    explicit MouseMode(const MouseModesContext& context)
        : m_context(context) {}
    virtual ~MouseMode() = default;
    MouseMode(const MouseMode&) = delete;
    MouseMode& operator=(const MouseMode&) = delete;

    /// Whether the state of the program selects this mode. Makes no host call.
    virtual bool isOn() const = 0;

    /// The left button, pressed on the image.
    virtual void press(const MousePoint& /*at*/) {}
    /// The pointer moves over the image. Shows its stage position, if there is one to show.
    virtual void move(const MousePoint& at);
    /// The left button, released on the image. An error is reported to the operator.
    virtual void release(const MousePoint& at) = 0;
    /// The pointer leaves the image. Gives the position panels back to the stage.
    virtual void leave();

protected:
    /// As passed to the constructor.
    const MouseModesContext& context() const { return m_context; }

private:
    const MouseModesContext& m_context;
};

/// Sends each event to the first mode that is on.
class MouseModes {
public:
    /// See MouseModesContext.
    explicit MouseModes(MouseModesContext context);

    /// The events of milDisp. Other buttons than the left one do nothing; a release off the image takes the
    /// press back.
    ///@{
    void press(Qt::MouseButton button, const MousePoint& at);
    void move(const MousePoint& at);
    void release(Qt::MouseButton button, const MousePoint& at);
    void leave();
    ///@}

private:
    MouseMode& mode();

    MouseModesContext m_context;
    std::array<std::unique_ptr<MouseMode>, 4> m_modes; // the last one is always on
};

} // namespace ocuva
