#include "hosts/common/board/VideoBoard.h"

#include "hosts/common/board/PictureReduction.h"

#include <algorithm>
#include <utility>

namespace hosts {

using namespace simulated;

VideoBoard::VideoBoard(BoardConnections connections)
    : m_connections(std::move(connections))
    , m_darkroom(m_connections.source, m_connections.noise)
    , m_timer(
          m_connections.clock, [this] { return 1000.0 / std::max(mode().framesPerSecond, 1.0); },
          [this] { capture(); }, [this] { settle(); }, [this] { warmUp(); }) {}

VideoBoard::~VideoBoard() { m_timer.stop(); }

VideoBoard::State VideoBoard::state() const {
    const std::lock_guard lock(m_stateMutex);
    return m_state;
}

CameraMode VideoBoard::mode() const { return cameraMode(cameraType()); }

bool VideoBoard::init() {
    m_timer.stop();
    const bool comesUp = !faults().boardRefuses;
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = comesUp;
    return comesUp;
}

void VideoBoard::shutdown() {
    m_timer.stop();
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = false;
    m_currentFrame.reset();
    m_waiting.reset();
    m_passedOver = 0;
}

bool VideoBoard::isReady() const { return state().ready; }

bool VideoBoard::startGrab(bool continuous) {
    if (!isReady()) {
        return false;
    }
    m_timer.stop();
    {
        const std::lock_guard lock(m_stateMutex);
        m_framesOfGrab = 0;
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
    if (gain < automaticGain || gain > 4) {
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

ocuva::FramePtr VideoBoard::currentFrame() {
    makeWaiting();
    const std::lock_guard lock(m_stateMutex);
    return m_currentFrame;
}

std::int64_t VideoBoard::lastFrameNumber() const {
    const std::lock_guard lock(m_stateMutex);
    return m_frameNumber;
}

// Everything that decides the picture is taken down now; the pixels can wait.
Shot VideoBoard::shoot() {
    const DeviceFaults broken = faults();
    const StagePoint at = m_connections.stage.truePosition();
    const FieldSize field = m_connections.fieldSeen ? m_connections.fieldSeen() : FieldSize();
    const double nowMs = m_connections.clock.nowMs();
    const std::lock_guard lock(m_stateMutex);
    const CameraReferences& references = m_state.references;
    Shot shot;
    shot.number = ++m_frameNumber;
    shot.capturedMs = nowMs;
    shot.lamp = broken.lamp;
    shot.exposure = {cameraMode(m_state.cameraType),         at.x, at.y, at.z, field.width, field.height,
                     static_cast<std::uint64_t>(shot.number)};
    shot.controls = {references.contrast(), references.brightness(), references.hue(),
                     references.saturation(), m_state.gain};
    m_memory.spoil(shot, broken.camera);
    return shot;
}

// An automatic gain follows the light from frame to frame, also over the frames that nobody saw.
std::shared_ptr<ocuva::Frame> VideoBoard::develop(Shot& shot, int following) {
    const std::lock_guard lock(m_exposureMutex);
    const bool automatic = shot.controls.gain == automaticGain;
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

ocuva::FramePtr VideoBoard::expose() {
    if (faults().camera == CameraFault::frozen) {
        return nullptr;
    }
    Shot shot = shoot();
    std::shared_ptr<ocuva::Frame> frame = develop(shot, 0);
    if (faults().focusFindsNothing) {
        std::fill(frame->pixels.begin(), frame->pixels.end(), 0xff808080U);
    }
    return frame;
}

// Runs on the grabbing thread, where an exception (no memory left for a frame) would end the program. The
// frame is lost as on a bus that is too slow; the next may succeed.
void VideoBoard::capture() {
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
void VideoBoard::warmUp() {
    try {
        if (!isWatched()) {
            return;
        }
        const StagePoint at = m_connections.stage.truePosition();
        const FieldSize field = m_connections.fieldSeen ? m_connections.fieldSeen() : FieldSize();
        const Exposure exposure{mode(), at.x, at.y, at.z, field.width, field.height, 0};
        const std::lock_guard lock(m_exposureMutex);
        const auto scrap = m_pool.take(exposure.mode.width, exposure.mode.height);
        m_connections.source.render(exposure, {}, scrap->pixels.data());
    } catch (...) {
        return; // the frame itself will tell
    }
}

void VideoBoard::settle() {
    if (isWatched()) {
        makeWaiting();
    }
}

void VideoBoard::makeWaiting() {
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

void VideoBoard::make(Shot shot, int following) {
    const ocuva::FramePtr frame = develop(shot, following);
    {
        const std::lock_guard lock(m_stateMutex);
        m_currentFrame = frame;
    }
    show(frame);
}

bool VideoBoard::isWatched() const {
    const State now = state();
    return m_connections.windows != nullptr && now.boardType == 1 && now.display.windowHandle != 0;
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

} // namespace hosts
