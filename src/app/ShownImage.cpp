#include "app/ShownImage.h"

#include "autofocus/DoFocus.h"

#include <utility>

namespace ocuva {

ShownImage::ShownImage(ShownImageContext context)
    : m_context(std::move(context)) {
    MilDisplay* const milDisp = m_context.controls.panels.milDisp;
    ImageInformation* const information = m_context.controls.information;
    QObject::connect(milDisp, &MilDisplay::frameShown, information, &ImageInformation::frameShown);
    QObject::connect(milDisp, &MilDisplay::frameShown, information, [this] { m_age.frameShown(); });
}

void ShownImage::connectTo(StageControl& stage, PictureOnStage& pictureOnStage,
                           std::function<void()> magnificationChanged) {
    m_stage = &stage;
    m_pictureOnStage = &pictureOnStage;
    m_magnificationChanged = std::move(magnificationChanged);
}

void ShownImage::makeMagnificationWatch() {
    m_magnificationWatch = new MagnificationWatch({[this] { return cameraImageIsSeen(); },
                                                   [this] { return m_context.readings.magnification.read(); },
                                                   [this](const Magnification& now) {
                                                       m_context.guard.runForHost(m_context.drawMicroMarker);
                                                       showMagnification(now.magnification);
                                                       m_magnificationChanged();
                                                   }},
                                                  &m_context.window);
}

void ShownImage::load(const PictureQuestions& ask) {
    Host& host = m_context.readings.host;
    m_board = std::make_unique<CTnVideoBoard>(host.tn_video());
    m_image = std::make_unique<CTnVideoImage>(host.tn_video(), host.tn_vduti(), m_context.world.automation);
    m_pictures = std::make_unique<Pictures>(PicturesContext{
        .log = host.tn_log(),
        .board = *m_board,
        .image = *m_image,
        .stage = m_stage->cxsStage(),
        .magnification = m_context.readings.magnification,
        .calibration = [this]() -> Calibration& { return m_pictureOnStage->calibration(); },
        .calibrationRead = [this] { m_pictureOnStage->calibrationChanged(); },
        .panels = m_context.controls.panels,
        .information = *m_context.controls.information,
        .chooseToOpen = [&ask](const QString& folder) { return ask.choosePictureToOpen(folder); },
        .chooseToSave = [&ask](const QString& folder) { return ask.choosePictureToSave(folder); },
        .askBeforeSave = [&ask](const SaveQuestion& question) { return ask.askBeforeSave(question); },
        .holdInput = [this](const QString& what) { return m_context.guard.holdInput(what); },
        .report = [this](const QString& text) { m_context.guard.reportError(text); },
        .imageChanged = [this] { imageChanged(); },
        .saved =
            [this](const QString& name) {
                note(m_context.world.journal,
                     {"picture", {}, m_stage->watch().shownPosition(), name.toStdString()});
            }});
}

void ShownImage::toggleLive() {
    ImageInformation& information = *m_context.controls.information;
    const bool wasGrabbing = m_board->IsGrabbing();
    {
        const auto hold = m_context.guard.holdInput(wasGrabbing ? QObject::tr("Stopping the live image…")
                                                                : QObject::tr("Starting the live image…"));
        m_board->GrabToggle(m_image.get());
    }
    if (m_board->IsGrabbing()) {
        m_pictures->showCamera();
        if (m_context.controls.panels.milDisp->isDrawnByHost()) {
            m_age.frameShown(); // no frame is seen here
        }
    }
    showAcquisition();
    if (wasGrabbing && m_stage->watch().isWatching()) {
        m_age.moveStarted(axisAll, {}); // the last picture is one of the way
    }
    if (!wasGrabbing && !m_board->IsGrabbing()) {
        information.showNote(
            QObject::tr("The board refused"),
            m_board->isReady() ? QObject::tr("Shut it down and initialize it again: Setup (Alt+T), tab Board")
                               : QObject::tr("Initialize it: Setup (Alt+T), tab Board"));
    }
}

void ShownImage::DoFocus() {
    FocusCourse course;
    {
        const auto hold = m_context.guard.holdInput(QObject::tr("Focusing…"));
        m_context.guard.runForHost(
            [&] { course = doFocus(m_stage->cxsStage(), m_stage->watch(), *m_board, *m_image); });
    }
    m_magnificationWatch->readSoon();
    showInformation(); // grey levels of the image before the focus are not those of this one
    showFocusCourse(course);
}

void ShownImage::showFocusCourse(const FocusCourse& course) {
    if (course.fromZ && course.toZ) {
        m_stage->showMoveNote(QObject::tr("Z %1 -> %2").arg(*course.fromZ).arg(*course.toZ));
    } else if (course.toZ) {
        m_stage->showMoveNote(QObject::tr("Z %1").arg(*course.toZ));
    }
}

void ShownImage::measureGreyLevels() {
    if (isStored()) {
        return; // the host measures the camera's image, which is not the one that is seen
    }
    m_context.guard.run([this] {
        const auto hold = m_context.guard.holdInput(QObject::tr("Measuring the grey levels…"));
        m_image->Refresh();
        if (m_image->isMeasured()) {
            m_context.controls.information->showGreyLevels(m_image->Mean(), m_image->StdDev());
        } else {
            m_context.controls.information->showNotMeasured();
        }
    });
}

void ShownImage::imageChanged() {
    const std::optional<StoredPicture>& stored = m_pictures->stored();
    const QString& title = m_context.world.windowTitle;
    m_context.window.setWindowTitle(stored ? QObject::tr("%1 - %2").arg(stored->bareName(), title) : title);
    m_stage->watch().UpdateStagePos();
    showAcquisition();
    // No scale to draw is no reason to refuse a picture.
    m_context.guard.runForHost(m_context.drawMicroMarker);
}

void ShownImage::showAcquisition() {
    m_context.controls.menu.action("mnuAcq")->setChecked(isGrabbing());
    m_context.controls.tbMain->setValue(QStringLiteral("Acq"), isGrabbing());
    m_magnificationWatch->setLive(isGrabbing());
    showInformation();
}

void ShownImage::showInformation() {
    const MonitorFields& fields = m_context.monitor.fields();
    ImageState state{isGrabbing(), fields.GrabZoom, {}, m_board == nullptr || m_board->isReady()};
    state.scale = scaleOf({fields.GrabSizeX, fields.GrabSizeY});
    if (isStored()) {
        state.storedPicture = m_pictures->stored()->bareName();
        state.scale = scaleOf(m_pictures->stored()->picture.image.size());
    }
    m_context.controls.information->show(state);
    showCalibration();
}

void ShownImage::showMagnification(Long magnification) {
    m_magnificationWatch->shown(magnification);
    m_context.controls.information->showMagnification(magnification);
}

void ShownImage::showCalibration() {
    const bool described = isStored() && m_pictures->stored()->described;
    m_context.controls.information->showCalibration(calibrationWords(m_pictureOnStage->viewed(), described),
                                                    m_vgaMouse);
    m_pictureOnStage->viewChanged();
}

std::optional<Magnification> ShownImage::magnification() const {
    if (isStored()) {
        return m_pictures->stored()->field();
    }
    const Magnification now = m_context.readings.magnification.read();
    m_magnificationWatch->drawn(now);
    return now;
}

CalibrationView ShownImage::view() const {
    if (isStored()) {
        return m_pictures->stored()->view();
    }
    const std::optional<StagePosition>& at = m_stage->watch().shownPosition();
    return at ? CalibrationView{{}, ViewPlace{*at, m_context.controls.information->magnification()}}
              : CalibrationView{};
}

void ShownImage::moveStarted(Integer axis, const std::optional<StagePosition>& from) {
    m_age.moveStarted(axis, from);
    m_pictureOnStage->viewChanged();
}

void ShownImage::positionShown(const StagePosition& at) {
    if (!m_stage->watch().isWatching()) {
        m_age.positionRead(at);
    }
    showCalibration();
}

void ShownImage::moveEnded() {
    m_magnificationWatch->readSoon();
    m_pictureOnStage->moveEnded();
}

std::optional<ShownScale> ShownImage::scaleOf(const QSize& picture) const {
    const QSize display = m_context.controls.panels.milDisp->size();
    return shownScale({picture.width(), picture.height()}, {display.width(), display.height()});
}

bool ShownImage::cameraImageIsSeen() const {
    return m_context.windowIsUp() && m_context.window.isVisible() && !m_context.window.isMinimized() &&
           !isStored();
}

} // namespace ocuva
