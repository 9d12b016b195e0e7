#include "app/frmOcuva.h"

#include "app/ExitKey.h"
#include "app/frmSplash.h"
#include "app/toolbar/VectorIcon.h"
#include "autofocus/DoFocus.h"
#include "base/Numbers.h"
#include "base/Product.h"
#include "controls/DialogPlaces.h"
#include "controls/InSight.h"
#include "controls/WindowPlace.h"
#include "display/TwipsGeometry.h"
#include "platform/Desktop.h"
#include "setup/frmSetup.h"

#include <QCloseEvent>
#include <QMessageBox>

namespace ocuva {

namespace {

// Free space below the panels in the initial layout, twips.
constexpr Long designBottomMargin = 180;
constexpr Long designWindowWidth = 8190;

// The file that keeps a list of standards while it is being stored; none without a folder of the program's
// own.
std::filesystem::path unfinishedListFile(const std::filesystem::path& ownFolder) {
    return ownFolder.empty() ? ownFolder : ownFolder / "standards.unfinished";
}

} // namespace

frmOcuva::frmOcuva(const MainWindowContext& context)
    : m_inputGate([this](const QString& what) { m_information->showBusy(what); })
    , m_context(context)
    , m_settings(context.host.tn_reg())
    , m_magnification(m_settings, context.host.tn_lib_proxy())
    , m_conversion(context.host.tn_log())
    , m_stage(context.host.tn_lib_proxy(), context.host.tn_micro_proxy())
    , m_calibration(context.host.tn_lib_proxy())
    , m_watch(m_stage, *this, context.journal)
    , m_sizing(context.host.tn_video(), context.host.tn_log(), m_settings, *this)
    , m_help(manualFolder(QCoreApplication::applicationDirPath()),
             {*this, context.report, context.host.Tn_log(),
              [this](const QString& suggested) { return chooseReport(suggested); },
              [this](const QString& line) { log(line); },
              [this](const QString& note) { m_information->showNote(note); },
              [this](const QString& what) { return holdInput(what); }})
    , m_sleeping(
          *this, [this](bool minimised) { noteWindowState(minimised); },
          [this] {
              log(tr("The window system has not shown or hidden the window as the host requested."));
          }) {
    setObjectName(QStringLiteral("frmOcuva"));
    setWindowTitle(context.windowTitle);
    setWindowIcon(applicationIcon());
    setContextMenuPolicy(Qt::NoContextMenu);
    makeControls();
    makeTimers();
    makeWatches();
    connectControls();
}

frmOcuva::~frmOcuva() = default;

void frmOcuva::makeControls() {
    m_client = new QWidget(this);
    setCentralWidget(m_client);
    tbMain = new MainToolbar(commandButtons(), m_client);
    tbMain->move(0, 0);
    m_panels = std::make_unique<MonitorPanels>(m_context.displayWindows, m_client);
    m_upDown = std::make_unique<UpDownPanel>(m_client);
    m_menu = std::make_unique<MainMenu>(*menuBar(), [this](const Command& chosen) { run(chosen); });
    sbMain = new StatusBar(this);
    setStatusBar(sbMain);
    m_information = new ImageInformation(*sbMain->panel(QStringLiteral("Info")), *m_panels->milDisp, this);
    m_overlays =
        std::make_unique<Overlays>(OverlayContext{.panels = *m_panels,
                                                  .fields = m_sizing.fields(),
                                                  .magnification = [this] { return shownMagnification(); },
                                                  .conversion = m_conversion,
                                                  .settings = m_settings},
                                   OverlaySwitches{.menu = *m_menu, .tbMain = *tbMain, .saveToolbar = [this] {
                                                       m_layoutStore.save(tbMain->layoutText());
                                                   }});

    chooseReport = [this](const QString& suggested) { return chooseReportFile(*this, suggested); };
    chooseStandard = [this](const QString& folder) { return chooseStandardFile(*frontWindow(), folder); };
    m_standards = std::make_unique<Standards>(
        StandardsContext{m_context.host.tn_reg(), m_context.host.tn_lib_proxy(), *tbMain, *this, *this,
                         [this](const QString& text) { reportError(text); },
                         [this](const QString& folder) { return chooseStandard(folder); },
                         unfinishedListFile(m_context.report.dataFolder)});

    m_pictureOnStage = std::make_unique<PictureOnStage>(calibrationContext());
    m_menu->lendFunctionKeys(m_pictureOnStage->dialog());
    new ExitKey(*m_menu->action("mnuExit"));

    // The initial layout: the margins between the monitor frame and the edges of the window.
    const QRect monitor = m_panels->frMonitor->geometry();
    ensurePolished();
    resize(pixelsX(designWindowWidth), monitor.bottom() + 1 + pixelsY(designBottomMargin) +
                                           menuBar()->sizeHint().height() + sbMain->sizeHint().height());
    setMinimumSize(1, 1);
    m_place = new WindowPlace(*this);
    keepInSight(*m_panels->frImage, InSight::Watched);
    keepInSight(*m_upDown->frUpDown, InSight::Watched);
    keepInSight(*sbMain, InSight::Hint);
    new DialogPlaces(*this);
    m_panels->milDisp->setFocus();
}

void frmOcuva::makeTimers() {
    const auto makeTimer = [this](const char* name, int intervalMs) {
        auto* timer = new QTimer(this);
        timer->setObjectName(QString::fromLatin1(name));
        timer->setInterval(intervalMs);
        return timer;
    };
    tServerCheckIdle = makeTimer("tServerCheckIdle", m_context.minuteMs);
    tStageMove = makeTimer("tStageMove", StageWatch::tickMs);
    tStageMove->setTimerType(Qt::PreciseTimer);
    tInitTBMain = makeTimer("tInitTBMain", 0); // due as soon as the message loop runs
}

void frmOcuva::connectControls() {
    m_stage.MoveEnd = [this](Integer ErrCode) { cxsStage_MoveEnd(ErrCode); };
    for (std::size_t i = 0; i < zSteps.size(); ++i) {
        connect(m_upDown->cmdUp.at(i), &QToolButton::clicked, this, [this, i] { cmdUp_Click(i); });
        connect(m_upDown->cmdDown.at(i), &QToolButton::clicked, this, [this, i] { cmdDown_Click(i); });
    }
    connect(m_panels->milDisp, &MilDisplay::mouseDown, this, &frmOcuva::milDisp_MouseDown);
    connect(m_panels->milDisp, &MilDisplay::mouseMoved, this, &frmOcuva::milDisp_MouseMove);
    connect(m_panels->milDisp, &MilDisplay::mouseLeft, this, &frmOcuva::milDisp_MouseLeave);
    connect(m_panels->milDisp, &MilDisplay::mouseUp, this, &frmOcuva::milDisp_MouseUp);
    connect(m_panels->milDisp, &MilDisplay::frameShown, m_information, &ImageInformation::frameShown);
    connect(m_panels->milDisp, &MilDisplay::frameShown, this, [this] { m_pictureAge.frameShown(); });
    connect(tStageMove, &QTimer::timeout, this, &frmOcuva::tStageMove_Timer);
    connect(tInitTBMain, &QTimer::timeout, this, &frmOcuva::tInitTBMain_Timer);
    connect(tServerCheckIdle, &QTimer::timeout, this,
            [this] { guardedForHost([this] { m_server->idleTick(); }); });
    connect(tbMain, &MainToolbar::buttonClicked, this, &frmOcuva::tbMain_ButtonClick);
    connect(tbMain, &MainToolbar::customized, this, [this] { m_layoutStore.save(tbMain->layoutText()); });
    connect(sbMain, &StatusBar::panelClicked, this, [this] { UpdateStagePos(); });
    connect(sbMain, &StatusBar::panelTextChanged, m_panels->milDisp,
            [this] { m_panels->milDisp->setSpokenState(sbMain->spokenText()); });
    connect(sbMain, &StatusBar::informationClicked, this, &frmOcuva::Info_Click);
    connect(sbMain, &StatusBar::panelDoubleClicked, this, [this] { run(command("mnuMove")); });
}

void frmOcuva::Load() {
    Host& host = m_context.host;
    constexpr Long boardInUse = 1;
    host.tn_lib_proxy().TarnSetVideoBoardType(boardInUse);
    m_board = std::make_unique<CTnVideoBoard>(host.tn_video());
    m_image = std::make_unique<CTnVideoImage>(host.tn_video(), host.tn_vduti(), m_context.automation);
    makePictures();
    m_sizing.ComputeInitialSize();
    m_sizing.ResizeAll(true);
    m_vgaMouse = m_settings.readVgaModeForMouse();
    m_mouseModes = std::make_unique<MouseModes>(
        MouseModesContext{.calibration = *m_pictureOnStage,
                          .pictures = *m_pictures,
                          .vgaMouse = m_vgaMouse,
                          .updateStagePos = [this] { UpdateStagePos(); },
                          .moveToPoint = [this](const ClickOnImage& click) { moveToPoint(click); },
                          .guarded = [this](const auto& handler) { guarded(handler); }});
    m_notifier = host.createNotifier();
    m_server.emplace(
        m_context.flags, host.tn_log(), *m_notifier, static_cast<ServerWindow&>(*this),
        [this](Long soFar) { return m_settings.readServerIdleCount(soFar); }, logLineSurroundings());
    m_notifier->setOnNotify([this](const Notification& notification) { m_notifier_OnNotify(notification); });
    m_notifier->Subscribe("DST_APP=TN_OCUVA_SERVER");
    m_loaded = true;
    showStartState();
    m_fit->start();
    tInitTBMain->start();
}

void frmOcuva::showStartState() {
    const ViewOptions view = m_settings.readView();
    m_overlays->showStartState(view);
    if (view.FullImage != 0) {
        mnuZoom_Click();
    }
    if (view.LiveImage != 0) {
        mnuAcq_Click();
    }
    showZoom();
    showAcquisition();
}

void frmOcuva::setUpToolbar() {
    const FrozenDrawing frozen(*tbMain);
    restoreToolbarLayout();
    for (const Command& row : commands()) {
        if (!row.button.key.isEmpty()) {
            tbMain->setEnabled(row.button.key, row.isAvailable());
        }
    }
    showZoom();
    showAcquisition();
}

void frmOcuva::restoreToolbarLayout() { tbMain->restoreLayout(m_layoutStore.load()); }

void frmOcuva::tInitTBMain_Timer() {
    tInitTBMain->stop();
    restoreToolbarLayout();
    if (const std::optional<std::size_t> count = m_standards->list().finishStoring()) {
        const QString what = tr("The last run ended while the list of standards was being stored. It has "
                                "been completed: %1 standards")
                                 .arg(*count);
        log(what);
        m_information->showNote(tr("Standards restored"), what);
    }
    m_standards->FillStageMenu();
}

void frmOcuva::showAtStart() {
    m_place->restoreMaximised();
    show();
}

void frmOcuva::initialiseCamera() { CameraSetup(m_context.host.tn_video(), *m_board, *this).refresh(false); }

void frmOcuva::run(const Command& chosen) {
    if (chosen.run != nullptr && chosen.isAvailable()) {
        guarded([this, &chosen] { chosen.run(*this); });
    }
}

void frmOcuva::tbMain_ButtonClick(const QString& key) {
    if (const Command* const chosen = commandOfButton(key)) {
        run(*chosen);
    }
}

void frmOcuva::mnuAcq_Click() {
    const bool wasGrabbing = m_board->IsGrabbing();
    {
        const auto hold =
            holdInput(wasGrabbing ? tr("Stopping the live image…") : tr("Starting the live image…"));
        m_board->GrabToggle(m_image.get());
    }
    if (m_board->IsGrabbing()) {
        m_pictures->showCamera();
        if (m_panels->milDisp->isDrawnByHost()) {
            m_pictureAge.frameShown(); // no frame is seen here
        }
    }
    showAcquisition();
    if (wasGrabbing && m_watch.isWatching()) {
        m_pictureAge.moveStarted(axisAll, {}); // the last picture is one of the way
    }
    if (!wasGrabbing && !m_board->IsGrabbing()) {
        m_information->showNote(tr("The board refused"),
                                m_board->isReady()
                                    ? tr("Shut it down and initialize it again: Setup (Alt+T), tab Board")
                                    : tr("Initialize it: Setup (Alt+T), tab Board"));
    }
}

void frmOcuva::mnuZoom_Click() {
    const bool wasNormal = m_normalZoom;
    m_normalZoom = !wasNormal;
    ComputeImageSize(true, wasNormal ? 2 : 1);
    ResizeAll(true);
    m_fit->imageSized();
}

void frmOcuva::mmuBckl_Click() {
    const auto hold = holdInput(tr("Taking up the backlash…"));
    m_context.host.tn_micro_proxy().TarnBacklashStage(axisAll);
    SyncStageMove(axisAll);
}

void frmOcuva::mnuFocus_Click() {
    if (m_settings.readVgaMode()) {
        return;
    }
    DoFocus();
    UpdateStagePos();
}

void frmOcuva::mnuAbout_Click() { m_context.splash.showModal(this); }

void frmOcuva::cmdUp_Click(std::size_t index) { stepZ_Click(index, true); }
void frmOcuva::cmdDown_Click(std::size_t index) { stepZ_Click(index, false); }

void frmOcuva::stepZ_Click(std::size_t index, bool up) {
    guarded([this, index, up] {
        if (!m_settings.readVgaMode()) {
            std::shared_ptr<void> waiting;
            stepZ(m_stage, m_watch, index, up, [&] { waiting = holdInput(tr("Waiting for Z…")); });
        }
    });
}

MousePoint frmOcuva::mousePoint(Single x, Single y) const { return {x, y, rect(MonitorPart::milDisp)}; }

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
    if (m_loaded && !m_exiting) {
        m_mouseModes->leave();
    }
}

void frmOcuva::moveToPoint(const ClickOnImage& click) {
    const bool isOld = m_pictureAge.isOld() || m_information->hasStopped();
    const Magnification magnification = m_magnification.read();
    const StagePair move = ocuva::moveToPoint(click, magnification, m_settings.readView(), m_conversion);
    m_stage.DX(move.x);
    m_stage.DY(move.y);
    SyncStageMove(axisAll);
    if (isOld) {
        showMoveNote(tr("The picture is old: moved by %1, %2").arg(move.x).arg(move.y),
                     tr("It does not show the current field. Press Live (F7) for a new one."));
    }
}

void frmOcuva::SyncStageMove(Integer axis) {
    m_watch.SyncStageMove(axis);
    m_stage.relieveSums();
}

void frmOcuva::farMoveStarted(const StagePosition& target) { m_farTarget = target; }

void frmOcuva::tStageMove_Timer() { m_watch.tick(); }

void frmOcuva::cxsStage_MoveEnd(Integer /*ErrCode*/) { m_watch.moveEnded(); }

void frmOcuva::DoFocus() {
    FocusCourse course;
    {
        const auto hold = holdInput(tr("Focusing…"));
        guardedForHost([&] { course = doFocus(m_stage, m_watch, *m_board, *m_image); });
    }
    m_magnificationWatch->readSoon();
    showInformation(); // grey levels of the image before the focus are not those of this one
    showFocusCourse(course);
}

void frmOcuva::Shutdown() { m_board->Shutdown(); }

void frmOcuva::showNote(const QString& note, const QString& advice) { m_information->showNote(note, advice); }

void frmOcuva::m_notifier_OnNotify(const Notification& notification) {
    guardedForHost([this, &notification] { m_server->onNotify(notification); });
}

void frmOcuva::Info_Click() {
    if (m_pictures->stored()) {
        return; // the host measures the camera's image, which is not the one that is seen
    }
    guarded([this] {
        const auto hold = holdInput(tr("Measuring the grey levels…"));
        m_image->Refresh();
        if (m_image->isMeasured()) {
            m_information->showGreyLevels(m_image->Mean(), m_image->StdDev());
        } else {
            m_information->showNotMeasured();
        }
    });
}

void frmOcuva::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    tbMain->resize(m_client->width(), tbMain->sizeHint().height());
    if (m_loaded && !m_exiting && !m_sizing.isBusy()) {
        ComputeImageSize(false, 2);
        ResizeAll(false);
    }
}

void frmOcuva::closeEvent(QCloseEvent* event) {
    exitOperation();
    event->accept();
}

void frmOcuva::exitOperation() {
    if (m_exiting) {
        return;
    }
    m_exiting = true;
    tStageMove->stop();
    tServerCheckIdle->stop();
    tInitTBMain->stop();
    m_sleeping.letGo();
    m_fit->stop();
    m_magnificationWatch->stop();
    if (m_frmSetup) {
        m_frmSetup->close();
    }
    m_standards->unload();
    m_pictureOnStage->unload();
    m_help.unload();
    Shutdown();
    m_notifier.reset();
    close();
    m_context.endProcess();
}

void frmOcuva::guarded(const std::function<void()>& handler) {
    const InputGate::Hold hold(m_inputGate);
    try {
        handler();
    } catch (const std::exception& error) {
        reportError(QString::fromLocal8Bit(error.what()));
    }
}

void frmOcuva::guardedForHost(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        logError(QString::fromLocal8Bit(error.what()));
    }
}

void frmOcuva::logError(const QString& text) { log(tr("Error: %1").arg(text)); }

void frmOcuva::log(const QString& line) {
    m_context.host.tn_log().TarnPrintfVB((line + u'\n').toLocal8Bit().constData());
}

void frmOcuva::reportError(const QString& text) {
    logError(text);
    if (isVisible()) {
        QMessageBox::critical(frontWindow(), QString::fromLatin1(productTitle), text);
    }
}

} // namespace ocuva
