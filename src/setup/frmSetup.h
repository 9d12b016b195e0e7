#pragma once
// The set-up dialog: a tab strip over five pages. Every change takes effect and is stored at once; closing
// discards nothing.

#include "setup/SetupAutofocusPage.h"
#include "setup/SetupBoardPage.h"
#include "setup/SetupCameraPage.h"
#include "setup/SetupContext.h"
#include "setup/SetupMonitorPage.h"
#include "setup/SetupStagePage.h"
#include "video/VideoDefaults.h"

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>

namespace ocuva {

/// The tabs, by their index in the strip.
enum class SetupTab { Autofocus = 1, Monitor, Stage, Camera, Board };

/// Modeless. Created for each opening, so that it shows the stored values. User-interface thread.
class frmSetup final : public QDialog {
    Q_OBJECT

public:
    /// Fills every control from the stores and the host, and shows the first page.
    frmSetup(const SetupContext& context, QWidget* owner);

    /// Of the page that is showing.
    SetupTab shownTab() const { return m_shownTab; }

    /// Magnification or field may have changed outside the dialog: texts that depend on them are read again,
    /// except typed ones.
    void followMagnification();

    QTabWidget* tsSetup = nullptr; ///< its pages are frsetup0 to frsetup4
    /// The pages, in the order of the tabs.
    ///@{
    SetupAutofocusPage* autofocusPage = nullptr;
    SetupMonitorPage* monitorPage = nullptr;
    SetupStagePage* stagePage = nullptr;
    SetupCameraPage* cameraPage = nullptr;
    SetupBoardPage* boardPage = nullptr;
    ///@}
    QPushButton* cmdSaveDefault = nullptr; ///< disabled on pages without defaults
    QPushButton* cmdClose = nullptr;       ///< applies typed text like leaving its box

protected:
    bool event(QEvent* event) override;
    void done(int result) override;

private:
    void makePages(const SetupContext& context);
    void makeButtons();
    void tsSetup_Click(SetupTab clicked);
    void cmdStandardSort_Click();
    void cmdSaveDefault_Click();
    void report(const QString& text);

    SetupContext m_context;
    VideoDefaults m_defaults;
    SetupTab m_shownTab = SetupTab::Autofocus;
    bool m_wasActive = false; // what was loaded is new at the first activation
};

} // namespace ocuva
