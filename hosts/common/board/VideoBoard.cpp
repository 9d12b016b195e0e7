#include "hosts/common/board/VideoBoard.h"

#include "hosts/common/board/PictureReduction.h"

#include <utility>

namespace hosts {

VideoBoard::VideoBoard(FrameSource& source, const ocuva::DisplayWindows* windows)
    : m_source(source)
    , m_windows(windows) {
    applySettings();
}

VideoBoard::~VideoBoard() { m_source.close(); }

VideoBoard::State VideoBoard::state() const {
    const std::lock_guard lock(m_stateMutex);
    return m_state;
}

// Not under the lock: the source may be delivering a frame.
void VideoBoard::applySettings() {
    const State now = state();
    const CameraReferences& references = now.references;
    m_source.apply({now.cameraType,
                    {references.contrast(), references.brightness(), references.hue(),
                     references.saturation(), now.gain}});
}

bool VideoBoard::init() {
    const bool comesUp = m_source.open();
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = comesUp;
    return comesUp;
}

void VideoBoard::shutdown() {
    m_source.close();
    const std::lock_guard lock(m_stateMutex);
    m_state.ready = false;
    m_currentFrame.reset();
}

bool VideoBoard::isReady() const { return state().ready; }

bool VideoBoard::startGrab(bool continuous) { return isReady() && m_source.start(continuous, *this); }

void VideoBoard::haltGrab() { m_source.stop(); }

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
    {
        const std::lock_guard lock(m_stateMutex);
        m_state.cameraType = cameraType;
    }
    applySettings();
    return true;
}

TarnLong VideoBoard::cameraType() const { return state().cameraType; }

void VideoBoard::setDisplay(const TarnDisplayRequest& request) {
    const std::lock_guard lock(m_stateMutex);
    m_state.display = request;
}

bool VideoBoard::setGain(TarnLong gain) {
    if (gain < PictureControls::automaticGain || gain > 4) {
        return false;
    }
    {
        const std::lock_guard lock(m_stateMutex);
        m_state.gain = gain;
    }
    applySettings();
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
    bool taken = false;
    {
        const std::lock_guard lock(m_stateMutex);
        taken = m_state.references.set(group, first, second);
    }
    applySettings();
    return taken;
}

bool VideoBoard::references(TarnLong group, double& first, double& second) const {
    return state().references.get(group, first, second);
}

ocuva::FramePtr VideoBoard::currentFrame() {
    m_source.catchUp();
    const std::lock_guard lock(m_stateMutex);
    return m_currentFrame;
}

void VideoBoard::frameTaken(ocuva::FramePtr frame) {
    {
        const std::lock_guard lock(m_stateMutex);
        m_currentFrame = frame;
    }
    show(frame);
}

bool VideoBoard::isWatched() const {
    const State now = state();
    return m_windows != nullptr && now.boardType == 1 && now.display.windowHandle != 0;
}

void VideoBoard::show(const ocuva::FramePtr& frame) {
    const State now = state();
    if (m_windows == nullptr || now.boardType != 1) {
        return;
    }
    const double ratio = m_windows->devicePixelRatio(now.display.windowHandle);
    const int reduction = displayReduction(now.display.zoom, now.display.fullSize != 0, ratio);
    if (reduction == 1) {
        m_windows->deliver(now.display.windowHandle, frame);
        return;
    }
    const std::shared_ptr<ocuva::Frame> small =
        m_reduced.take(reducedLength(frame->width, reduction), reducedLength(frame->height, reduction));
    small->number = frame->number;
    small->capturedMs = frame->capturedMs;
    reduce(*frame, reduction, *small);
    m_windows->deliver(now.display.windowHandle, small);
}

} // namespace hosts
