#include "app/HelpMenu.h"

#include "app/help/WhatsThis.h"

#include <QWhatsThis>

#include <utility>

namespace ocuva {

HelpMenu::HelpMenu(const QDir& manual, PackReportContext report)
    : m_window(report.window)
    , m_manual(manual)
    , m_report(std::move(report)) {}

void HelpMenu::run(Command command) {
    switch (command) {
    case Command::Manual:
        openManual();
        break;
    case Command::Keys:
        openManual();
        m_manualWindow->showChapter(keysTitle());
        break;
    case Command::WhatsThis:
        explain();
        break;
    case Command::PackReport:
        m_report.run();
        break;
    default:
        break;
    }
}

void HelpMenu::openManual() {
    if (m_manualWindow == nullptr) {
        m_manualWindow = std::make_unique<HelpWindow>(m_manual, MainMenu::keys(), &m_window);
    }
    m_manualWindow->show();
    m_manualWindow->raise();
    m_manualWindow->activateWindow();
}

void HelpMenu::explain() {
    // Buttons of a toolbar that was rearranged are new.
    explainControls(m_window);
    QWhatsThis::enterWhatsThisMode();
}

void HelpMenu::unload() {
    if (m_manualWindow != nullptr) {
        m_manualWindow->close();
    }
}

} // namespace ocuva
