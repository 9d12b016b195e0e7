// The composition root: chooses the host and starts the program with it.

#include "app/Appearance.h"
#include "app/ErrorEdge.h"
#include "app/HostChoice.h"
#include "app/KeepingWatch.h"
#include "app/ProgramHosts.h"
#include "app/RunningCopies.h"
#include "app/SecondStart.h"
#include "app/modInter.h"
#include "base/Product.h"
#include "hostlink/LibraryHost.h"
#include "hostlink/ObservedHost.h"
#include "hostlink/TracingHost.h"
#include "journal/Journal.h"
#include "platform/Notice.h"
#include "platform/PathOf.h"
#include "platform/SystemAutomation.h"

#include <QApplication>
#include <QDateTime>
#include <QMessageBox>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

using namespace ocuva;

constexpr int exitNoDisplay = 2;
constexpr std::chrono::seconds startPatience{60}; // with a slow board; then the other copy is woken on trust
constexpr int exitNoCopies = 4;                   // it cannot be found out whether another copy runs
constexpr int exitNotReached = 5;                 // another copy runs and does not answer

/// It cannot be found out whether another copy runs.
struct CopiesUnknown : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string commandLineText(int argc, char** argv) {
    std::string text;
    for (int i = 1; i < argc; ++i) {
        text += (i > 1 ? " " : "") + std::string(argv[i]);
    }
    return text;
}

void failWithoutDisplay(const char* display) {
    std::fprintf(stderr, "%s: cannot open a window: the display \"%s\" does not answer\n", productTitle,
                 display);
    std::_Exit(exitNoDisplay);
}

// While the application object is made, Qt would explain a missing display in many lines and then abort.
void quietStartMessages(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
    if (type == QtFatalMsg) {
        const char* display = std::getenv("DISPLAY");
        failWithoutDisplay(display != nullptr ? display : "");
    }
}

void refuseToStart(const std::string& reason, bool serverMode) {
    if (serverMode) {
        std::fprintf(stderr, "%s: %s\n", productTitle, reason.c_str());
    } else {
        QMessageBox::critical(nullptr, QString::fromLatin1(productTitle), QString::fromLocal8Bit(reason));
    }
}

std::optional<std::string> environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

ChosenHost chosenHost(std::optional<DisplayWindows>& windows, bool serverMode) {
    const std::string programFolder = QCoreApplication::applicationDirPath().toStdString();
    const HostChoice choice =
        chooseHost(programHosts(), {environment("OCUVA_HOST"), environment("OCUVA_HOST_LIBRARIES"),
                                    programFolder, LibraryHost::allIn});
    windows.emplace(choice.host->painter);
    return choice.host->make({choice.folder, *windows, serverMode});
}

/// ISO 8601, to the millisecond, with the zone.
std::string timeNow() {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs).toStdString();
}

/// Ends a start that found another copy. If that copy does not respond, the start must not end without an
/// explanation.
int endAsSecond(Host& host, bool taken, bool serverMode) {
    constexpr std::chrono::seconds patience{15}; // a start takes no longer, on the slowest of machines
    if (serverMode || taken || wakeWithin(host.tn_ocuva(), patience)) {
        return EXIT_SUCCESS;
    }
    refuseToStart(QCoreApplication::translate("main",
                                              "Another copy of %1 is running, but it does not answer. "
                                              "Close it, or end its process, and start again.")
                      .arg(QString::fromLatin1(productTitle))
                      .toLocal8Bit()
                      .toStdString(),
                  serverMode);
    return exitNotReached;
}

int runOn(Application& application, Host& askedHost, DisplayWindows& windows, const std::string& commandLine,
          const ChosenHost& chosen, const QString& traceFile) {
    const std::unique_ptr<Automation> automation = systemAutomation();
    std::optional<RunningCopies> copies;
    const auto anotherCopyIsRunning = [&] {
        copies.emplace(chosen.dataFolder);
        return copies->problem().isEmpty()
                   ? copies->anotherWasRunning()
                   : throw CopiesUnknown(copies->problem().toLocal8Bit().toStdString());
    };
    modInter* window = nullptr;
    const std::filesystem::path dataFolder = pathOf(chosen.dataFolder);
    KeepingWatch keeping(dataFolder, [&window](const QString& note, const QString& advice) {
        if (window != nullptr) {
            window->mainWindow().showNote(note, advice);
        }
    });
    bool wakeTaken = false;
    ObservedHost host(askedHost,
                      {[&keeping] { keeping.lost(); }, [&wakeTaken](bool taken) { wakeTaken = taken; }});
    Journal journal(dataFolder / "journal.csv", timeNow, [&](const std::string& trouble) {
        host.tn_log().TarnPrintfVB(("The journal " + trouble + ".\n").c_str());
        keeping.lost();
    });
    const ReportSurroundings report{dataFolder, chosen.keeper, chosen.description, commandLine,
                                    pathOf(traceFile)};
    modInter inter({host, windows, *automation, commandLine, anotherCopyIsRunning, chosen.title,
                    [] { QCoreApplication::exit(EXIT_SUCCESS); }, chosen.minuteMs,
                    [&journal](const JournalEntry& entry) { journal.write(entry); }, report,
                    [&copies] { return copies->waitUntilOthersAreUp(startPatience); },
                    [&copies] { copies->startedUp(); }});
    try {
        if (!inter.Main()) {
            const bool knowsAnswer = chosen.keeper == Keeper::program;
            return endAsSecond(host, wakeTaken || !knowsAnswer, inter.flags().serverMode);
        }
    } catch (const CopiesUnknown& error) {
        refuseToStart(error.what(), inter.flags().serverMode);
        return exitNoCopies;
    }
    window = &inter;
    application.eventErrors().setReport(
        [&inter](const QString& text) { inter.mainWindow().reportError(text); });
    const int code = QApplication::exec();
    application.eventErrors().setReport({});
    return code;
}

} // namespace

int main(int argc, char** argv) {
    const std::string commandLine = commandLineText(argc, argv);
    // Every word of the command line is the program's own; Qt takes none.
    int qtArgc = 1;
    const QtMessageHandler usualMessages = qInstallMessageHandler(quietStartMessages);
    Application application(qtArgc, argv);
    qInstallMessageHandler(usualMessages);
    QApplication::setApplicationName(QString::fromLatin1(productTitle));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(productDesktopId));
    QApplication::setApplicationVersion(QString::fromLatin1(productVersion));
    QApplication::setQuitOnLastWindowClosed(false);
    setAppearance(application);

    if (const QByteArray notice = qgetenv(noticeVariable); !notice.isEmpty()) {
        refuseToStart(notice.toStdString(), false);
        return EXIT_SUCCESS;
    }

    ProcessFlags flags;
    scanCommandLine(commandLine, flags);
    std::optional<DisplayWindows> windows;
    ChosenHost chosen;
    try {
        chosen = chosenHost(windows, flags.serverMode);
    } catch (const std::exception& error) {
        refuseToStart(error.what(), flags.serverMode);
        return exitNoHost;
    }

    const QString traceFile = qEnvironmentVariable("OCUVA_TRACE");
    const auto start = [&] {
        if (traceFile.isEmpty()) {
            return runOn(application, *chosen.host, *windows, commandLine, chosen, traceFile);
        }
        TracingHost tracingHost(*chosen.host, pathOf(traceFile));
        return runOn(application, tracingHost, *windows, commandLine, chosen, traceFile);
    };
    return startOrExplain(start,
                          [&flags](const std::string& reason) { refuseToStart(reason, flags.serverMode); });
}
