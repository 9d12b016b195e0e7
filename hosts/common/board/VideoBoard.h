#pragma once
// The frame grabber: board states, grabbing, the display hand-over and the current frame.

#include "hostlink/DisplayWindow.h"
#include "hostlink/tarn_abi.h"
#include "hosts/common/board/CameraReferences.h"
#include "hosts/common/board/FramePool.h"
#include "hosts/common/devices/FrameSource.h"

#include <mutex>

namespace hosts {

/// Commands come from one thread; frames are received and passed on, on the source's. A sink must not command
/// the board from inside present.
///
/// States: down -> init -> ready -> startGrab -> grabbing -> haltGrab -> ready -> shutdown -> down. Setting
/// the board type leaves the board down, but a grab that runs goes on until it is halted.
class VideoBoard final : private FrameReceiver {
public:
    /// Both outlive the board. windows: null if there is no live video.
    VideoBoard(FrameSource& source, const ocuva::DisplayWindows* windows);
    ~VideoBoard() override;
    VideoBoard(const VideoBoard&) = delete;
    VideoBoard& operator=(const VideoBoard&) = delete;

    /// Makes the board ready and ends a running grab. False, and not ready, if the source refuses.
    bool init();
    /// Ends the grab, forgets the current frame.
    void shutdown();
    bool isReady() const;

    /// One frame, or frames at the camera's rate until the halt; a grab that runs is replaced. False when the
    /// board is not ready.
    bool startGrab(bool continuous);
    /// Returns when no frame will be delivered any more; the current frame stays.
    void haltGrab();

    /// Types 0 and 1; false, and nothing changed, for others. Type 1 shows live video in the display window,
    /// type 0 grabs without showing.
    bool setBoardType(TarnLong boardType);
    /// The same, but the board stays as ready as it is: the host's note of which board is there.
    bool noteBoardType(TarnLong boardType);
    TarnLong boardType() const;

    /// Types 1 to 4; 0 until one is chosen. The next frame has the new format.
    bool setCameraType(TarnLong cameraType);
    TarnLong cameraType() const;
    /// The format of the next frame.
    CameraMode mode() const { return m_source.mode(); }

    void setDisplay(const TarnDisplayRequest& request);

    /// 0 to 4, or -1 for automatic.
    bool setGain(TarnLong gain);
    TarnLong gain() const;

    /// TARN_BUFFER_NONE when the board is not ready.
    TarnLong allocateBuffer() const;
    /// Fills all but recordSize; false, and nothing changed, for another handle, a record of another size, or
    /// a board that is not ready.
    bool describeBuffer(TarnLong handle, TarnBufferDesc& descriptor) const;

    bool setReferences(TarnLong group, double first, double second);
    bool references(TarnLong group, double& first, double& second) const;

    /// The last frame grabbed, full size; null before the first.
    ocuva::FramePtr currentFrame();

    /// A frame whose exposure begins after this call, for a measurement; it is neither shown nor kept.
    /// Board and grab need not be ready. Null if the source gives none.
    ocuva::FramePtr frameAfterNow() { return m_source.frameAfterNow(); }

    /// The one buffer that there is: the current frame.
    static constexpr TarnLong currentBuffer = 0;

private:
    struct State {
        bool ready = false;
        TarnLong boardType = 1;
        TarnLong cameraType = 0;
        TarnLong gain = PictureControls::automaticGain;
        TarnDisplayRequest display{0, -1, 0};
        CameraReferences references;
    };
    State state() const;
    void applySettings();
    void frameTaken(ocuva::FramePtr frame) override;
    bool isWatched() const override;
    void show(const ocuva::FramePtr& frame);

    FrameSource& m_source;
    const ocuva::DisplayWindows* m_windows;
    FramePool m_reduced;
    mutable std::mutex m_stateMutex;
    State m_state;
    ocuva::FramePtr m_currentFrame;
};

} // namespace hosts
