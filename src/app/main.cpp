// The composition root: chooses the host that stands behind the seam, and starts the program on it.

#include "app/Appearance.h"
#include "app/RunningCopies.h"
#include "app/modInter.h"
#include "base/Product.h"
#include "controls/HostMessageBox.h"
#include "hostlink/TracingHost.h"
#include "simhost/SimulatedHost.h"
#include "simhost/services/DataFolder.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

using namespace ocuva;

constexpr int exitNoDisplay = 2;
constexpr int exitNoDataFolder = 3;

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

int runOn(Host& host, DisplayWindows& windows, const std::string& commandLine, const QString& scope,
          int minuteMs) {
    NoAutomation automation;
    std::optional<RunningCopies> copies;
    const auto anotherCopyIsRunning = [&copies, &scope] { return copies.emplace(scope).anotherWasRunning(); };
    modInter inter({host, windows, automation, commandLine, anotherCopyIsRunning,
                    QCoreApplication::translate("main", "%1 (simulated instrument)")
                        .arg(QString::fromLatin1(productTitle)),
                    [] { QCoreApplication::exit(EXIT_SUCCESS); }, minuteMs});
    return inter.Main() ? QApplication::exec() : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const std::string commandLine = commandLineText(argc, argv);
    // Every word of the command line is the program's own; Qt takes none.
    int qtArgc = 1;
    const QtMessageHandler usualMessages = qInstallMessageHandler(quietStartMessages);
    QApplication application(qtArgc, argv);
    qInstallMessageHandler(usualMessages);
    QApplication::setApplicationName(QString::fromLatin1(productTitle));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(productDesktopId));
    QApplication::setApplicationVersion(QString::fromLatin1(productVersion));
    QApplication::setQuitOnLastWindowClosed(false);
    setAppearance(application);

    DisplayWindows windows;
    std::optional<simhost::SimulatedHost> simulatedHost;
    try {
        simhost::SimulatedHostOptions options;
        options.windows = &windows;
        options.showMessage = showHostMessageBox;
        simulatedHost.emplace(std::move(options));
    } catch (const std::exception& error) {
        ProcessFlags flags;
        scanCommandLine(commandLine, flags);
        refuseToStart(error.what(), flags.serverMode);
        return exitNoDataFolder;
    }
    const QString scope = QString::fromStdString(simulatedHost->dataFolder().string());

    // A world that runs faster puts a sleeping server to its end sooner, so that a trainee need not wait.
    const int minuteMs = qRound(simulatedHost->clock().wallMs(modServer::idleTickMs));

    const QString traceFile = qEnvironmentVariable("OCUVA_TRACE");
    if (traceFile.isEmpty()) {
        return runOn(*simulatedHost, windows, commandLine, scope, minuteMs);
    }
    TracingHost tracingHost(*simulatedHost, traceFile.toStdU16String());
    return runOn(tracingHost, windows, commandLine, scope, minuteMs);
}
