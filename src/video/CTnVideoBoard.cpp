#include "video/CTnVideoBoard.h"

namespace ocuva {

CTnVideoBoard::CTnVideoBoard(TnVideo& video)
    : m_video(video) {
    Initialize();
}

void CTnVideoBoard::Initialize() {
    m_bInitialized = m_video.TarnVideoBoardInit() != 0;
    m_bGrabbing = false;
    m_shutDown = false;
}

void CTnVideoBoard::Shutdown() {
    if (!m_bInitialized) {
        return;
    }
    if (m_bGrabbing) {
        Halt(nullptr);
    }
    m_video.TarnVideoBoardShutdown();
    m_shutDown = true;
}

void CTnVideoBoard::Grab(const CTnVideoImage* /*image*/, bool bFlag) {
    if (m_bGrabbing) {
        return;
    }
    constexpr Long show = 1;
    m_bGrabbing = m_video.TarnVideoBoardStartGrab(bFlag ? 1 : 0, show) != 0;
}

void CTnVideoBoard::Halt(const CTnVideoImage* /*image*/) {
    if (!m_bGrabbing) {
        return;
    }
    m_video.TarnVideoBoardHaltGrab();
    m_bGrabbing = false;
}

void CTnVideoBoard::GrabToggle(const CTnVideoImage* image) {
    if (m_bGrabbing) {
        Halt(image);
    } else {
        Grab(image, true);
    }
}

void CTnVideoBoard::BoardType(Long boardType) {
    m_video.TarnVideoSetCurrentBoardType(boardType);
    m_bInitialized = false;
}

Long CTnVideoBoard::BoardType() const { return m_video.TarnVideoGetCurrentBoardType(); }

} // namespace ocuva
