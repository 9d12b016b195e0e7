#pragma once
// The main window: the live monitor with its frames, menus, toolbar, status bar and timers. It reads its
// controls, calls an operation of the logic, and shows the answer.

#include "app/HelpMenu.h"
#include "app/ImageInformation.h"
#include "app/MagnificationWatch.h"
#include "app/MainMenu.h"
#include "app/MonitorPanels.h"
#include "app/MouseModes.h"
#include "app/Overlays.h"
#include "app/PictureAge.h"
#include "app/PictureOnStage.h"
#include "app/Pictures.h"
#include "app/SleepingWindow.h"
#include "app/Standards.h"
#include "app/StatusBar.h"
#include "app/WindowFit.h"
#include "app/toolbar/MainToolbar.h"
#include "app/toolbar/ToolbarLayoutStore.h"
#include "autofocus/DoFocus.h"
#include "controls/HeldKeys.h"
#include "controls/InputGate.h"
#include "display/LengthConversion.h"
#include "display/MonitorSizing.h"
#include "display/NiceNumber.h"
#include "display/PointMove.h"
#include "hostlink/DisplayWindow.h"
#include "hostlink/Host.h"
#include "hostlink/modServer.h"
#include "settings/Settings.h"
#include "setup/SetupContext.h"
#include "stage/CTnStage.h"
#include "stage/StageWatch.h"
#include "video/CTnVideoBoard.h"
#include "video/CTnVideoImage.h"
#include "video/CameraSetup.h"
#include "video/Magnification.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace ocuva {

class frmSetup;
class frmSplash;
class WindowPlace;

/// The surroundings of the main window; everything outlives it.
struct MainWindowContext {
    /// The host, and the state of the process.
    ///@{
    Host& host;
    DisplayWindows& displayWindows;
    Automation& automation;
    ProcessFlags& flags;
    ///@}
    frmSplash& splash;                    ///< serves as about box
    QString windowTitle;                  ///< says so when the host is simulated
    std::function<void()> endProcess;     ///< the last step of the exit operation
    int minuteMs = modServer::idleTickMs; ///< a minute of the idle clock, in milliseconds on the wall
    JournalSink journal = {};             ///< receives the actions on the instrument
    ReportSurroundings report = {};       ///< for a packed report, from the start of the program
};

/// One for the life of the process. It owns board, image, stage and all dialogs. User-interface thread.
class frmOcuva final : public QMainWindow,
                       public StageMover,
                       private CameraMainWindow,
                       private SetupMainWindow,
                       private StageWatchView,
                       private MonitorView,
                       private ServerWindow {
    Q_OBJECT

public:
    /// Creates the controls in their initial layout; no host call is made before Load.
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

    // Operations that other windows call.
    /// As StageWatch, MonitorSizing, Overlays and nearScaleValue say.
    ///@{
    void SyncStageMove(Integer axis) override;
    void UpdateStagePos() { m_watch.UpdateStagePos(); }
    void ComputeImageSize(bool bInit, Integer nZoom) { m_sizing.ComputeImageSize(bInit, nZoom); }
    void ResizeAll(bool bResizeForm) { m_sizing.ResizeAll(bResizeForm); }
    void DrawCross(Long centreY, Long centreX) override { m_overlays->DrawCross(centreY, centreX); }
    void ShowCross(bool bShow) { m_overlays->ShowCross(bShow); }
    void DrawGrid(Long centreY, Long centreX) override { m_overlays->DrawGrid(centreY, centreX); }
    void ShowGrid(bool bShow) { m_overlays->ShowGrid(bShow); }
    void DrawMicroMarker() override { m_overlays->DrawMicroMarker(); }
    static Integer ComputeNearScaleVal(Integer value) { return nearScaleValue(value); }
    ///@}
    /// Moves the stage so that the clicked point comes to the reference point; lengths in twips.
    void moveToPoint(const ClickOnImage& click);
    /// One focus search of the host from begin to end; an error goes to the log alone.
    void DoFocus() override;
    /// Puts the video board down.
    void Shutdown();

    /// Shows a note in the information panel until the state changes; the advice is its tip.
    void showNote(const QString& note, const QString& advice);

    /// The general error report: a line in the log and, while the window is visible, a message box.
    void reportError(const QString& text);

    /// Runs a command as its menu item, shortcut or toolbar key does.
    void run(const Command& chosen);
    /// The actions of the commands of the same names.
    ///@{
    void mnuAcq_Click();
    void mnuZoom_Click();
    void mmuBckl_Click();
    void mnuFocus_Click();
    void mnuSetup_Click();
    void mnuAbout_Click();
    void exitOperation();
    ///@}

    /// The image's sizes as they are now.
    const MonitorFields& fields() const override { return m_sizing.fields(); }
    /// There after Load.
    ///@{
    CTnVideoBoard& cxvbBoard() { return *m_board; }
    CTnVideoImage& vimage() { return *m_image; }
    ///@}
    /// Its MoveEnd is handled here.
    CTnStage& cxsStage() override { return m_stage; }
    /// When the move has ended, the information panel names the first axis that has not reached its
    /// target.
    void farMoveStarted(const StagePosition& target) override;
    /// Blocks pointer and keys for the life of the returned object.
    ///@{
    std::shared_ptr<void> holdInput() override { return holdInput(QString()); }
    std::shared_ptr<void> holdInput(const QString& what) override;
    ///@}
    /// The calibration of picture against stage; the one accepted last unless another was computed since.
    Calibration& calibration() { return m_pictureOnStage->calibration(); }
    /// The calibration and its dialog.
    PictureOnStage& pictureOnStage() { return *m_pictureOnStage; }
    /// The list of standards and the move dialog.
    Standards& standards() { return *m_standards; }
    /// The set-up dialog as it was opened last; null before that.
    frmSetup* setupDialog() { return m_frmSetup.get(); }
    /// There after Load.
    Pictures& pictures() { return *m_pictures; }

    /// The images that the toolbar chooses from: small and large, plain, under the pointer, disabled.
    const ToolbarImageLists imageLists;

    /// Asks for the file of a standard; by default the common open-file dialog.
    std::function<QString(const QString& folder)> chooseStandard;
    /// Ask for the file of a picture; the common dialogs unless set otherwise.
    ///@{
    std::function<QString(const QString& folder)> choosePictureToOpen;
    std::function<QString(const QString& folder)> choosePictureToSave;
    ///@}
    /// Asks what to do if a save would lose data or write a wrong description; by default a message box.
    std::function<DescriptionChoice(const SaveQuestion&)> askBeforeSave;
    /// Asks for the file of a report, suggesting one; by default the common save dialog.
    std::function<QString(const QString& suggested)> chooseReport;

    /// The controls and timers, by their names.
    ///@{
    MainToolbar* tbMain = nullptr;
    StatusBar* sbMain = nullptr;
    QTimer* tServerCheckIdle = nullptr;
    QTimer* tStageMove = nullptr;
    QTimer* tInitTBMain = nullptr;
    ///@}

    /// The parts of the window.
    ///@{
    HelpMenu& help() { return m_help; }
    const MainMenu& menu() const { return *m_menu; }
    const MonitorPanels& panels() const { return *m_panels; }
    Overlays& overlays() { return *m_overlays; }
    const UpDownPanel& upDown() const { return *m_upDown; }
    ///@}

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void makeControls();
    void makePictures();
    void makeTimers();
    void connectControls();
    void showStartState();
    void restoreToolbarLayout();

    // Event handlers.
    void cmdUp_Click(std::size_t index);
    void cmdDown_Click(std::size_t index);
    void stepZ_Click(std::size_t index, bool up);
    void tStageMove_Timer();
    void tInitTBMain_Timer();
    void cxsStage_MoveEnd(Integer ErrCode);
    void milDisp_MouseDown(Qt::MouseButton button, int shift, float x, float y);
    void milDisp_MouseMove(Qt::MouseButton button, int shift, float x, float y);
    void milDisp_MouseLeave();
    void milDisp_MouseUp(Qt::MouseButton button, int shift, float x, float y);
    void m_notifier_OnNotify(const Notification& notification);
    void tbMain_ButtonClick(const QString& key);
    void Info_Click();

    /// Runs a handler with the input held; an error that leaves it is shown by the general error report.
    void guarded(const std::function<void()>& handler);
    /// Like guarded, for requests of the host: an error goes to the log only. Nobody may be there to
    /// answer a box, and the host's next message must not wait for an answer.
    void guardedForHost(const std::function<void()>& handler);
    void log(const QString& line);
    void logError(const QString& text);
    /// The parent of a message box about the operator's last action: the dialog in use, if there is one.
    QWidget* frontWindow();
    void imageChanged();
    std::optional<Magnification> shownMagnification() const;
    void showZoom();
    void showInformation();
    void showFocusCourse(const FocusCourse& course);
    /// As ImageInformation::showNote, until the next move begins.
    void showMoveNote(const QString& note, const QString& advice = {});
    void makeWatches();
    bool cameraImageIsSeen() const;
    std::optional<ShownScale> scaleOf(const QSize& picture) const;
    /// The view on the monitor according to the panels; no host call is made.
    CalibrationView shownView() const;
    void showCalibration();
    PictureOnStageContext calibrationContext();
    WalkSurroundings walkSurroundings();
    void takeOver(const CalibrationField& field);

    // StageWatchView
    Long monitorColour() const override;
    void setMonitorColour(Long colour) override;
    void enableMoveTimer(bool on) override;
    void showPosition(Integer axis, const std::string& text) override;
    void moveStarted(Integer axis, const std::optional<StagePosition>& from) override;
    void positionShown(const StagePosition& at) override;
    void moveTakesLong() override;
    void watchedMoveEnded() override;

    // CameraMainWindow
    void enableAcq(bool on) override;

    // SetupMainWindow
    void setCrossLengths(const CrossLengths& cross) override { m_sizing.setCrossLengths(cross); }
    void setGridLengths(const GridLengths& grid) override { m_sizing.setGridLengths(grid); }
    void showMagnification(Long magnification) override;
    void cameraChanged() override;
    void showAcquisition() override;

    // MonitorView
    ScreenMetrics screen() const override;
    TwipsRect rect(MonitorPart part) const override;
    void setRect(MonitorPart part, const TwipsRect& rect) override;
    Long windowWidth() const override;
    Long windowHeight() const override;
    bool windowIsMaximised() const override;
    void setWindowSize(Long width, Long height) override;
    Long displayHandle() const override;
    bool normalZoomIsChecked() const override { return m_normalZoom; }
    void redrawOverlays(Long centreY, Long centreX) override;
    void refreshState() override;
    QWidget* partWidget(MonitorPart part) const;
    MousePoint mousePoint(Single x, Single y) const;

    // ServerWindow
    void applyWindowState(ServerWindow::State state) override;
    void showModeless() override;
    void hideWindow() override;
    void enableIdleTimer(bool on) override;
    void exitProgram() override;
    void noteWindowState(bool minimised);
    LogLineSurroundings logLineSurroundings();

    HeldKeys m_heldKeys;
    InputGate m_inputGate;
    MainWindowContext m_context;
    Settings m_settings;
    MagnificationStore m_magnification;
    LengthConversion m_conversion;
    CTnStage m_stage;
    Calibration m_calibration;
    StageWatch m_watch;
    MonitorSizing m_sizing;
    std::unique_ptr<CTnVideoBoard> m_board; // cxvbBoard
    std::unique_ptr<CTnVideoImage> m_image; // vimage
    std::unique_ptr<Notifier> m_notifier;
    std::optional<modServer> m_server;
    ToolbarLayoutStore m_layoutStore;
    HelpMenu m_help;
    SleepingWindow m_sleeping;

    QWidget* m_client = nullptr;
    WindowPlace* m_place = nullptr;
    std::unique_ptr<MainMenu> m_menu;
    std::unique_ptr<MonitorPanels> m_panels;
    std::unique_ptr<UpDownPanel> m_upDown;
    std::unique_ptr<Standards> m_standards;
    std::unique_ptr<Overlays> m_overlays;
    std::unique_ptr<PictureOnStage> m_pictureOnStage;
    SetupMemory m_setupMemory;
    std::unique_ptr<frmSetup> m_frmSetup;
    std::unique_ptr<Pictures> m_pictures; // once the window is loaded
    std::unique_ptr<MouseModes> m_mouseModes;
    ImageInformation* m_information = nullptr;
    PictureAge m_pictureAge;
    QString m_moveNote;                       // about the last move
    std::optional<StagePosition> m_farTarget; // of the move that is watched
    WindowFit* m_fit = nullptr;
    MagnificationWatch* m_magnificationWatch = nullptr;

    bool m_normalZoom = false; // the mark of "&Normal (1:1)"; not set at start, where the divisor is 2
    bool m_vgaMouse = false;   // taken once at start
    bool m_wasLeft = false;    // another window was active since the magnification was read
    bool m_loaded = false;
    bool m_exiting = false;
};

} // namespace ocuva
