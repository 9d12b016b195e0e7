#include "app/modInter.h"

namespace ocuva {

modInter::modInter(const StartContext& context)
    : m_context(context) {}

modInter::~modInter() = default;

bool modInter::leaveItToAnotherCopy() {
    if (!m_context.anotherCopyIsRunning() || m_flags.clientMode) {
        return false;
    }
    // A copy that is still starting hears no message.
    if (!m_flags.serverMode && m_context.otherCopyIsUp && !m_context.otherCopyIsUp()) {
        return false;
    }
    wakeRunningCopy(m_flags, m_context.host.tn_ocuva());
    return true;
}

bool modInter::Main() {
    scanCommandLine(m_context.commandLine, m_flags);
    if (leaveItToAnotherCopy()) {
        return false;
    }

    m_frmSplash.emplace();
    if (!m_flags.serverMode) {
        m_frmSplash->showAndRepaint();
    }

    m_flags.startupFinished = false;
    const ViewOptions view = Settings(m_context.host.tn_reg()).readView();

    m_frmOcuva = std::make_unique<frmOcuva>(
        MainWindowContext{m_context.host, m_context.displayWindows, m_context.automation, m_flags,
                          *m_frmSplash, m_context.windowTitle, m_context.endProcess, m_context.minuteMs,
                          m_context.journal, m_context.report});
    const ToolbarImageLists& lists = m_frmOcuva->imageLists;
    const std::size_t item = imageListItem(view.LargeIcons);
    m_frmOcuva->tbMain->setImageLists(lists.ilTbImage[item], lists.ilTbHot[item], lists.ilTbDisabled[item]);

    m_frmOcuva->Load();
    m_frmOcuva->setUpToolbar();
    m_frmOcuva->initialiseCamera();

    if (!m_flags.serverMode) {
        m_frmOcuva->showAtStart();
        m_frmSplash->close();
    }
    m_frmSplash->EnableOkButton();
    m_flags.startupFinished = true;
    if (m_context.startedUp) {
        m_context.startedUp();
    }
    return true;
}

} // namespace ocuva
