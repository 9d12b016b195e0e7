#include "video/BoardSetup.h"

namespace ocuva {

void BoardSetup::cmdInit_Click() {
    const Long boardType = boardTypeOfIndex(m_view.cbBoardIndex());
    storeVgaMode();
    m_board.BoardType(boardType);
    m_board.Initialize();
    showState();
}

void BoardSetup::cmdShut_Click() {
    m_board.Shutdown();
    showState();
}

void BoardSetup::VgaCheck_Click() {
    storeVgaMode();
    showCameraTypes();
}

void BoardSetup::cmdUnlock_Click() {
    if (m_board.isShutDown()) {
        showWhetherInUse(false);
        m_view.enableCmdUnlock(false);
    }
}

void BoardSetup::showState() {
    showWhetherInUse(m_board.IsInitialized());
    const bool leadsOn = m_board.IsInitialized() && m_board.isShutDown();
    m_view.showShutDown(leadsOn);
    m_view.enableCmdUnlock(leadsOn);
    showCameraTypes();
}

void BoardSetup::storeVgaMode() {
    constexpr Long checked = 1;
    m_settings.writeVgaMode(m_view.VgaCheck() == checked);
}

void BoardSetup::showWhetherInUse(bool inUse) {
    m_view.lockCbBoard(inUse);
    m_view.setShInit(inUse ? indicatorRed : indicatorGreen);
    m_view.enableCmdInit(!inUse);
    m_view.setShShut(inUse ? indicatorGreen : indicatorRed);
    m_view.enableCmdShut(inUse);
}

void BoardSetup::showCameraTypes() {
    const bool choosable = !m_settings.readVgaMode() && m_board.IsInitialized();
    for (Long index = 0; index < cameraTypeCount; ++index) {
        m_view.enableOptCam(index, choosable);
    }
}

} // namespace ocuva
