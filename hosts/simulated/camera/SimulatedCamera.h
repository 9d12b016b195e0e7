#pragma once
// The simulated camera: times of frames, the stage position at each of them, and faults.

#include "hosts/common/FieldOfView.h"
#include "hosts/common/board/AutomaticGain.h"
#include "hosts/common/board/FramePool.h"
#include "hosts/common/devices/FrameSource.h"
#include "hosts/simulated/camera/GrabTimer.h"
#include "hosts/simulated/camera/Shot.h"
#include "hosts/simulated/mechanics/StageMechanics.h"

#include <functional>
#include <mutex>
#include <optional>

namespace hosts::simulated {

/// What a camera is joined to; all of it outlives the camera.
struct CameraConnections {
    Clock& clock;
    const StageMechanics& stage;
    PictureSource& pictures;
    std::function<FieldSize()> fieldSeen = {}; ///< called for each frame, on the grab thread
    DeviceFaultsSource faults = {};            ///< called for each frame and each command
    double noise = 0.0;                        ///< of the pictures, grey levels, root mean square
};

/// Frames are rendered and delivered on the camera's own thread (with a virtual clock, on the thread that
/// advances it).
///
/// With a virtual clock, of all frames that are due in one advance only the last is rendered: at the end
/// of the advance if a window shows it, otherwise when it is needed. Frames have numbers and places as if
/// all had been rendered.
class SimulatedCamera final : public FrameSource {
public:
    explicit SimulatedCamera(CameraConnections connections);
    ~SimulatedCamera() override;

    bool open() override;
    void close() override;
    void apply(const CameraSettings& settings) override;
    CameraMode mode() const override;
    bool start(bool continuous, FrameReceiver& receiver) override;
    void stop() override;
    /// Takes as long as any other frame of the camera.
    ocuva::FramePtr frameAfterNow() override;
    void catchUp() override;

    /// Number of the last frame, whether it was made or not; a measuring exposure counts too.
    std::int64_t lastFrameNumber() const;

private:
    DeviceFaults faults() const { return present(m_connections.faults); }
    double periodMs() const;
    Exposure exposureNow() const;
    Shot shoot();
    void capture(); ///< one frame of the grab
    void warmUp();  ///< the wait for a grab's first frame begins
    void settle();  ///< the end of an advance of a virtual clock
    void make(Shot shot, int following);
    std::shared_ptr<ocuva::Frame> develop(Shot& shot, int following);
    bool isWatched() const { return m_receiver != nullptr && m_receiver->isWatched(); }

    CameraConnections m_connections;
    FramePool m_pool;
    FrameReceiver* m_receiver = nullptr; ///< changes only while no grab runs
    mutable std::mutex m_stateMutex;
    CameraSettings m_settings;
    std::optional<Shot> m_waiting; ///< the newest shot of a virtual clock, not made yet
    int m_passedOver = 0;          ///< shots before it that were never made
    AutomaticGain m_automaticGain;
    CameraMemory m_memory;
    std::int64_t m_frameNumber = 0;
    int m_framesOfGrab = 0;
    std::mutex m_exposureMutex; ///< one exposure at a time; taken before the state's
    Darkroom m_darkroom;
    GrabTimer m_timer; ///< last: its thread ends before anything that it uses
};

} // namespace hosts::simulated
