// The main window as the logic sees it: lengths in twips, colours as numbers, panels by axis.

#include "app/frmOcuva.h"
#include "controls/HostMessageBox.h"
#include "display/TwipsGeometry.h"
#include "platform/Desktop.h"
#include "setup/frmSetup.h"
#include "video/DisplayHandOver.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStatusTipEvent>

#include <tuple>
#include <utility>

namespace ocuva {

namespace {

Long toColourNumber(const QColor& colour) { return colour.red() | colour.green() << 8 | colour.blue() << 16; }

QColor fromColourNumber(Long colour) { return {colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff}; }

} // namespace

Long frmOcuva::monitorColour() const { return toColourNumber(m_panels->frMonitor->fillColour()); }

void frmOcuva::setMonitorColour(Long colour) { m_panels->frMonitor->setFillColour(fromColourNumber(colour)); }

void frmOcuva::enableMoveTimer(bool on) {
    if (!on) {
        tStageMove->stop();
    } else if (!tStageMove->isActive()) {
        tStageMove->start();
    }
}

void frmOcuva::showPosition(Integer axis, const std::string& text) {
    static constexpr const char* keys[]{"X", "Y", "Z"};
    sbMain->panel(QString::fromLatin1(keys[axis - axisX]))->setText(QString::fromStdString(text));
}

void frmOcuva::moveStarted(Integer axis, const std::optional<StagePosition>& from) {
    m_information->takeOff(m_moveNote);
    m_farTarget.reset();
    m_pictureAge.moveStarted(axis, from);
    m_pictureOnStage->viewChanged();
}

void frmOcuva::positionShown(const StagePosition& at) {
    if (!m_watch.isWatching()) {
        m_pictureAge.positionRead(at);
    }
    showCalibration();
}

std::shared_ptr<void> frmOcuva::holdInput(const QString& what) {
    auto hold = std::make_shared<InputGate::Hold>(m_inputGate);
    if (!what.isEmpty()) {
        hold->say(what);
    }
    return hold;
}

namespace {

QString stageMoves() { return frmOcuva::tr("Stage moving"); }

} // namespace

void frmOcuva::moveTakesLong() {
    m_information->showNote(stageMoves(), tr("X, Y and Z are shown when it stops"));
}

void frmOcuva::watchedMoveEnded() {
    m_information->takeOff(stageMoves());
    m_magnificationWatch->readSoon();
    m_pictureOnStage->moveEnded();
    if (const std::optional<StagePosition> target = std::exchange(m_farTarget, std::nullopt)) {
        const StagePosition at = *m_watch.shownPosition();
        for (const auto& [axis, wanted, reached] :
             {std::tuple{u'X', target->x, at.x}, {u'Y', target->y, at.y}, {u'Z', target->z, at.z}}) {
            if (wanted != reached) {
                showMoveNote(tr("%1 %2 is out of reach").arg(QChar(axis)).arg(wanted),
                             tr("The stage did not go there: %1 is %2").arg(QChar(axis)).arg(reached));
                return;
            }
        }
    }
}

ScreenMetrics frmOcuva::screen() const { return screenMetrics(); }

QWidget* frmOcuva::partWidget(MonitorPart part) const {
    switch (part) {
    case MonitorPart::milDisp:
        return m_panels->milDisp;
    case MonitorPart::frImage:
        return m_panels->frImage;
    case MonitorPart::frMonitor:
        return m_panels->frMonitor;
    case MonitorPart::frUpDown:
        return m_upDown->frUpDown;
    case MonitorPart::frMicroMarker:
        return m_panels->frMicroMarker;
    case MonitorPart::tbMain:
        break;
    }
    return tbMain;
}

TwipsRect frmOcuva::rect(MonitorPart part) const {
    const QWidget* widget = partWidget(part);
    if (part == MonitorPart::tbMain) {
        // Its height is that of its buttons, whether or not the window has laid it out yet.
        return toTwips(QRect(widget->pos(), QSize(widget->width(), widget->sizeHint().height())));
    }
    return toTwips(widget->geometry());
}

namespace {

// A host may claim a picture of any size; nothing larger than all screens together is ever laid out.
QSize bounded(const QSize& size, const QScreen& screen) {
    constexpr QSize ordinary(4096, 4096);
    return size.expandedTo(QSize(0, 0)).boundedTo(screen.virtualSize().expandedTo(ordinary));
}

} // namespace

void frmOcuva::setRect(MonitorPart part, const TwipsRect& rect) {
    const QRect pixels = toPixels(rect);
    partWidget(part)->setGeometry(QRect(pixels.topLeft(), bounded(pixels.size(), *QWidget::screen())));
}

Long frmOcuva::windowWidth() const { return twipsX(width()); }

Long frmOcuva::windowHeight() const { return twipsY(height()); }

bool frmOcuva::windowIsMaximised() const { return isMaximized() || isFullScreen(); }

void frmOcuva::setWindowSize(Long width, Long height) {
    resize(bounded({pixelsX(width), pixelsY(height)}, *QWidget::screen()));
}

Long frmOcuva::displayHandle() const {
    m_fit->boardReducesAsZoomSays(); // the handle is requested for a display hand-over
    return m_panels->milDisp->hWnd();
}

void frmOcuva::enableAcq(bool on) { tbMain->setEnabled(QStringLiteral("Acq"), on); }

void frmOcuva::redrawOverlays(Long centreY, Long centreX) { m_overlays->draw({centreX, centreY}); }

void frmOcuva::refreshState() {
    UpdateStagePos();
    showZoom();
    showAcquisition();
    showMagnification(m_settings.readVideoMag());
}

void frmOcuva::showMagnification(Long magnification) {
    m_magnificationWatch->shown(magnification);
    m_information->showMagnification(magnification);
}

bool frmOcuva::cameraImageIsSeen() const {
    return m_loaded && !m_exiting && isVisible() && !isMinimized() && !m_pictures->stored();
}

void frmOcuva::makeWatches() {
    m_fit = new WindowFit({*this, *m_panels->milDisp, m_sizing,
                           [this] {
                               ComputeImageSize(false, 2);
                               ResizeAll(false);
                           },
                           [this](Integer reduction) {
                               handDisplayToBoard(m_context.host.tn_video(), m_panels->milDisp->hWnd(),
                                                  reduction, m_normalZoom);
                           },
                           [this](const QString& line) { log(line); }});
    m_magnificationWatch = new MagnificationWatch({[this] { return cameraImageIsSeen(); },
                                                   [this] { return m_magnification.read(); },
                                                   [this](const Magnification& now) {
                                                       guardedForHost([this] { DrawMicroMarker(); });
                                                       showMagnification(now.magnification);
                                                       if (m_frmSetup && m_frmSetup->isVisible()) {
                                                           m_frmSetup->followMagnification();
                                                       }
                                                   }},
                                                  this);
}

// After the page's own handler: another picture is sized as by a change of the zoom.
void frmOcuva::cameraChanged() {
    QTimer::singleShot(0, this, [this] {
        if (!m_exiting && m_sizing.bufferHasChanged()) {
            ComputeImageSize(true, m_sizing.fields().GrabZoom);
            ResizeAll(true);
            m_fit->imageSized();
        }
    });
}

void frmOcuva::makePictures() {
    choosePictureToOpen = [this](const QString& folder) { return ocuva::choosePictureToOpen(*this, folder); };
    choosePictureToSave = [this](const QString& folder) { return ocuva::choosePictureToSave(*this, folder); };
    askBeforeSave = [this](const SaveQuestion& question) { return ocuva::askBeforeSave(*this, question); };
    m_pictures = std::make_unique<Pictures>(PicturesContext{
        m_context.host.tn_log(), *m_board, *m_image, m_stage, m_magnification,
        [this]() -> Calibration& { return calibration(); },
        [this] { m_pictureOnStage->calibrationChanged(); }, *m_panels, *m_information,
        [this](const QString& folder) { return choosePictureToOpen(folder); },
        [this](const QString& folder) { return choosePictureToSave(folder); },
        [this](const SaveQuestion& question) { return askBeforeSave(question); },
        [this](const QString& what) { return holdInput(what); },
        [this](const QString& text) { reportError(text); }, [this] { imageChanged(); },
        [this](const QString& name) {
            note(m_context.journal, {"picture", {}, m_watch.shownPosition(), name.toStdString()});
        }});
}

void frmOcuva::imageChanged() {
    const std::optional<StoredPicture>& stored = m_pictures->stored();
    setWindowTitle(stored ? tr("%1 - %2").arg(stored->bareName(), m_context.windowTitle)
                          : m_context.windowTitle);
    UpdateStagePos();
    showAcquisition();
    guardedForHost([this] { DrawMicroMarker(); }); // no scale to draw is no reason to refuse a picture
}

std::optional<Magnification> frmOcuva::shownMagnification() const {
    const bool isStored = m_pictures != nullptr && m_pictures->stored().has_value();
    if (isStored) {
        return m_pictures->stored()->field();
    }
    const Magnification now = m_magnification.read();
    m_magnificationWatch->drawn(now);
    return now;
}

void frmOcuva::showAcquisition() {
    const bool grabbing = m_board != nullptr && m_board->IsGrabbing();
    m_menu->action("mnuAcq")->setChecked(grabbing);
    tbMain->setValue(QStringLiteral("Acq"), grabbing);
    m_magnificationWatch->setLive(grabbing);
    showInformation();
}

QWidget* frmOcuva::frontWindow() {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : this;
}

void frmOcuva::mnuSetup_Click() {
    if (m_frmSetup == nullptr || !m_frmSetup->isVisible()) {
        // A new one each time: it opens with its first page, and with what stores and host have now.
        m_frmSetup = std::make_unique<frmSetup>(
            SetupContext{
                m_context.host, m_settings, m_magnification, m_conversion, *m_board, *this, *this,
                m_setupMemory, m_standards->list(), [this] { return m_standards->AddStandard(false); },
                [this] { m_standards->FillStageMenu(); }, [this](const QString& text) { reportError(text); }},
            this);
        m_menu->lendFunctionKeys(*m_frmSetup);
    }
    m_frmSetup->show();
    m_frmSetup->raise();
    m_frmSetup->activateWindow();
}

void frmOcuva::showZoom() {
    m_menu->action("mnuZoom0")->setChecked(m_normalZoom);
    m_menu->action("mnuZoom1")->setChecked(!m_normalZoom);
    tbMain->setValue(QStringLiteral("Zoom"), m_normalZoom);
}

void frmOcuva::showInformation() {
    ImageState state{m_board != nullptr && m_board->IsGrabbing(),
                     m_sizing.fields().GrabZoom,
                     {},
                     m_board == nullptr || m_board->isReady()};
    state.scale = scaleOf({m_sizing.fields().GrabSizeX, m_sizing.fields().GrabSizeY});
    if (m_pictures != nullptr && m_pictures->stored()) {
        state.storedPicture = m_pictures->stored()->bareName();
        state.scale = scaleOf(m_pictures->stored()->picture.image.size());
    }
    m_information->show(state);
    showCalibration();
}

void frmOcuva::showMoveNote(const QString& note, const QString& advice) {
    m_moveNote = note;
    m_information->showNote(note, advice);
}

void frmOcuva::showFocusCourse(const FocusCourse& course) {
    if (course.fromZ && course.toZ) {
        showMoveNote(tr("Z %1 -> %2").arg(*course.fromZ).arg(*course.toZ));
    } else if (course.toZ) {
        showMoveNote(tr("Z %1").arg(*course.toZ));
    }
}

std::optional<ShownScale> frmOcuva::scaleOf(const QSize& picture) const {
    const QSize display = m_panels->milDisp->size();
    return shownScale({picture.width(), picture.height()}, {display.width(), display.height()});
}

void frmOcuva::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Another palette or font changes the toolbar's height and the frames with it.
    if (event->type() == QEvent::StyleChange && m_loaded && !m_exiting) {
        ResizeAll(false);
    }
    if (event->type() == QEvent::ActivationChange) {
        if (isActiveWindow() && std::exchange(m_wasLeft, false)) {
            m_magnificationWatch->readSoon();
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

void frmOcuva::applyWindowState(ServerWindow::State state) {
    m_sleeping.setMinimised(state == ServerWindow::State::minimised);
}

void frmOcuva::noteWindowState(bool minimised) {
    if (minimised) {
        // Only stored: the window is hidden next, and a window system asked to minimise it would answer
        // late, perhaps after a wake-up that it would undo.
        overrideWindowState(Qt::WindowMinimized);
    } else {
        setWindowState(Qt::WindowNoState);
    }
}

void frmOcuva::showModeless() { m_sleeping.bringBack(); }

void frmOcuva::hideWindow() { m_sleeping.layDown(); }

void frmOcuva::enableIdleTimer(bool on) {
    if (!on) {
        tServerCheckIdle->stop();
    } else if (!tServerCheckIdle->isActive()) { // a running minute continues
        tServerCheckIdle->start();
    }
}

LogLineSurroundings frmOcuva::logLineSurroundings() {
    LogLineSurroundings surroundings;
    surroundings.journal = m_context.journal;
    surroundings.anyWindowIsLoaded = [this] { return m_loaded && !m_exiting; };
    surroundings.isDevelopmentEnvironment = [this] { return runsInDevelopmentEnvironment(internalWinId()); };
    surroundings.showMessage = [this](const char* text, const char* title, TarnLong style) {
        if (m_context.flags.serverMode || m_context.flags.sleeping) {
            logError(QString::fromLatin1(text));
        } else {
            showMessageBox(text, title, style);
        }
    };
    return surroundings;
}

void frmOcuva::exitProgram() { exitOperation(); }

} // namespace ocuva
