#pragma once
// What the commands of the Help menu do.

#include "app/MainMenu.h"
#include "app/PackReport.h"
#include "app/help/HelpWindow.h"

#include <QDir>
#include <QWidget>

#include <memory>

namespace ocuva {

/// The window of the manual is made when it is first asked for, and kept.
class HelpMenu {
public:
    /// The controls of the report's window are explained; it outlives this. The manual is looked for in the
    /// folder given.
    HelpMenu(const QDir& manual, PackReportContext report);

    /// Commands of other menus do nothing here. Throws ReportError where a report cannot be packed.
    void run(Command command);

    /// Closes what was opened.
    void unload();

    /// Null until the manual was opened once.
    HelpWindow* manualWindow() const { return m_manualWindow.get(); }

private:
    void openManual();
    void explain();

    QWidget& m_window;
    QDir m_manual;
    PackReport m_report;
    std::unique_ptr<HelpWindow> m_manualWindow;
};

} // namespace ocuva
