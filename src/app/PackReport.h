#pragma once
// "Pack Report...": what somebody who is asked for help needs to see, packed into one file.

#include "hostlink/Host.h"
#include "report/ReportFiles.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace ocuva {

/// What a report tells that only the start of the program knows.
struct ReportSurroundings {
    std::filesystem::path dataFolder; ///< where log, journal and settings are looked for
    Keeper keeper = Keeper::program;  ///< who keeps log and settings there
    QString host;                     ///< the host in use, in words
    std::string commandLine;          ///< as typed, local encoding
    std::filesystem::path trace;      ///< empty where none is written
};

/// What packing needs of the window.
struct PackReportContext {
    QWidget& window;                 ///< tells its screen
    ReportSurroundings surroundings; ///< what the start has told
    TnLogKeys& keys;                 ///< of the host; each report has one of its own
    /// Asks for the file, beginning with a full name; empty when the operator cancels.
    std::function<QString(const QString& suggested)> choose;
    std::function<void(const QString&)> log;  ///< a line for the log
    std::function<void(const QString&)> note; ///< told where the report is
    /// Shows what the program is busy with and keeps input away, as long as what it returns lives.
    std::function<std::shared_ptr<void>(const QString& what)> holdInput;
};

/// One for the life of the window; each run makes a report of its own.
class PackReport {
public:
    /// Nothing is read yet.
    explicit PackReport(PackReportContext context);

    /// Packs into the file that the operator chooses. The window waits meanwhile. Throws ReportError.
    void run();

private:
    PackReportContext m_context;
    QString m_folder; // where the last one went
};

/// The common save dialog; a name without extension gets that of the chosen type. Empty: cancelled.
QString chooseReportFile(QWidget& owner, const QString& suggested);

/// The text about program, system and surroundings: one "name: value" a line, UTF-8. `window` is on the
/// screen that it tells of, `key` tells the report from every other. Of the environment only what begins
/// with OCUVA_.
std::string versionsText(const QWidget& window, const ReportSurroundings& surroundings,
                         const std::string& key);

} // namespace ocuva
