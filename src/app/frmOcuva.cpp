#include "app/frmOcuva.h"

#include "app/ExitKey.h"
#include "app/frmSplash.h"
#include "app/toolbar/VectorIcon.h"
#include "controls/DialogPlaces.h"
#include "controls/InSight.h"
#include "controls/WindowPlace.h"
#include "display/TwipsGeometry.h"
#include "platform/Desktop.h"
#include "setup/frmSetup.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QStatusTipEvent>

#include <utility>

namespace ocuva {

namespace {

// Twips left free below the panels of the designed window.
constexpr Long designBottomMargin = 180;
constexpr Long designWindowWidth = 8190;

// The file that keeps a list of standards while it is being stored; none without a folder of the program's
// own.
std::filesystem::path unfinishedListFile(const std::filesystem::path& ownFolder) {
    return ownFolder.empty() ? ownFolder : ownFolder / "standards.unfinished";
}

} // namespace

frmOcuva::frmOcuva(const MainWindowContext& context)
    : m_context(context)
    , m_guard(*this, context.host.tn_log(),
              [this](const QString& what) { m_controls.information->showBusy(what); })
    , m_readings(context.host)
    , m_help(manualFolder(QCoreApplication::applicationDirPath()),
             {*this, context.report, context.host.Tn_log(),
              [this](const QString& suggested) { return chooseReport(suggested); },
              [this](const QString& line) { m_guard.log(line); },
              [this](const QString& note) { showNote(note, {}); },
              [this](const QString& what) { return holdInput(what); }})
    , m_controls(*this, context.displayWindows, [this](const Command& chosen) { run(chosen); })
    , m_monitor({.window = *this,
                 .controls = m_controls,
                 .readings = m_readings,
                 .guard = m_guard,
                 .windowIsUp = [this] { return isUp(); },
                 .redrawOverlays =
                     [this](Long centreY, Long centreX) {
                         m_overlays.draw({centreX, centreY});
                     },
                 .refreshState = [this] { refreshState(); }})
    , m_image({.window = *this,
               .world = m_context,
               .readings = m_readings,
               .controls = m_controls,
               .guard = m_guard,
               .monitor = m_monitor,
               .windowIsUp = [this] { return isUp(); },
               .drawMicroMarker = [this] { DrawMicroMarker(); }})
    , m_overlays({.panels = m_controls.panels,
                  .fields = m_monitor.fields(),
                  .magnification = [this] { return m_image.magnification(); },
                  .conversion = m_readings.conversion,
                  .settings = m_readings.settings},
                 {.menu = m_controls.menu,
                  .tbMain = *m_controls.tbMain,
                  .saveToolbar = [this] { m_layoutStore.save(tbMain->layoutText()); }})
    , m_stage({.readings = m_readings,
               .controls = m_controls,
               .guard = m_guard,
               .journal = context.journal,
               .events = {
                   .moveStarted = [this](Integer axis, const auto& from) { m_image.moveStarted(axis, from); },
                   .positionShown = [this](const auto& at) { m_image.positionShown(at); },
                   .moveEnded = [this] { m_image.moveEnded(); }}})
    , m_standards({context.host.tn_reg(), context.host.tn_lib_proxy(), *m_controls.tbMain, m_stage, *this,
                   [this](const QString& text) { m_guard.reportError(text); },
                   [this](const QString& folder) { return chooseStandard(folder); },
                   unfinishedListFile(context.report.dataFolder)})
    , m_calibration({.window = *this,
                     .readings = m_readings,
                     .controls = m_controls,
                     .guard = m_guard,
                     .stage = m_stage,
                     .image = m_image,
                     .doFocus = [this] { DoFocus(); },
                     .scaleChanged = [this] { scaleChanged(); }})
    , m_setup({*this, m_readings, m_controls, m_guard, m_monitor, m_overlays, m_image, m_standards})
    , m_server({.window = *this,
                .world = m_context,
                .settings = m_readings.settings,
                .guard = m_guard,
                .windowIsUp = [this] { return isUp(); },
                .doFocus = [this] { DoFocus(); },
                .exit = [this] { exitOperation(); }}) {
    setObjectName(QStringLiteral("frmOcuva"));
    setWindowTitle(context.windowTitle);
    setWindowIcon(applicationIcon());
    setContextMenuPolicy(Qt::NoContextMenu);
    m_image.connectTo(m_stage, pictureOnStage(), [this] { m_setup.followMagnification(); });
    tbMain = m_controls.tbMain;
    sbMain = m_controls.sbMain;
    tServerCheckIdle = m_server.tServerCheckIdle;
    tStageMove = m_stage.tStageMove;
    tInitTBMain = new QTimer(this);
    tInitTBMain->setObjectName(QStringLiteral("tInitTBMain"));
    tInitTBMain->setInterval(0); // due as soon as the message loop runs
    setQuestions();
    menu().lendFunctionKeys(pictureOnStage().dialog());
    new ExitKey(*menu().action("mnuExit"));
    arrangeAsDesigned();
    m_monitor.makeFit();
    m_image.makeMagnificationWatch();
    connectControls();
    connectDisplay();
}

frmOcuva::~frmOcuva() = default;

void frmOcuva::setQuestions() {
    chooseReport = [this](const QString& suggested) { return chooseReportFile(*this, suggested); };
    chooseStandard = [this](const QString& folder) {
        return chooseStandardFile(m_guard.frontWindow(), folder);
    };
    ask.choosePictureToOpen = [this](const QString& folder) { return choosePictureToOpen(*this, folder); };
    ask.choosePictureToSave = [this](const QString& folder) { return choosePictureToSave(*this, folder); };
    ask.askBeforeSave = [this](const SaveQuestion& question) { return askBeforeSave(*this, question); };
}

// What stands around the monitor frame, from the frame's edge to the window's.
void frmOcuva::arrangeAsDesigned() {
    const QRect monitor = panels().frMonitor->geometry();
    ensurePolished();
    resize(pixelsX(designWindowWidth), monitor.bottom() + 1 + pixelsY(designBottomMargin) +
                                           menuBar()->sizeHint().height() + sbMain->sizeHint().height());
    setMinimumSize(1, 1);
    m_place = new WindowPlace(*this);
    keepInSight(*panels().frImage, InSight::Watched);
    keepInSight(*upDown().frUpDown, InSight::Watched);
    keepInSight(*sbMain, InSight::Hint);
    new DialogPlaces(*this);
    panels().milDisp->setFocus();
}

void frmOcuva::connectControls() {
    cxsStage().MoveEnd = [this](Integer ErrCode) { cxsStage_MoveEnd(ErrCode); };
    for (std::size_t i = 0; i < zSteps.size(); ++i) {
        connect(upDown().cmdUp.at(i), &QToolButton::clicked, this, [this, i] { cmdUp_Click(i); });
        connect(upDown().cmdDown.at(i), &QToolButton::clicked, this, [this, i] { cmdDown_Click(i); });
    }
    connect(tStageMove, &QTimer::timeout, this, &frmOcuva::tStageMove_Timer);
    connect(tInitTBMain, &QTimer::timeout, this, &frmOcuva::tInitTBMain_Timer);
    connect(tbMain, &MainToolbar::buttonClicked, this, &frmOcuva::tbMain_ButtonClick);
    connect(tbMain, &MainToolbar::customized, this, [this] { m_layoutStore.save(tbMain->layoutText()); });
    connect(sbMain, &StatusBar::panelClicked, this, [this] { UpdateStagePos(); });
    connect(sbMain, &StatusBar::informationClicked, this, [this] { m_image.measureGreyLevels(); });
    connect(sbMain, &StatusBar::panelDoubleClicked, this, [this] { run(command("mnuMove")); });
}

void frmOcuva::connectDisplay() {
    MilDisplay* const milDisp = panels().milDisp;
    connect(milDisp, &MilDisplay::mouseDown, this, &frmOcuva::milDisp_MouseDown);
    connect(milDisp, &MilDisplay::mouseMoved, this, &frmOcuva::milDisp_MouseMove);
    connect(milDisp, &MilDisplay::mouseLeft, this, &frmOcuva::milDisp_MouseLeave);
    connect(milDisp, &MilDisplay::mouseUp, this, &frmOcuva::milDisp_MouseUp);
    connect(sbMain, &StatusBar::panelTextChanged, milDisp,
            [this, milDisp] { milDisp->setSpokenState(sbMain->spokenText()); });
}

void frmOcuva::Load() {
    constexpr Long boardInUse = 1;
    m_context.host.tn_lib_proxy().TarnSetVideoBoardType(boardInUse);
    m_image.load(ask);
    ComputeInitialSize();
    ResizeAll(true);
    m_image.readVgaMouse();
    m_mouseModes = std::make_unique<MouseModes>(
        MouseModesContext{.calibration = pictureOnStage(),
                          .pictures = pictures(),
                          .vgaMouse = m_image.vgaMouse(),
                          .updateStagePos = [this] { UpdateStagePos(); },
                          .moveToPoint = [this](const ClickOnImage& click) { moveToPoint(click); },
                          .guarded = [this](const auto& handler) { m_guard.run(handler); }});
    m_server.start([this](const Notification& notification) { m_notifier_OnNotify(notification); });
    m_loaded = true;
    showStartState();
    m_monitor.start();
    tInitTBMain->start();
}

void frmOcuva::showStartState() {
    const ViewOptions view = m_readings.settings.readView();
    m_overlays.showStartState(view);
    if (view.FullImage != 0) {
        m_monitor.toggleZoom();
    }
    if (view.LiveImage != 0) {
        m_image.toggleLive();
    }
    m_monitor.showZoom();
    m_image.showAcquisition();
}

void frmOcuva::setUpToolbar() {
    const FrozenDrawing frozen(*tbMain);
    restoreToolbarLayout();
    for (const Command& row : commands()) {
        if (!row.button.key.isEmpty()) {
            tbMain->setEnabled(row.button.key, row.isAvailable());
        }
    }
    m_monitor.showZoom();
    m_image.showAcquisition();
}

void frmOcuva::restoreToolbarLayout() { tbMain->restoreLayout(m_layoutStore.load()); }

void frmOcuva::tInitTBMain_Timer() {
    tInitTBMain->stop();
    restoreToolbarLayout();
    if (const std::optional<std::size_t> count = m_standards.list().finishStoring()) {
        const QString what = tr("The last run ended while the list of standards was being stored. It has "
                                "been completed: %1 standards")
                                 .arg(*count);
        m_guard.log(what);
        showNote(tr("Standards restored"), what);
    }
    m_standards.FillStageMenu();
}

void frmOcuva::showAtStart() {
    m_place->restoreMaximised();
    show();
}

void frmOcuva::initialiseCamera() {
    CameraSetup(m_context.host.tn_video(), cxvbBoard(), m_monitor).refresh(false);
}

void frmOcuva::run(const Command& chosen) {
    if (chosen.run != nullptr && chosen.isAvailable()) {
        m_guard.run([this, &chosen] { chosen.run(*this); });
    }
}

void frmOcuva::tbMain_ButtonClick(const QString& key) {
    if (const Command* const chosen = commandOfButton(key)) {
        run(*chosen);
    }
}

void frmOcuva::mnuFocus_Click() {
    if (m_readings.settings.readVgaMode()) {
        return;
    }
    DoFocus();
    UpdateStagePos();
}

void frmOcuva::mnuAbout_Click() { m_context.splash.showModal(this); }

void frmOcuva::milDisp_MouseDown(Qt::MouseButton button, int /*shift*/, float x, float y) {
    m_mouseModes->press(button, mousePoint(x, y));
}

void frmOcuva::milDisp_MouseMove(Qt::MouseButton /*button*/, int /*shift*/, float x, float y) {
    m_mouseModes->move(mousePoint(x, y));
}

void frmOcuva::milDisp_MouseUp(Qt::MouseButton button, int /*shift*/, float x, float y) {
    m_mouseModes->release(button, mousePoint(x, y));
}

void frmOcuva::milDisp_MouseLeave() {
    if (isUp()) {
        m_mouseModes->leave();
    }
}

void frmOcuva::refreshState() {
    UpdateStagePos();
    m_monitor.showZoom();
    m_image.showAcquisition();
    m_image.showMagnification(m_readings.settings.readVideoMag());
}

void frmOcuva::scaleChanged() {
    DrawMicroMarker();
    if (setupDialog() != nullptr && setupDialog()->isVisible()) {
        m_setup.close(); // it shows the old scale; opened again it shows the new one
    }
}

void frmOcuva::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    m_monitor.windowResized();
}

void frmOcuva::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Another palette or font changes the toolbar's height and the frames with it.
    if (event->type() == QEvent::StyleChange && isUp()) {
        ResizeAll(false);
    }
    if (event->type() == QEvent::ActivationChange) {
        if (isActiveWindow() && std::exchange(m_wasLeft, false)) {
            m_image.windowActivated();
        } else if (!isActiveWindow()) {
            m_wasLeft = true;
        }
    }
}

bool frmOcuva::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip) {
        // A message of the status bar would hide the stage position; only the last panel lends its room.
        sbMain->panel(QStringLiteral("Info"))->setTip(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    return QMainWindow::event(event);
}

void frmOcuva::closeEvent(QCloseEvent* event) {
    exitOperation();
    event->accept();
}

void frmOcuva::exitOperation() {
    if (std::exchange(m_exiting, true)) {
        return;
    }
    tStageMove->stop();
    tInitTBMain->stop();
    m_server.stop();
    m_monitor.stop();
    m_image.stop();
    m_setup.close();
    m_standards.unload();
    pictureOnStage().unload();
    m_help.unload();
    Shutdown();
    m_server.end();
    close();
    m_context.endProcess();
}

} // namespace ocuva
