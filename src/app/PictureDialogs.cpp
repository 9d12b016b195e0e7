#include "app/PictureDialogs.h"

#include "controls/FileFilter.h"
#include "controls/UserRegistry.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

namespace ocuva {

namespace {

constexpr const char* defaultName = "Video";
const auto pictureKinds = QStringLiteral("TIFF (*.tif):*.tif"
                                         "|BMP (*.bmp):*.bmp");
const auto folderPath = QStringLiteral("Pictures/Folder");

UserRegistry store() { return UserRegistry(); }

} // namespace

QString choosePictureToOpen(QWidget& owner, const QString& folder) {
    QFileDialog dialog(&owner, QObject::tr("Open"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    offerKinds(dialog, pictureKinds);
    return chosenFile(dialog);
}

QString choosePictureToSave(QWidget& owner, const QString& folder) {
    QFileDialog dialog(&owner, QObject::tr("Save As"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    offerKinds(dialog, pictureKinds);
    dialog.selectFile(QString::fromLatin1(defaultName));
    return chosenFile(dialog);
}

DescriptionChoice askBeforeSave(QWidget& owner, const SaveQuestion& question) {
    QStringList sentences = question.losses;
    if (question.description) {
        sentences << question.description->text;
    }
    QMessageBox box(QMessageBox::Warning, QObject::tr("Save As"), sentences.join(u'\n'), QMessageBox::Cancel,
                    &owner);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(QMessageBox::Cancel);
    if (!question.description) {
        QPushButton* save = box.addButton(QMessageBox::Save);
        box.setDefaultButton(QMessageBox::Cancel);
        box.exec();
        return box.clickedButton() == save ? DescriptionChoice::Write : DescriptionChoice::Cancel;
    }
    box.setInformativeText(question.description->more);
    QPushButton* omit = box.addButton(QObject::tr("Save &Without"), QMessageBox::AcceptRole);
    omit->setToolTip(QObject::tr("Save the picture without a description"));
    QPushButton* write = box.addButton(QObject::tr("Write It &Anyway"), QMessageBox::DestructiveRole);
    write->setToolTip(QObject::tr("Save the picture with the description of the other view"));
    if (question.losses.isEmpty()) {
        box.setDefaultButton(omit);
    } else {
        box.setDefaultButton(QMessageBox::Cancel);
    }
    box.exec();
    return box.clickedButton() == omit    ? DescriptionChoice::Omit
           : box.clickedButton() == write ? DescriptionChoice::Write
                                          : DescriptionChoice::Cancel;
}

QString PictureFolder::last() const {
    QString folder = store().value(folderPath).toString();
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
        return folder;
    }
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

void PictureFolder::remember(const QString& pictureName) const {
    store().setValue(folderPath, QFileInfo(pictureName).absolutePath());
}

} // namespace ocuva
