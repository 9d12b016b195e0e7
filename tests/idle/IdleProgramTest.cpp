// An idle program must leave the machine to the running measurement: with live off and nothing moving, no
// timer or thread of its own wakes it. Counted, not timed, so that a busy machine does not matter.

#include "app/modInter.h"
#include "hosts/simulated/SimulatedHost.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace ocuva;

namespace {

constexpr int watchedMs = 1500;

struct Wakes {
    int eventLoop = 0;    // times the event loop came back from waiting
    long long others = 0; // times any other thread went to sleep: each time something woke it first
};

// Where the system tells; nothing elsewhere.
long long sleepsOfOtherThreads() {
    long long sleeps = 0;
#ifdef __linux__
    const auto own = std::to_string(QCoreApplication::applicationPid());
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        if (thread.path().filename() == own) {
            continue;
        }
        std::ifstream status(thread.path() / "status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind("voluntary_ctxt_switches:", 0) == 0) {
                sleeps += std::stoll(line.substr(line.find(':') + 1));
            }
        }
    }
#endif
    return sleeps;
}

void runEventLoop(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

Wakes watch() {
    Wakes wakes;
    const auto connection =
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         [&wakes] { ++wakes.eventLoop; });
    const long long before = sleepsOfOtherThreads();
    runEventLoop(watchedMs);
    wakes.others = sleepsOfOtherThreads() - before;
    QObject::disconnect(connection);
    return wakes;
}

struct WholeProgram : testing::Test {
    QTemporaryDir folder;
    DisplayWindows windows;
    NoAutomation automation;
    std::optional<hosts::simulated::SimulatedHost> host;
    std::optional<modInter> inter;

    void SetUp() override {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        hosts::simulated::SimulatedHostOptions options;
        options.dataFolder = (folder.path() + QStringLiteral("/data")).toStdString();
        options.windows = &windows;
        host.emplace(std::move(options));
        inter.emplace(StartContext{*host, windows, automation, "", [] { return false; },
                                   QStringLiteral("Ocuva (test)"), [] {}});
        ASSERT_TRUE(inter->Main());
        ASSERT_TRUE(QTest::qWaitFor([&] { return display().framesShown() > 0; }, 60000));
    }
    MilDisplay& display() { return *inter->mainWindow().panels().milDisp; }
};

} // namespace

TEST_F(WholeProgram, SleepsWhenLiveIsOffAndNothingMoves) {
    inter->mainWindow().run(command("mnuAcq"));
    runEventLoop(500); // what the halt itself still brings
    const std::uint64_t shown = display().framesShown();
    const Wakes wakes = watch();
    EXPECT_EQ(display().framesShown(), shown);
    // The end of the watch, and room for a single event from outside.
    EXPECT_LE(wakes.eventLoop, 4);
    EXPECT_LE(wakes.others, 2);
}

// The counts see what they are there for.
TEST_F(WholeProgram, IsAwakeWhenLiveIsOn) {
    const Wakes wakes = watch();
    EXPECT_GT(wakes.eventLoop, 4);
}
