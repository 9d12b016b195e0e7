#pragma once
// The camera of a host, simulated or real, and who receives its frames.

#include "base/Types.h"
#include "hostlink/DisplayWindow.h"
#include "hosts/common/devices/CameraMode.h"
#include "hosts/common/picture/PictureControls.h"

namespace hosts {

/// The camera settings of the board.
struct CameraSettings {
    ocuva::Long cameraType = 0; ///< 1 to 4; 0 until one is chosen
    PictureControls
        controls; ///< references and gain; with automatic gain the camera follows the light itself
};

/// Receives the frames of a grab.
class FrameReceiver {
public:
    virtual ~FrameReceiver() = default;
    /// A whole frame of full size; an incomplete one is never delivered. Called on any thread, one call at a
    /// time.
    virtual void frameTaken(ocuva::FramePtr frame) = 0;
    /// Whether a window shows the delivered frames. Any thread.
    virtual bool isWatched() const = 0;
};

/// Commands come from one thread. Frames may be delivered on another.
class FrameSource {
public:
    virtual ~FrameSource() = default;

    /// Makes the camera ready for a grab and ends a running one. False if there is no camera.
    virtual bool open() = 0;
    /// Ends a grab. Nothing is delivered any more, not even a frame that was taken before.
    virtual void close() = 0;

    /// Takes effect with the next frame.
    virtual void apply(const CameraSettings& settings) = 0;
    /// The format of the next frame.
    virtual CameraMode mode() const = 0;

    /// Delivers one frame, or frames at the camera's rate until the stop; a grab that runs is replaced. The
    /// receiver outlives the grab and may be called until the next close. False when the camera does not
    /// start.
    virtual bool start(bool continuous, FrameReceiver& receiver) = 0;
    /// Returns when no further frame will be taken.
    virtual void stop() = 0;

    /// A frame whose exposure begins after this call, for a measurement; it is not delivered. Returns when
    /// the frame is complete, with or without a grab. Null if the camera gives none.
    virtual ocuva::FramePtr frameAfterNow() = 0;

    /// The current frame is needed: a source that delays rendering delivers the newest one now. Others do
    /// nothing.
    virtual void catchUp() {}
};

} // namespace hosts
