#include "app/help/ManualText.h"

#include <QCoreApplication>
#include <QFile>

namespace ocuva {

namespace {

QString translated(const char* text) { return QCoreApplication::translate("ManualText", text); }

QString page(const QDir& folder, const QString& name) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return translated("# A page is missing\n\nThe page `%1` cannot be read: %2.")
            .arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
    }
    return QString::fromUtf8(file.readAll());
}

QString tableCell(QString text) { return text.replace(u'|', QStringLiteral("\\|")); }

} // namespace

QString keysTitle() { return translated("Keys"); }

QString keysPage(const std::vector<KeyRow>& keys) {
    QString text =
        QStringLiteral("# ") + keysTitle() + translated("\n\n| key | command | menu |\n|---|---|---|\n");
    for (const KeyRow& row : keys) {
        text += QStringLiteral("| **%1** | %2 | %3 |\n")
                    .arg(tableCell(row.key), tableCell(row.command), tableCell(row.menu));
    }
    return text;
}

QDir manualFolder(const QString& programFolder) {
#ifdef Q_OS_WIN
    const QString place = QStringLiteral("/manual");
#else
    const QString place = QStringLiteral("/../share/ocuva/manual");
#endif
    return QDir(QDir::cleanPath(programFolder + place));
}

QString helpText(const QDir& folder, const std::vector<KeyRow>& keys) {
    return page(folder, QStringLiteral("manual.md")) + QStringLiteral("\n\n") + keysPage(keys) +
           QStringLiteral("\n\n") + page(folder, QStringLiteral("training.md"));
}

} // namespace ocuva
