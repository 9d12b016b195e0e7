#pragma once
// The commands of the Help menu.

#include "app/PackReport.h"
#include "app/help/HelpWindow.h"

#include <QDir>
#include <QWidget>

#include <memory>

namespace ocuva {

/// The window of the manual is created at its first use and kept.
class HelpMenu {
public:
    /// The controls of the report's window are explained; it outlives this. The manual is looked for in the
    /// folder given.
    HelpMenu(const QDir& manual, PackReportContext report);

    /// The commands. A report that cannot be packed is a ReportError.
    ///@{
    void openManual();
    void openKeys();
    void explain();
    void packReport() { m_report.run(); }
    ///@}

    /// Closes its windows.
    void unload();

    /// Null until the manual was opened once.
    HelpWindow* manualWindow() const { return m_manualWindow.get(); }

private:
    QWidget& m_window;
    QDir m_manual;
    PackReport m_report;
    std::unique_ptr<HelpWindow> m_manualWindow;
};

} // namespace ocuva
