#include "app/Pictures.h"

#include "pictures/CalibrationQuality.h"
#include "pictures/CalibrationVerdict.h"
#include "pictures/CameraImage.h"
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "pictures/SaveWarnings.h"
#include "pictures/ViewNotes.h"
#include "platform/PathOf.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QObject>

namespace ocuva {

QString StoredPicture::bareName() const { return QFileInfo(name).fileName(); }

CalibrationView StoredPicture::view() const { return {name.toStdString(), placeOf(picture.notes)}; }

std::optional<Magnification> StoredPicture::field() const {
    if (!picture.scale.isKnown()) {
        return {};
    }
    constexpr Long asIs = 100;
    constexpr double micrometresPerCm = 10000.0;
    return Magnification{
        asIs, static_cast<Single>(picture.image.width() / picture.scale.pixelsPerCmX * micrometresPerCm),
        static_cast<Single>(picture.image.height() / picture.scale.pixelsPerCmY * micrometresPerCm)};
}

void Pictures::log(const QString& line) {
    m_context.log.TarnPrintfVB((line + u'\n').toLocal8Bit().constData());
}

void Pictures::save() {
    const QString name = m_context.chooseToSave(m_folder.last());
    if (name.isEmpty()) {
        return;
    }
    auto hold = m_context.holdInput(QObject::tr("Saving the picture…"));
    Picture picture = pictureToSave();
    const Calibration& calibration = m_context.calibration();
    const SaveQuestion question{
        saveWarnings(m_stored ? m_stored->picture : Picture(), pathOf(name)),
        descriptionWarning(calibration, ViewedCalibration(calibration, viewOf(picture)))};
    DescriptionChoice choice = DescriptionChoice::Write;
    if (question.isNeeded()) {
        hold.reset();
        choice = m_context.askBeforeSave(question);
        hold = m_context.holdInput(QObject::tr("Saving the picture…"));
    }
    if (choice == DescriptionChoice::Cancel) {
        return;
    }
    m_folder.remember(name);
    log(QObject::tr("Save to file: '%1'").arg(name));
    write(name, picture, choice == DescriptionChoice::Write);
    hold.reset();
    m_context.information.showNote(QObject::tr("Save to file: '%1'").arg(QFileInfo(name).fileName()));
    if (m_context.saved) {
        m_context.saved(name);
    }
}

Picture Pictures::pictureToSave() {
    return m_stored ? m_stored->picture
                    : cameraImage(m_context.image, m_context.stage, m_context.magnification.read(),
                                  howToGetAnImage());
}

CalibrationView Pictures::viewOf(const Picture& picture) const {
    return m_stored ? m_stored->view() : CalibrationView{{}, placeOf(picture.notes)};
}

// A board that is not ready refuses a live image.
QString Pictures::howToGetAnImage() const {
    return m_context.board.isReady()
               ? QObject::tr("Start the live image (F7); if this happens again, see the host's log")
               : QObject::tr("The board is not ready. Initialize it: Setup (Alt+T), tab Board");
}

void Pictures::write(const QString& name, Picture& picture, bool described) {
    const Calibration& calibration = m_context.calibration();
    const auto points = described ? std::optional(calibration.points) : std::nullopt;
    noteCalibration(picture.notes, calibration.isMade() ? points : std::nullopt, calibration.view,
                    viewOf(picture));
    if (points) {
        savePicture(pathOf(name), picture, *points);
    } else {
        savePictureAlone(pathOf(name), picture);
    }
}

void Pictures::open() {
    const QString name = m_context.chooseToOpen(m_folder.last());
    if (name.isEmpty()) {
        return;
    }
    m_folder.remember(name);
    log(QObject::tr("Open file: '%1'").arg(name));
    auto hold = m_context.holdInput(QObject::tr("Opening the picture…"));
    StoredPicture opened{name, openPicture(pathOf(name)), false};
    m_context.board.Halt(&m_context.image);
    m_stored = std::move(opened);
    m_context.panels.milDisp->showPicture(m_stored->picture.image);
    hold.reset();
    show();
    // After the picture is visible: a box about its description appears over it.
    m_stored->described = takeCalibration();
    show();
    if (m_stored->described) {
        nameWeakPoints();
    }
}

void Pictures::nameWeakPoints() {
    for (const CalibrationRemark& remark : calibrationQuality(m_context.calibration().points).remarks) {
        if (leavesNoPlane(remark)) {
            const QString sentence = remarkText(remark);
            log(QObject::tr("The description of '%1': %2").arg(m_stored->name, sentence));
            m_context.information.showNote(QObject::tr("calibrated, but every Z is 0"), sentence);
            return;
        }
    }
}

bool Pictures::takeCalibration() {
    const QString& name = m_stored->name;
    std::error_code error;
    if (!std::filesystem::exists(descriptionName(pathOf(name)), error)) {
        return false;
    }
    try {
        Calibration read = m_context.calibration();
        read.points = readDescription(pathOf(name));
        if (!read.isMade()) {
            return false;
        }
        read.view = viewOfPoints(read.points, m_stored->picture.notes, m_stored->view());
        read.ComputeStagePlan();
        read.ComputePicturePlan();
        m_context.calibration().assign(read);
        m_context.calibrationRead();
        return true;
    } catch (const std::exception& problem) {
        m_context.report(QObject::tr("\"%1\" is shown without calibration. %2")
                             .arg(QFileInfo(name).fileName(), QString::fromLocal8Bit(problem.what())));
        return false;
    }
}

void Pictures::showCamera() {
    if (!m_stored) {
        return;
    }
    m_stored.reset();
    m_context.panels.milDisp->showFrames();
    show();
}

void Pictures::show() {
    m_context.panels.frMonitor->setCaption(
        m_stored ? QObject::tr("Stored picture: %1").arg(m_stored->bareName()) : QString());
    m_context.panels.frMonitor->setToolTip(
        m_stored ? QObject::tr("A stored picture: a click does not move the stage")
                 : QObject::tr("Click to move the stage to the current position"));
    m_context.imageChanged();
}

void Pictures::refuseClick() {
    m_context.information.showNote(QObject::tr("Live (F7) before a move"),
                                   QObject::tr("A click on a stored picture does not move the stage"));
}

} // namespace ocuva
