#include "app/ProgramHosts.h"

#include "base/Product.h"
#include "controls/HostMessageBox.h"
#include "hostlink/CrashNote.h"
#include "hostlink/LibraryHost.h"
#include "hostlink/LoadWatch.h"
#include "hostlink/modServer.h"
#include "hosts/common/bus/MessageBus.h"
#include "hosts/common/services/DataFolder.h"
#include "hosts/simulated/SimulatedHost.h"
#include "platform/Notice.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace ocuva {

namespace {

constexpr const char* crashNoteName = "host-crash.note";
constexpr std::chrono::seconds patienceWithLibraries{20};

/// Records of calls into libraries, for a call that does not return.
struct WatchedHost {
    explicit WatchedHost(const std::filesystem::path& noteFile)
        : note(noteFile, mark) {}
    CallMark mark;
    CrashNote note;
};

void sayWhatCrashed(const std::filesystem::path& noteFile, bool serverMode) {
    const std::string crash = CrashNote::take(noteFile);
    if (crash.empty()) {
        return;
    }
    if (serverMode) {
        std::fprintf(stderr, "%s: %s\n", productTitle, crash.c_str());
    } else {
        QMessageBox::warning(nullptr, QString::fromLatin1(productTitle), QString::fromLocal8Bit(crash));
    }
}

/// How the program ends while its one thread is held by a library that does not finish loading.
LoadWatch::Late endingOf(bool serverMode) {
    return [serverMode, program = QCoreApplication::applicationFilePath().toLocal8Bit().toStdString()](
               const std::string& running) {
        const std::string words =
            "Ocuva has ended: " + running + " was not finished after " +
            std::to_string(patienceWithLibraries.count()) +
            " seconds. Check that file and the drive and device that it needs, then start Ocuva again.";
        std::fprintf(stderr, "%s\n", words.c_str());
        if (!serverMode) {
            showNotice(program, words);
        }
        std::_Exit(exitNoHost);
    };
}

ChosenHost simulatedHost(const HostRequest& request) {
    hosts::simulated::SimulatedHostOptions options;
    options.windows = &request.windows;
    options.showMessage = showHostMessageBox;
    auto host = std::make_unique<hosts::simulated::SimulatedHost>(std::move(options));
    const QString dataFolder = QString::fromStdString(host->dataFolder().string());
    // A world that runs faster puts a sleeping server to its end sooner, so that a trainee need not wait.
    const int minuteMs = qRound(host->clock().wallMs(modServer::idleTickMs));
    return {nullptr,
            std::move(host),
            QCoreApplication::translate("main", "%1 (simulated instrument)")
                .arg(QString::fromLatin1(productTitle)),
            dataFolder,
            minuteMs,
            Keeper::program,
            QStringLiteral("simulated")};
}

/// The host's own notifier is a component that its libraries do not export; ours takes its place, between the
/// copies of one user.
ChosenHost libraryHost(const HostRequest& request) {
    const std::filesystem::path& folder = request.folder;
    const std::filesystem::path meeting = hosts::DataFolder::locate();
    std::filesystem::create_directories(meeting);
    sayWhatCrashed(meeting / crashNoteName, request.serverMode);
    auto watched = std::make_shared<WatchedHost>(meeting / crashNoteName);
    const LoadWatch loading(watched->mark, patienceWithLibraries, endingOf(request.serverMode));
    auto bus = std::make_shared<hosts::MessageBus>(meeting, [](const std::string& /*line*/) {});
    auto host = std::make_unique<LibraryHost>(
        folder, [bus] { return bus->createNotifier(); }, &watched->mark);
    return {std::move(watched),
            std::move(host),
            QString::fromLatin1(productTitle),
            QString::fromStdString(meeting.string()),
            modServer::idleTickMs,
            Keeper::hostLibraries,
            QStringLiteral("libraries from %1")
                .arg(folder.empty() ? QStringLiteral("where the system looks for them") : nameOf(folder))};
}

std::optional<std::filesystem::path> alwaysThere(const HostSurroundings& /*surroundings*/) {
    return std::filesystem::path();
}

const NamedHost table[] = {
    {"library", DisplayWindows::Painter::host, findLibraries, libraryHost},
    {"sim", DisplayWindows::Painter::program, alwaysThere, simulatedHost},
};

} // namespace

std::span<const NamedHost> programHosts() { return table; }

} // namespace ocuva
