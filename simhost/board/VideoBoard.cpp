#include "simhost/board/VideoBoard.h"

#include "simhost/board/PictureReduction.h"

#include <algorithm>
#include <utility>

namespace simhost {

VideoBoard::VideoBoard(BoardConnections connections)
    : m_connections(std::move(connections))
    , m_timer(
          m_connections.clock, [this] { return 1000.0 / std::max(mode().framesPerSecond, 1.0); },
          [this] { capture(); }) {}

VideoBoard::~VideoBoard() { m_timer.stop(); }

VideoBoard::State VideoBoard::state() const {
    const std::lock_guard lock(m_stateMutex);
    return m_state;
}

CameraMode VideoBoard::mode() const { return cameraMode(cameraType()); }

PictureControls VideoBoard::controls(const State& state) {
    return {state.references.contrast(), state.references.brightness(), state.references.hue(),
            state.references.saturation(), state.gain};
}

bool VideoBoard::init() {
    m_timer.stop();
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = true;
    return true;
}

void VideoBoard::shutdown() {
    m_timer.stop();
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = false;
    m_currentFrame.reset();
}

bool VideoBoard::isReady() const { return state().ready; }

bool VideoBoard::startGrab(bool continuous) {
    if (!isReady()) {
        return false;
    }
    m_timer.start(continuous);
    return true;
}

void VideoBoard::haltGrab() { m_timer.stop(); }

bool VideoBoard::setBoardType(TarnLong boardType) {
    if (!noteBoardType(boardType)) {
        return false;
    }
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = false;
    return true;
}

bool VideoBoard::noteBoardType(TarnLong boardType) {
    if (boardType != 0 && boardType != 1) {
        return false;
    }
    const std::lock_guard lock(m_stateMutex);
    m_state.boardType = boardType;
    return true;
}

TarnLong VideoBoard::boardType() const { return state().boardType; }

bool VideoBoard::setCameraType(TarnLong cameraType) {
    if (cameraType < 1 || cameraType > 4) {
        return false;
    }
    const std::lock_guard lock(m_stateMutex);
    m_state.cameraType = cameraType;
    return true;
}

TarnLong VideoBoard::cameraType() const { return state().cameraType; }

void VideoBoard::setDisplay(const TarnDisplayRequest& request) {
    const std::lock_guard lock(m_stateMutex);
    m_state.display = request;
}

bool VideoBoard::setGain(TarnLong gain) {
    if (gain < -1 || gain > 4) {
        return false;
    }
    const std::lock_guard lock(m_stateMutex);
    m_state.gain = gain;
    return true;
}

TarnLong VideoBoard::gain() const { return state().gain; }

TarnLong VideoBoard::allocateBuffer() const { return isReady() ? currentBuffer : TARN_BUFFER_NONE; }

bool VideoBoard::describeBuffer(TarnLong handle, TarnBufferDesc& descriptor) const {
    if (handle != currentBuffer || descriptor.recordSize != TarnLong{sizeof(TarnBufferDesc)} || !isReady()) {
        return false;
    }
    const CameraMode camera = mode();
    descriptor.width = camera.width;
    descriptor.height = camera.height;
    descriptor.bitsPerSample = 8;
    descriptor.bands = camera.colour ? 3 : 1;
    return true;
}

bool VideoBoard::setReferences(TarnLong group, double first, double second) {
    const std::lock_guard lock(m_stateMutex);
    return m_state.references.set(group, first, second);
}

bool VideoBoard::references(TarnLong group, double& first, double& second) const {
    return state().references.get(group, first, second);
}

ocuva::FramePtr VideoBoard::currentFrame() const {
    const std::lock_guard lock(m_stateMutex);
    return m_currentFrame;
}

ocuva::FramePtr VideoBoard::expose() {
    const std::lock_guard lock(m_exposureMutex);
    const State now = state();
    const StagePoint at = m_connections.stage.exactPosition();
    const FieldSize field = m_connections.fieldSeen ? m_connections.fieldSeen() : FieldSize();
    const CameraMode camera = cameraMode(now.cameraType);
    const std::shared_ptr<ocuva::Frame> frame = m_pool.take(camera.width, camera.height);
    frame->number = ++m_frameNumber;
    frame->capturedMs = m_connections.clock.nowMs();
    const Exposure exposure{
        camera, at.x, at.y, at.z, field.width, field.height, static_cast<std::uint64_t>(m_frameNumber)};
    m_connections.source.render(exposure, controls(now), frame->pixels.data());
    return frame;
}

// Runs on the grabbing thread, where an exception (no memory left for a frame) would end the program. The
// frame is lost as on a bus that is too slow; the next may succeed.
void VideoBoard::capture() {
    try {
        const ocuva::FramePtr frame = expose();
        {
            const std::lock_guard lock(m_stateMutex);
            m_currentFrame = frame;
        }
        show(frame);
    } catch (...) {
        return;
    }
}

void VideoBoard::show(const ocuva::FramePtr& frame) {
    const State now = state();
    if (m_connections.windows == nullptr || now.boardType != 1) {
        return;
    }
    const double ratio = m_connections.windows->devicePixelRatio(now.display.windowHandle);
    const int reduction = displayReduction(now.display.zoom, now.display.fullSize != 0, ratio);
    if (reduction == 1) {
        m_connections.windows->deliver(now.display.windowHandle, frame);
        return;
    }
    const std::shared_ptr<ocuva::Frame> small =
        m_pool.take(reducedLength(frame->width, reduction), reducedLength(frame->height, reduction));
    small->number = frame->number;
    small->capturedMs = frame->capturedMs;
    reduce(*frame, reduction, *small);
    m_connections.windows->deliver(now.display.windowHandle, small);
}

} // namespace simhost
