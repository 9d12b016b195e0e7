#include "hosts/simulated/camera/SimulatedCamera.h"

#include <algorithm>
#include <utility>

namespace hosts::simulated {

SimulatedCamera::SimulatedCamera(CameraConnections connections)
    : m_connections(std::move(connections))
    , m_darkroom(m_connections.pictures, m_connections.noise)
    , m_timer(
          m_connections.clock, [this] { return periodMs(); }, [this] { capture(); }, [this] { settle(); },
          [this] { warmUp(); }) {}

SimulatedCamera::~SimulatedCamera() { m_timer.stop(); }

bool SimulatedCamera::open() {
    m_timer.stop();
    return !faults().boardRefuses;
}

void SimulatedCamera::close() {
    m_timer.stop();
    m_receiver = nullptr;
    const std::lock_guard lock(m_stateMutex);
    m_waiting.reset();
    m_passedOver = 0;
}

void SimulatedCamera::apply(const CameraSettings& settings) {
    const std::lock_guard lock(m_stateMutex);
    m_settings = settings;
}

CameraMode SimulatedCamera::mode() const {
    const std::lock_guard lock(m_stateMutex);
    return cameraMode(m_settings.cameraType);
}

double SimulatedCamera::periodMs() const { return 1000.0 / std::max(mode().framesPerSecond, 1.0); }

bool SimulatedCamera::start(bool continuous, FrameReceiver& receiver) {
    m_timer.stop();
    m_receiver = &receiver;
    {
        const std::lock_guard lock(m_stateMutex);
        m_framesOfGrab = 0;
    }
    m_timer.start(continuous);
    return true;
}

void SimulatedCamera::stop() { m_timer.stop(); }

std::int64_t SimulatedCamera::lastFrameNumber() const {
    const std::lock_guard lock(m_stateMutex);
    return m_frameNumber;
}

Exposure SimulatedCamera::exposureNow() const {
    const ocuva::ExactStagePosition at = m_connections.stage.truePosition();
    const FieldSize field = m_connections.fieldSeen ? m_connections.fieldSeen() : FieldSize();
    return {mode(), at.x, at.y, at.z, field.width, field.height, 0};
}

// Everything that decides the picture is taken down now; the pixels can wait.
Shot SimulatedCamera::shoot() {
    const DeviceFaults broken = faults();
    const Exposure exposure = exposureNow();
    const double nowMs = m_connections.clock.nowMs();
    const std::lock_guard lock(m_stateMutex);
    Shot shot;
    shot.number = ++m_frameNumber;
    shot.capturedMs = nowMs;
    shot.lamp = broken.lamp;
    shot.exposure = exposure;
    shot.exposure.mode = cameraMode(m_settings.cameraType);
    shot.exposure.frameNumber = static_cast<std::uint64_t>(shot.number);
    shot.controls = m_settings.controls;
    m_memory.spoil(shot, broken.camera);
    return shot;
}

// Automatic gain follows the light from frame to frame, including frames that were not rendered.
std::shared_ptr<ocuva::Frame> SimulatedCamera::develop(Shot& shot, int following) {
    const std::lock_guard lock(m_exposureMutex);
    const bool automatic = shot.controls.gain == PictureControls::automaticGain;
    std::shared_ptr<ocuva::Frame> frame = m_pool.take(shot.exposure.mode.width, shot.exposure.mode.height);
    for (bool again = true; again;) {
        if (automatic) {
            shot.controls.gain = m_automaticGain.range();
        }
        m_darkroom.develop(shot, *frame);
        const int used = automatic ? m_automaticGain.follow(*frame, shot.controls, following) : 0;
        following -= used;
        again = used > 0 && following > 0;
    }
    return frame;
}

ocuva::FramePtr SimulatedCamera::frameAfterNow() {
    const double endMs = m_connections.clock.nowMs() + periodMs();
    const DeviceFaults broken = faults();
    std::shared_ptr<ocuva::Frame> frame;
    if (broken.camera != CameraFault::frozen) {
        Shot shot = shoot();
        frame = develop(shot, 0);
        if (broken.focusFindsNothing) {
            std::fill(frame->pixels.begin(), frame->pixels.end(), 0xff808080U);
        }
    }
    m_connections.clock.spend(endMs - m_connections.clock.nowMs());
    return frame;
}

// Runs on the grab thread, where an exception (out of memory for a frame) would end the program. The frame
// is lost as on a slow bus; the next one may succeed.
void SimulatedCamera::capture() {
    try {
        const DeviceFaults broken = faults();
        const int most = broken.grabStopsAfter;
        if (broken.camera == CameraFault::frozen) {
            return;
        }
        {
            const std::lock_guard lock(m_stateMutex);
            if (most > 0 && m_framesOfGrab >= most) {
                return;
            }
            ++m_framesOfGrab;
        }
        Shot shot = shoot();
        if (!m_connections.clock.isVirtual()) {
            make(shot, 1);
            return;
        }
        const std::lock_guard lock(m_stateMutex);
        m_passedOver += m_waiting ? 1 : 0;
        m_waiting = shot;
    } catch (...) {
        return;
    }
}

// The first picture of a place takes many times as long as the next; its ground is painted while the first
// frame is still being exposed.
void SimulatedCamera::warmUp() {
    try {
        if (!isWatched()) {
            return;
        }
        const Exposure exposure = exposureNow();
        const std::lock_guard lock(m_exposureMutex);
        const auto scrap = m_pool.take(exposure.mode.width, exposure.mode.height);
        m_connections.pictures.render(exposure, {}, scrap->pixels.data());
    } catch (...) {
        return; // rendering the frame will report it
    }
}

void SimulatedCamera::settle() {
    if (isWatched()) {
        catchUp();
    }
}

void SimulatedCamera::catchUp() {
    std::optional<Shot> shot;
    int passedOver = 0;
    {
        const std::lock_guard lock(m_stateMutex);
        std::swap(shot, m_waiting);
        std::swap(passedOver, m_passedOver);
    }
    if (!shot) {
        return;
    }
    try {
        make(*shot, passedOver + 1);
    } catch (...) {
        return;
    }
}

void SimulatedCamera::make(Shot shot, int following) {
    const ocuva::FramePtr frame = develop(shot, following);
    if (m_receiver != nullptr) {
        m_receiver->frameTaken(frame);
    }
}

} // namespace hosts::simulated
