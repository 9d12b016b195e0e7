#include "controls/FileFilter.h"

namespace ocuva {

QList<FileKind> fileKinds(const QString& filter) {
    QList<FileKind> kinds;
    for (const QString& entry : filter.split(u'|')) {
        kinds.append({entry.section(u':', 0, 0), entry.section(QStringLiteral("*."), -1)});
    }
    return kinds;
}

QStringList shownKinds(const QList<FileKind>& kinds) {
    QStringList shown;
    for (const FileKind& kind : kinds) {
        shown.append(kind.shown);
    }
    return shown;
}

} // namespace ocuva
