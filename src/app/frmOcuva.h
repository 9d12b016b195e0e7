#pragma once
// The main window: the live monitor with its frames, menus, toolbar, status bar and timers. It connects its
// parts, each of which has one task, and forwards events to them.

#include "app/CalibrationControl.h"
#include "app/HandlerGuard.h"
#include "app/HelpMenu.h"
#include "app/MainControls.h"
#include "app/MainWindowContext.h"
#include "app/MonitorControl.h"
#include "app/MouseModes.h"
#include "app/Overlays.h"
#include "app/ServerControl.h"
#include "app/SetupControl.h"
#include "app/ShownImage.h"
#include "app/StageControl.h"
#include "app/Standards.h"
#include "app/toolbar/ToolbarLayoutStore.h"
#include "controls/HeldKeys.h"
#include "display/NiceNumber.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>

namespace ocuva {

class frmSetup;
class WindowPlace;

/// One for the life of the process. It owns board, image, stage and all dialogs. User-interface thread.
class frmOcuva final : public QMainWindow {
    Q_OBJECT

public:
    /// Makes the controls as designed; no host call is made before Load.
    explicit frmOcuva(const MainWindowContext& context);
    ~frmOcuva() override;

    /// The load handler. Once.
    void Load();
    /// Sets the toolbar up under the name that its layout is kept by.
    void setUpToolbar();
    /// The board and camera parameters that this window shares with the set-up dialog.
    void initialiseCamera();
    /// Shows the window at the end of an interactive start: as large as the user left it, or maximised.
    void showAtStart();

    /// Operations for others, as StageWatch, MonitorSizing, Overlays, ShownImage and nearScaleValue say.
    ///@{
    void SyncStageMove(Integer axis) { m_stage.SyncStageMove(axis); }
    void UpdateStagePos() { m_stage.watch().UpdateStagePos(); }
    void cxsStage_MoveEnd(Integer /*ErrCode*/) { m_stage.watch().moveEnded(); }
    void ComputeInitialSize() { m_monitor.sizing().ComputeInitialSize(); }
    void ComputeImageSize(bool bInit, Integer nZoom) { m_monitor.sizing().ComputeImageSize(bInit, nZoom); }
    void ResizeAll(bool bResizeForm) { m_monitor.sizing().ResizeAll(bResizeForm); }
    void DrawCross(Long centreY, Long centreX) { m_overlays.DrawCross(centreY, centreX); }
    void ShowCross(bool bShow) { m_overlays.ShowCross(bShow); }
    void DrawGrid(Long centreY, Long centreX) { m_overlays.DrawGrid(centreY, centreX); }
    void ShowGrid(bool bShow) { m_overlays.ShowGrid(bShow); }
    void DrawMicroMarker() { m_overlays.DrawMicroMarker(); }
    static Integer ComputeNearScaleVal(Integer value) { return nearScaleValue(value); }
    void DoFocus() { m_image.DoFocus(); }
    void moveToPoint(const ClickOnImage& click) { m_stage.moveToPoint(click, m_image.isOld()); }
    void m_notifier_OnNotify(const Notification& message) { m_server.onNotify(message); }
    std::shared_ptr<void> holdInput(const QString& what = {}) { return m_guard.holdInput(what); }
    ///@}
    /// Puts the video board down.
    void Shutdown() { cxvbBoard().Shutdown(); }
    /// The exit operation. The second call does nothing.
    void exitOperation();
    /// Shows a note in the information panel until the state changes; the advice is its tip.
    void showNote(const QString& note, const QString& advice) {
        m_controls.information->showNote(note, advice);
    }

    /// The general error report: a line in the log and, while the window is visible, a message box.
    void reportError(const QString& text) { m_guard.reportError(text); }

    /// Runs a command as its menu item, shortcut or toolbar key does.
    void run(const Command& chosen);
    /// The commands Autofocus and About.
    ///@{
    void mnuFocus_Click();
    void mnuAbout_Click();
    ///@}

    /// The image's sizes as they are now.
    const MonitorFields& fields() const { return m_monitor.fields(); }
    /// There after Load.
    ///@{
    CTnVideoBoard& cxvbBoard() { return m_image.cxvbBoard(); }
    CTnVideoImage& vimage() { return m_image.vimage(); }
    Pictures& pictures() { return m_image.pictures(); }
    ///@}
    /// Its MoveEnd is handled here.
    CTnStage& cxsStage() { return m_stage.cxsStage(); }
    /// The calibration of picture against stage; the one accepted last unless another was computed since.
    Calibration& calibration() { return pictureOnStage().calibration(); }
    /// The set-up dialog as it was opened last; null before that.
    frmSetup* setupDialog() { return m_setup.dialog(); }

    /// The parts of the window.
    ///@{
    ShownImage& image() { return m_image; }
    MonitorControl& monitor() { return m_monitor; }
    StageControl& stage() { return m_stage; }
    SetupControl& setup() { return m_setup; }
    PictureOnStage& pictureOnStage() { return m_calibration.pictureOnStage(); }
    Standards& standards() { return m_standards; }
    Overlays& overlays() { return m_overlays; }
    HelpMenu& help() { return m_help; }
    const MainMenu& menu() const { return m_controls.menu; }
    const MonitorPanels& panels() const { return m_controls.panels; }
    const UpDownPanel& upDown() const { return m_controls.upDown; }
    ///@}

    /// The images that the toolbar chooses from: small and large, plain, under the pointer, disabled.
    const ToolbarImageLists imageLists;

    /// Ask the operator; by default with the common dialogs.
    ///@{
    std::function<QString(const QString& folder)> chooseStandard;
    std::function<QString(const QString& suggested)> chooseReport;
    PictureQuestions ask;
    ///@}

    /// The controls and timers, by their names.
    ///@{
    MainToolbar* tbMain = nullptr;
    StatusBar* sbMain = nullptr;
    QTimer* tServerCheckIdle = nullptr;
    QTimer* tStageMove = nullptr;
    QTimer* tInitTBMain = nullptr;
    ///@}

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void setQuestions();
    void arrangeAsDesigned();
    void connectControls();
    void connectDisplay();
    void showStartState();
    void restoreToolbarLayout();
    void refreshState();
    void scaleChanged();
    bool isUp() const { return m_loaded && !m_exiting; }
    MousePoint mousePoint(Single x, Single y) const { return {x, y, m_monitor.display()}; }

    // Event handlers.
    void cmdUp_Click(std::size_t index) { m_stage.stepZ(index, true); }
    void cmdDown_Click(std::size_t index) { m_stage.stepZ(index, false); }
    void tStageMove_Timer() { m_stage.watch().tick(); }
    void tInitTBMain_Timer();
    void milDisp_MouseDown(Qt::MouseButton button, int shift, float x, float y);
    void milDisp_MouseMove(Qt::MouseButton button, int shift, float x, float y);
    void milDisp_MouseLeave();
    void milDisp_MouseUp(Qt::MouseButton button, int shift, float x, float y);
    void tbMain_ButtonClick(const QString& key);

    bool m_loaded = false; // first, since events arrive while the parts are being made
    bool m_exiting = false;
    bool m_wasLeft = false; // another window was active since the magnification was read

    HeldKeys m_heldKeys;
    MainWindowContext m_context;
    HandlerGuard m_guard;
    HostReadings m_readings;
    ToolbarLayoutStore m_layoutStore;
    HelpMenu m_help;
    MainControls m_controls;
    MonitorControl m_monitor;
    ShownImage m_image;
    Overlays m_overlays;
    StageControl m_stage;
    Standards m_standards;
    CalibrationControl m_calibration;
    SetupControl m_setup;
    ServerControl m_server;
    std::unique_ptr<MouseModes> m_mouseModes; // after Load
    WindowPlace* m_place = nullptr;
};

} // namespace ocuva
