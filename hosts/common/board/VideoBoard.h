#pragma once
// The simulated frame grabber: board states, grabbing, the display hand-over and the current frame.

#include "hostlink/DisplayWindow.h"
#include "hostlink/tarn_abi.h"
#include "hosts/common/board/AutomaticGain.h"
#include "hosts/common/board/CameraReferences.h"
#include "hosts/common/board/FramePool.h"
#include "hosts/common/board/FrameSource.h"
#include "hosts/simulated/camera/GrabTimer.h"
#include "hosts/simulated/camera/Shot.h"
#include "hosts/simulated/mechanics/StageMechanics.h"

#include <functional>
#include <mutex>
#include <optional>

namespace hosts {

/// What the optics show: stage units across the whole picture, both > 0.
struct FieldSize {
    double width = 640.0;
    double height = 480.0;
};

/// What a board is joined to; all of it outlives the board.
struct BoardConnections {
    Clock& clock;
    const simulated::StageMechanics& stage;
    FrameSource& source;
    const ocuva::DisplayWindows* windows = nullptr; ///< null: nobody sees live video
    std::function<FieldSize()> fieldSeen = {};      ///< asked for each frame, on the grabbing thread
    DeviceFaultsSource faults = {};                 ///< asked for each frame and each command
    double noise = 0.0;                             ///< of the source, grey levels, root mean square
};

/// Commands come from one thread; frames are made and delivered on the board's own (on a virtual clock, on
/// the thread that advances it). A sink must not command the board from inside present.
///
/// On a virtual clock nobody looks while time passes, so of all frames that are due in one advance only the
/// last is made: at the end of the advance when a window shows it, else when somebody asks for it. Frames are
/// numbered and placed as if all had been made.
///
/// States: down -> init -> ready -> startGrab -> grabbing -> haltGrab -> ready -> shutdown -> down. Setting
/// the board type leaves the board down, but a grab that runs goes on until it is halted.
class VideoBoard {
public:
    explicit VideoBoard(BoardConnections connections);
    ~VideoBoard();

    /// Makes the board ready; a grab that runs ends, for a board that is set up afresh grabs nothing. False,
    /// and not ready, when the board refuses.
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

    /// Number of the last frame, whether it was made or not; a measuring exposure counts too.
    std::int64_t lastFrameNumber() const;

    /// Exposes one frame now, for a measurement: it is neither shown nor kept. Board and grab need not be
    /// ready. Null from a frozen camera.
    ocuva::FramePtr expose();

    /// The one buffer that there is: the current frame.
    static constexpr TarnLong currentBuffer = 0;
    static constexpr TarnLong automaticGain = -1;

private:
    struct State {
        bool ready = false;
        TarnLong boardType = 1;
        TarnLong cameraType = 0;
        TarnLong gain = automaticGain;
        TarnDisplayRequest display{0, -1, 0};
        CameraReferences references;
    };
    State state() const;
    simulated::CameraMode mode() const;
    DeviceFaults faults() const { return present(m_connections.faults); }
    simulated::Shot shoot();
    void capture();     ///< one frame of the grab
    void warmUp();      ///< the wait for a grab's first frame begins
    void settle();      ///< the end of an advance of a virtual clock
    void makeWaiting(); ///< makes the frame that waits, if one does
    void make(simulated::Shot shot, int following);
    std::shared_ptr<ocuva::Frame> develop(simulated::Shot& shot, int following);
    bool isWatched() const;
    void show(const ocuva::FramePtr& frame);

    BoardConnections m_connections;
    FramePool m_pool;
    mutable std::mutex m_stateMutex;
    State m_state;
    ocuva::FramePtr m_currentFrame;
    std::optional<simulated::Shot> m_waiting; ///< the newest shot of a virtual clock, not made yet
    int m_passedOver = 0;                     ///< shots before it that were never made
    AutomaticGain m_automaticGain;
    simulated::CameraMemory m_memory;
    std::int64_t m_frameNumber = 0;
    int m_framesOfGrab = 0;
    std::mutex m_exposureMutex; ///< one exposure at a time; taken before the state's
    simulated::Darkroom m_darkroom;
    simulated::GrabTimer m_timer; ///< last: its thread ends before anything that it uses
};

} // namespace hosts
