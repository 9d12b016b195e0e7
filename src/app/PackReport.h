#pragma once
// "Pack Report...": what somebody who is asked for help needs to see, packed into one file.

#include "hostlink/Host.h"
#include "report/ReportFiles.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <string>

namespace ocuva {

/// What a report tells that only the start of the program knows.
struct ReportSurroundings {
    std::filesystem::path dataFolder;
    Keeper keeper = Keeper::program;
    QString host;                ///< the host in use, in words
    std::string commandLine;     ///< as typed, local encoding
    std::filesystem::path trace; ///< empty where none is written
};

/// What packing needs of the window.
struct PackReportContext {
    QWidget& window;
    ReportSurroundings surroundings;
    TnLogKeys& keys; ///< of the host; each report has one of its own
    /// Asks for the file, beginning with a full name; empty when the operator cancels.
    std::function<QString(const QString& suggested)> choose;
    std::function<void(const QString&)> log;  ///< a line for the log
    std::function<void(const QString&)> note; ///< told where the report is
};

class PackReport {
public:
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
