#include "video/CameraSetup.h"

#include "video/BoardSetup.h"
#include "video/DisplayHandOver.h"
#include "video/OwnChange.h"

#include <algorithm>

namespace ocuva {

CameraSetup::CameraSetup(TnVideo& video, CTnVideoBoard& board, CameraMainWindow& mainWindow,
                         CameraSetupView* view)
    : m_video(video)
    , m_board(board)
    , m_mainWindow(mainWindow)
    , m_view(view) {
    if (view != nullptr) {
        m_references.emplace(video, *view);
    }
}

void CameraSetup::refresh(bool checkCameraTypeToo) {
    if (checkCameraTypeToo) {
        checkCameraType();
    }
    if (m_board.BoardType() == boardWithDisplay) {
        constexpr Long zoomDivisor = 2; // mnuZoom overrides it if the image is not reduced
        handDisplayToBoard(m_video, m_mainWindow.displayHandle(), zoomDivisor,
                           m_mainWindow.normalZoomIsChecked());
        if (m_references) {
            m_references->showAll();
        }
    }
    m_mainWindow.enableAcq(m_board.IsInitialized());
}

void CameraSetup::checkCameraType() {
    if (m_view == nullptr) {
        return;
    }
    const Long cameraType = m_video.TarnVideoGetCurrentCameraType();
    if (cameraType >= 1 && cameraType <= cameraTypeCount) {
        const OwnChange checking(m_checking);
        m_view->checkOptCam(cameraType - 1);
    }
}

void CameraSetup::optCam_Click(Long index) {
    if (m_view == nullptr || m_checking) {
        return;
    }
    m_video.TarnVideoSetCurrentCameraType(index + 1);
    refresh(true);
}

void CameraSetup::sldReference_Change(CameraReference reference) {
    if (m_references) {
        m_references->sliderMoved(reference);
    }
}

void CameraSetup::txtReference_LostFocus(CameraReference reference) {
    if (m_references) {
        m_references->textLeft(reference);
    }
}

// Limited to the ranges, because a slider below 0 would request automatic gain.
Long CameraSetup::chosenGainRange() const {
    return std::clamp<Long>(m_view->sldGain(), 0, gainRangeCount - 1);
}

void CameraSetup::showGain() {
    if (m_view == nullptr) {
        return;
    }
    const bool automatic = m_view->chkAutoGain();
    const Long range = chosenGainRange();
    m_view->showSldGain(!automatic);
    m_view->showLblAutoGain(automatic);
    for (Long index = 0; index < gainRangeCount; ++index) {
        m_view->showLblGainRange(index, !automatic && index == range);
    }
}

void CameraSetup::gainChanged() {
    if (m_view == nullptr) {
        return;
    }
    showGain();
    Long gain = m_view->chkAutoGain() ? automaticGain : chosenGainRange();
    m_video.TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain);
}

} // namespace ocuva
