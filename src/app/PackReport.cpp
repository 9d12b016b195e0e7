#include "app/PackReport.h"

#include "base/Product.h"
#include "controls/FileFilter.h"
#include "hostlink/UniqueKey.h"
#include "platform/PathOf.h"
#include "report/Report.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QSysInfo>

#include <utility>

namespace ocuva {

namespace {

const auto reportKinds = QStringLiteral("tar.gz (*.tar.gz):*.tar.gz|Zip (*.zip):*.zip");

QString firstFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString screenText(const QScreen& screen) {
    const QSize size = screen.geometry().size();
    return QStringLiteral("%1, %2 x %3, %4 dots/inch, scale %5")
        .arg(screen.name())
        .arg(size.width())
        .arg(size.height())
        .arg(screen.logicalDotsPerInch())
        .arg(screen.devicePixelRatio());
}

QString paletteText(const QWidget& window) {
    const bool dark =
        window.palette().window().color().lightness() < window.palette().windowText().color().lightness();
    return QStringLiteral("%1, style %2")
        .arg(dark ? QStringLiteral("dark") : QStringLiteral("light"), QApplication::style()->name());
}

} // namespace

std::string versionsText(const QWidget& window, const ReportSurroundings& surroundings,
                         const std::string& key) {
    const bool hostKeeps = surroundings.keeper == Keeper::hostLibraries;
    std::vector<std::pair<const char*, QString>> rows{
        {"report", QString::fromLocal8Bit(key)},
        {"program",
         QStringLiteral("%1 %2").arg(QString::fromLatin1(productTitle), QString::fromLatin1(productVersion))},
        {"time", QDateTime::currentDateTime()
                     .toOffsetFromUtc(QDateTime::currentDateTime().offsetFromUtc())
                     .toString(Qt::ISODate)},
        {"Qt", QStringLiteral("%1, built with %2")
                   .arg(QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR))},
        {"system", QStringLiteral("%1, %2 %3, %4")
                       .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                            QSysInfo::buildAbi())},
        {"host", surroundings.host},
        {"log and settings", hostKeeps ? QStringLiteral("kept by the host's libraries, not in this report")
                                       : QStringLiteral("in this report")},
        {"data folder", nameOf(surroundings.dataFolder)},
        {"trace",
         surroundings.trace.empty() ? QStringLiteral("none is written") : nameOf(surroundings.trace)},
        {"window system", QGuiApplication::platformName()},
        {"palette", paletteText(window)},
        {"locale", QLocale().name()},
        {"command line", QString::fromLocal8Bit(surroundings.commandLine)},
    };
    for (const QScreen* screen : QGuiApplication::screens()) {
        rows.emplace_back(screen == window.screen() ? "screen in use" : "screen", screenText(*screen));
    }
    QString text;
    for (const auto& [name, value] : rows) {
        text += QStringLiteral("%1: %2\n").arg(QString::fromLatin1(name), value);
    }
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QStringList names = environment.keys();
    names.sort();
    for (const QString& name : std::as_const(names)) {
        if (name.startsWith(QStringLiteral("OCUVA_"))) {
            text += QStringLiteral("%1: %2\n").arg(name, environment.value(name));
        }
    }
    return text.toStdString();
}

QString chooseReportFile(QWidget& owner, const QString& suggested) {
    QFileDialog dialog(&owner, QObject::tr("Pack Report"), QFileInfo(suggested).path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    offerKinds(dialog, reportKinds);
    // Without its extension, so that it gets that of the type chosen.
    dialog.selectFile(QFileInfo(suggested).fileName());
    return chosenFile(dialog);
}

PackReport::PackReport(PackReportContext context)
    : m_context(std::move(context)) {}

void PackReport::run() {
    const QString stem = QStringLiteral("ocuva-report-") +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmm"));
    const QString folder = QFileInfo(m_folder).isDir() ? m_folder : firstFolder();
    const QString name = m_context.choose(QDir(folder).filePath(stem));
    if (name.isEmpty()) {
        return;
    }
    m_folder = QFileInfo(name).absolutePath();
    m_context.log(QObject::tr("Pack report: '%1'").arg(name));
    auto hold = m_context.holdInput(QObject::tr("Packing the report…"));
    const ReportSurroundings& surroundings = m_context.surroundings;
    ReportContents contents{stem.toStdString(), dataFiles(surroundings.dataFolder, surroundings.keeper),
                            versionsText(m_context.window, surroundings, uniqueObjectKey(m_context.keys)),
                            QDir::homePath().toStdString()};
    for (ReportFile& file : traceFiles(surroundings.trace)) {
        contents.files.push_back(std::move(file));
    }
    packReport(pathOf(name), contents);
    hold.reset();
    m_context.note(QObject::tr("Report saved: '%1'").arg(name));
}

} // namespace ocuva
