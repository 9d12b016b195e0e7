#include "pictures/CameraImage.h"

#include "pictures/PictureFile.h"
#include "pictures/PictureNotes.h"
#include "platform/PathOf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QTemporaryDir>

namespace ocuva {

namespace {

// Why the folder cannot take an image; empty if it can. The host does not say why it has written no file
// or only part of one, and free space does not account for quotas, so this writes a trial file.
QString roomTrouble(const QTemporaryDir& folder) {
    constexpr qint64 wanted = qint64{64} * 1024 * 1024; // a camera's image of 20 million pixels in colour
    const QByteArray piece(1024 * 1024, '.');
    QFile probe(folder.filePath(QStringLiteral("room")));
    bool written = probe.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    // A disk that becomes full takes a part of a piece; only the next one is refused with the reason.
    while (written && probe.size() < wanted) {
        written = probe.write(piece) > 0;
    }
    QString trouble = written ? QString() : probe.errorString();
    probe.remove();
    return trouble;
}

[[noreturn]] void failForRoom(const QTemporaryDir& folder, const QString& trouble) {
    throw PictureFileError(
        QObject::tr(
            "The camera's image could not be taken: the temporary folder \"%1\" has no room for it (%2). "
            "Make room there and save again")
            .arg(QDir::toNativeSeparators(QFileInfo(folder.path()).absolutePath()), trouble));
}

} // namespace

Picture cameraImage(CTnVideoImage& image, const CTnStage& stage, const Magnification& magnification,
                    const QString& advice) {
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        throw PictureFileError(
            QStringLiteral("There is no folder for the camera's image: %1").arg(folder.errorString()));
    }
    const QString name = folder.filePath(QStringLiteral("image.tif"));
    const QDateTime now = QDateTime::currentDateTime();
    image.Dump(QDir::toNativeSeparators(name).toLocal8Bit().toStdString());
    const StagePosition stand{stage.X(), stage.Y(), stage.Z()};
    if (!QFileInfo::exists(name)) {
        if (const QString trouble = roomTrouble(folder); !trouble.isEmpty()) {
            failForRoom(folder, trouble);
        }
        // The host's answer is not examined anywhere; the missing file is the answer.
        throw PictureFileError(
            QStringLiteral("There is no image to save: the video board has not delivered one. ") + advice);
    }
    Picture picture;
    try {
        picture = openPicture(pathOf(name));
    } catch (const PictureFileError&) {
        if (const QString trouble = roomTrouble(folder); !trouble.isEmpty()) {
            failForRoom(folder, trouble);
        }
        throw;
    }
    picture.scale = fieldScale(magnification, picture.image.size());
    picture.notes = cameraNotes(stand, magnification);
    picture.taken = now;
    return picture;
}

} // namespace ocuva
