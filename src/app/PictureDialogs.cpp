#include "app/PictureDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <array>

namespace ocuva {

namespace {

constexpr const char* defaultName = "Video";
const auto folderPath = QStringLiteral("Pictures/Folder");

struct PictureType {
    const char* filter;
    const char* extension;
};
constexpr std::array<PictureType, 2> types{{{"TIFF (*.tif)", "tif"}, {"BMP (*.bmp)", "bmp"}}};

QString run(QFileDialog& dialog) {
    QStringList filters;
    for (const PictureType& type : types) {
        filters.append(QString::fromLatin1(type.filter));
    }
    dialog.setNameFilters(filters);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

QSettings store() {
    return {QSettings::NativeFormat, QSettings::UserScope, QString::fromLatin1(registryOrganisation),
            QString::fromLatin1(productTitle)};
}

} // namespace

QString choosePictureToOpen(QWidget& owner, const QString& folder) {
    QFileDialog dialog(&owner, QObject::tr("Open"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

QString choosePictureToSave(QWidget& owner, const QString& folder) {
    QFileDialog dialog(&owner, QObject::tr("Save As"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromLatin1(types.front().extension));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        for (const PictureType& type : types) {
            if (filter == QLatin1StringView(type.filter)) {
                dialog.setDefaultSuffix(QString::fromLatin1(type.extension));
            }
        }
    });
    dialog.selectFile(QString::fromLatin1(defaultName));
    return run(dialog);
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
