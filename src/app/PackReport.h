#pragma once
// "Pack Report...": packs the files that are needed to help an operator into one file.

#include "hostlink/Host.h"
#include "report/ReportFiles.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace ocuva {

/// The contents of a report that only the start of the program knows.
struct ReportSurroundings {
    std::filesystem::path dataFolder; ///< where log, journal and settings are looked for
    Keeper keeper = Keeper::program;  ///< who keeps log and settings there
    QString host;                     ///< the host in use, in words
    std::string commandLine;          ///< as typed, local encoding
    std::filesystem::path trace;      ///< empty if none is written
};

/// The surroundings of packing.
struct PackReportContext {
    QWidget& window;                 ///< whose screen is reported
    ReportSurroundings surroundings; ///< from the start of the program
    TnLogKeys& keys;                 ///< of the host; each report gets a key
    /// Asks for the file, suggesting a full name; empty if the operator cancels.
    std::function<QString(const QString& suggested)> choose;
    std::function<void(const QString&)> log;  ///< a line for the log
    std::function<void(const QString&)> note; ///< receives the place of the report
    /// Shows what the program is waiting for and blocks input for the life of the returned object.
    std::function<std::shared_ptr<void>(const QString& what)> holdInput;
};

/// One for the life of the window; each run makes a new report.
class PackReport {
public:
    /// Nothing is read yet.
    explicit PackReport(PackReportContext context);

    /// Packs into the file that the operator chooses. The window waits meanwhile. Throws ReportError.
    void run();

private:
    PackReportContext m_context;
    QString m_folder; // the folder of the last report
};

/// The common save dialog; a name without extension gets that of the chosen type. Empty: cancelled.
QString chooseReportFile(QWidget& owner, const QString& suggested);

/// The text about program, system and surroundings: one "name: value" per line, UTF-8. `window` is on the
/// reported screen, `key` identifies the report. Of the environment only variables that begin with OCUVA_.
std::string versionsText(const QWidget& window, const ReportSurroundings& surroundings,
                         const std::string& key);

} // namespace ocuva
