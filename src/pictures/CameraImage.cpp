#include "pictures/CameraImage.h"

#include "pictures/PictureFile.h"
#include "pictures/PictureNotes.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace ocuva {

Picture cameraImage(CTnVideoImage& image, const CTnStage& stage, const Magnification& magnification) {
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        throw PictureFileError(
            QStringLiteral("There is no folder for the camera's image: %1").arg(folder.errorString()));
    }
    const QString name = folder.filePath(QStringLiteral("image.tif"));
    const QDateTime now = QDateTime::currentDateTime();
    image.Dump(QDir::toNativeSeparators(name).toLocal8Bit().toStdString());
    const StageStand stand{stage.X(), stage.Y(), stage.Z()};
    if (!QFileInfo::exists(name)) {
        // The host's answer is not examined anywhere; the missing file is the answer.
        throw PictureFileError(QStringLiteral(
            "There is no image to save: the video board has given none. Start the live image (F7), "
            "and see the host's log if it goes on"));
    }
    Picture picture = openPicture(std::filesystem::path(name.toStdU16String()));
    picture.scale = fieldScale(magnification, picture.image.size());
    picture.notes = cameraNotes(stand, magnification);
    picture.taken = now;
    return picture;
}

} // namespace ocuva
