#include "video/BoardSetup.h"

namespace ocuva {

void BoardSetup::cmdInit_Click() {
    constexpr Long checked = 1;
    const Long boardType = boardTypeOfIndex(m_view.cbBoardIndex());
    m_settings.writeVgaMode(m_view.VgaCheck() == checked);
    m_board.BoardType(boardType);
    m_board.Initialize();
    showState();
}

void BoardSetup::cmdShut_Click() {
    m_board.Shutdown();
    showState();
}

void BoardSetup::showState() {
    const bool initialized = m_board.IsInitialized();
    m_view.lockCbBoard(initialized);
    m_view.setShInit(initialized ? indicatorRed : indicatorGreen);
    m_view.enableCmdInit(!initialized);
    m_view.setShShut(initialized ? indicatorGreen : indicatorRed);
    m_view.enableCmdShut(initialized);

    const bool choosable = !m_settings.readVgaMode() && initialized;
    for (Long index = 0; index < cameraTypeCount; ++index) {
        m_view.enableOptCam(index, choosable);
    }
}

} // namespace ocuva
