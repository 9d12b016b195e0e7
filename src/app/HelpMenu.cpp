#include "app/HelpMenu.h"

#include "app/Commands.h"
#include "app/help/WhatsThis.h"

#include <QWhatsThis>

#include <utility>

namespace ocuva {

HelpMenu::HelpMenu(const QDir& manual, PackReportContext report)
    : m_window(report.window)
    , m_manual(manual)
    , m_report(std::move(report)) {}

void HelpMenu::openManual() {
    if (m_manualWindow == nullptr) {
        m_manualWindow = std::make_unique<HelpWindow>(m_manual, commandKeys(), &m_window);
    }
    m_manualWindow->show();
    m_manualWindow->raise();
    m_manualWindow->activateWindow();
}

void HelpMenu::openKeys() {
    openManual();
    m_manualWindow->showChapter(keysTitle());
}

void HelpMenu::explain() {
    // Buttons of a toolbar that was rearranged are new.
    explainControls(m_window);
    explainCommands(m_window);
    QWhatsThis::enterWhatsThisMode();
}

void HelpMenu::unload() {
    if (m_manualWindow != nullptr) {
        m_manualWindow->close();
    }
}

} // namespace ocuva
