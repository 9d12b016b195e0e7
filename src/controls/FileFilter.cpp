#include "controls/FileFilter.h"

#include <QDir>
#include <QStringList>

namespace ocuva {

QList<FileKind> fileKinds(const QString& filter) {
    QList<FileKind> kinds;
    for (const QString& entry : filter.split(u'|')) {
        kinds.append({entry.section(u':', 0, 0), entry.section(QStringLiteral(":*."), 1)});
    }
    return kinds;
}

void offerKinds(QFileDialog& dialog, const QString& filter) {
    const QList<FileKind> kinds = fileKinds(filter);
    QStringList shown;
    for (const FileKind& kind : kinds) {
        shown.append(kind.shown);
    }
    dialog.setNameFilters(shown);
    dialog.setDefaultSuffix(kinds.front().extension);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, kinds](const QString& chosen) {
        for (const FileKind& kind : kinds) {
            if (kind.shown == chosen) {
                dialog.setDefaultSuffix(kind.extension);
            }
        }
    });
}

QString chosenFile(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

} // namespace ocuva
