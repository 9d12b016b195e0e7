// What the whole program costs in a real window: its start beside that of an empty window, a click on its way
// to the stage, and a live picture. Needs a display; bench/run brings a virtual one.

#include "app/modInter.h"
#include "simhost/SimulatedHost.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace ocuva;

using Seconds = std::chrono::duration<double>;

constexpr const char* emptyWindowSwitch = "--start-empty-window";
constexpr const char* programSwitch = "--start-program";
constexpr const char* stillProgramSwitch = "--still-program";
constexpr const char* movingProgramSwitch = "--moving-program";
constexpr int liveMs = 4000;
constexpr int stillSeconds = 10;
constexpr int launches = 15;

double processCpuSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

void spinEventLoop(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// Tells when the program loads a stage move, and hands everything on.
class WatchedStage final : public TnMicroProxy {
public:
    explicit WatchedStage(TnMicroProxy& stage)
        : m_stage(stage) {}
    std::chrono::steady_clock::time_point loaded;

    TarnLong TarnStartStage(TarnLong axis) override { return m_stage.TarnStartStage(axis); }
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override {
        return m_stage.TarnLoadStageAbs(axis, target);
    }
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override {
        if (axis == axisX) {
            loaded = std::chrono::steady_clock::now();
        }
        return m_stage.TarnLoadStageRelSecure(axis, distance);
    }
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override {
        return m_stage.TarnReadStagePos(axis, position);
    }
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override {
        return m_stage.TarnReadStageStatus(axis, zero, status);
    }
    TarnLong TarnAutoFocusExt(TarnLong flag) override { return m_stage.TarnAutoFocusExt(flag); }
    TarnLong TarnBacklashStage(TarnLong axis) override { return m_stage.TarnBacklashStage(axis); }

private:
    TnMicroProxy& m_stage;
};

class WatchedHost final : public Host {
public:
    explicit WatchedHost(Host& host)
        : stage(host.tn_micro_proxy())
        , m_host(host) {}
    WatchedStage stage;

    TnReg& tn_reg() override { return m_host.tn_reg(); }
    TnLog& tn_log() override { return m_host.tn_log(); }
    TnLogKeys& Tn_log() override { return m_host.Tn_log(); }
    TnOcuva& tn_ocuva() override { return m_host.tn_ocuva(); }
    TnLibProxy& tn_lib_proxy() override { return m_host.tn_lib_proxy(); }
    TnMicroProxy& tn_micro_proxy() override { return stage; }
    TnVideo& tn_video() override { return m_host.tn_video(); }
    TnVduti& tn_vduti() override { return m_host.tn_vduti(); }
    std::unique_ptr<Notifier> createNotifier() override { return m_host.createNotifier(); }

private:
    Host& m_host;
};

// The program as it starts on the bench: its own data folder, live from the start.
struct Program {
    explicit Program(const QString& folder) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
        simhost::SimulatedHostOptions options;
        options.dataFolder = (folder + QStringLiteral("/data")).toStdString();
        options.windows = &windows;
        simulated.emplace(std::move(options));
        host.emplace(*simulated);
        inter.emplace(StartContext{*host, windows, automation, "", [] { return false; },
                                   QStringLiteral("bench"), [] {}});
        inter->Main();
    }
    MilDisplay& display() { return *inter->mainWindow().panels().milDisp; }

    DisplayWindows windows;
    NoAutomation automation;
    std::optional<simhost::SimulatedHost> simulated;
    std::optional<WatchedHost> host;
    std::optional<modInter> inter;
};

class EmptyWindow final : public QWidget {
protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    }
};

// Memory that this process has in use, in megabytes; 0 where the system does not tell.
double residentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::strtod(line.c_str() + 6, nullptr) / 1024.0;
        }
    }
    return 0.0;
}

int leaveWith(int result) {
    std::printf("%.2f\n", residentMegabytes());
    return result;
}

int startEmptyWindow() {
    EmptyWindow window;
    window.resize(546, 448);
    window.show();
    return leaveWith(QApplication::exec());
}

int startProgram(const QString& folder) {
    Program program(folder);
    QObject::connect(&program.display(), &MilDisplay::frameShown, qApp, [] { QCoreApplication::exit(0); });
    return leaveWith(QApplication::exec());
}

// Live is off and nothing moves, until somebody ends the process.
int stillProgram(const QString& folder) {
    Program program(folder);
    program.inter->mainWindow().run(Command::Acquire);
    return QApplication::exec();
}

// Sends the stage to and fro over ground that was never seen, at full speed.
void moveStage(TnMicroProxy& stage, QTimer& timer) {
    const auto row = std::make_shared<int>(0);
    const auto sweep = [&stage, row] {
        TarnLong moving = 0;
        stage.TarnReadStageStatus(axisX, 0, &moving);
        if (moving == 0) {
            ++*row;
            stage.TarnLoadStageAbs(axisX, *row % 2 == 0 ? -30000.0F : 30000.0F);
            stage.TarnLoadStageAbs(axisY, static_cast<float>(20000 + 500 * *row));
            stage.TarnStartStage(axisX);
            stage.TarnStartStage(axisY);
        }
    };
    QObject::connect(&timer, &QTimer::timeout, sweep);
    sweep();
    timer.start(100);
}

int movingProgram(const QString& folder) {
    Program program(folder);
    QTimer timer;
    moveStage(program.simulated->tn_micro_proxy(), timer);
    QTimer::singleShot(liveMs, qApp, [] { QCoreApplication::exit(0); });
    return leaveWith(QApplication::exec());
}

struct Launch {
    double ms;
    double residentMegabytes;
};

// One run of this program with that switch, from its launch to its end.
Launch launch(const char* what, const QString& folder) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const auto begin = std::chrono::steady_clock::now();
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(what), folder});
    process.waitForFinished(60000);
    const double ms = Seconds(std::chrono::steady_clock::now() - begin).count() * 1000.0;
    return {ms, process.readAllStandardOutput().trimmed().toDouble()};
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// In turn, so that a busy machine slows both alike; medians.
void startToFirstLiveFrame(benchmark::State& state) {
    const QTemporaryDir folder;
    launch(programSwitch, folder.path()); // seeds the data folder and warms the caches
    std::vector<double> empty;
    std::vector<double> program;
    std::vector<double> ratio;
    for (auto _ : state) {
        for (int i = 0; i < launches; ++i) {
            const Launch emptyLaunch = launch(emptyWindowSwitch, folder.path());
            const Launch programLaunch = launch(programSwitch, folder.path());
            empty.push_back(emptyLaunch.ms);
            program.push_back(programLaunch.ms);
            ratio.push_back(programLaunch.ms / emptyLaunch.ms);
            state.counters["emptyMB"] = emptyLaunch.residentMegabytes;
            state.counters["programMB"] = programLaunch.residentMegabytes;
        }
    }
    state.counters["emptyMs"] = median(empty);
    state.counters["programMs"] = median(program);
    state.counters["ratio"] = median(ratio);
    state.counters["movingMB"] = launch(movingProgramSwitch, folder.path()).residentMegabytes;
}
BENCHMARK(startToFirstLiveFrame)->Iterations(1)->Unit(benchmark::kMillisecond);

// How often any thread of that process went to sleep: each time something woke it first.
long long sleepsOf(qint64 processId) {
    long long sleeps = 0;
    std::error_code error;
    const std::filesystem::path threads = "/proc/" + std::to_string(processId) + "/task";
    for (const auto& thread : std::filesystem::directory_iterator(threads, error)) {
        std::ifstream status(thread.path() / "status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind("voluntary_ctxt_switches:", 0) == 0) {
                sleeps += std::atoll(line.c_str() + line.find(':') + 1);
            }
        }
    }
    return sleeps;
}

// Seen from outside, by a process that disturbs nothing.
void wakeUpsOfAStillProgram(benchmark::State& state) {
    const QTemporaryDir folder;
    launch(programSwitch, folder.path());
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromLatin1(stillProgramSwitch), folder.path()});
    process.waitForStarted();
    spinEventLoop(3000);
    for (auto _ : state) {
        const long long before = sleepsOf(process.processId());
        spinEventLoop(stillSeconds * 1000);
        state.counters["wakeUps"] = static_cast<double>(sleepsOf(process.processId()) - before);
    }
    process.kill();
    process.waitForFinished();
}
BENCHMARK(wakeUpsOfAStillProgram)->Iterations(1)->Unit(benchmark::kMillisecond);

void sendClick(QWidget& widget, QPoint at) {
    const QPointF global = widget.mapToGlobal(QPointF(at));
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &release);
}

void baselineClickOnAnEmptyWidget(benchmark::State& state) {
    QWidget widget;
    widget.resize(100, 100);
    widget.show();
    for (auto _ : state) {
        sendClick(widget, {50, 50});
    }
}
BENCHMARK(baselineClickOnAnEmptyWidget)->Unit(benchmark::kMicrosecond);

void clickToStageLoad(benchmark::State& state) {
    const QTemporaryDir folder;
    Program program(folder.path());
    spinEventLoop(500);
    int side = 1;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        sendClick(program.display(), {192 + 4 * side, 144});
        state.SetIterationTime(Seconds(program.host->stage.loaded - begin).count());
        side = -side;
    }
}
BENCHMARK(clickToStageLoad)->UseManualTime()->Iterations(200)->Unit(benchmark::kMicrosecond);

// CPU time of the whole process in per cent of one core while the event loop runs.
double cpuPercentOverLiveTime() {
    QElapsedTimer elapsed;
    elapsed.start();
    const double begin = processCpuSeconds();
    spinEventLoop(liveMs);
    return (processCpuSeconds() - begin) * 100.0 / (static_cast<double>(elapsed.nsecsElapsed()) * 1e-9);
}

void baselineStillPicture(benchmark::State& state) {
    const QTemporaryDir folder;
    Program program(folder.path());
    program.inter->mainWindow().run(Command::Acquire);
    spinEventLoop(300);
    for (auto _ : state) {
        state.counters["cpu%"] = cpuPercentOverLiveTime();
    }
}
BENCHMARK(baselineStillPicture)->Iterations(1)->Unit(benchmark::kMillisecond);

// Every frame that the camera takes comes onto the window, once.
void measureLive(benchmark::State& state, Program& program) {
    const MilDisplay& display = program.display();
    std::int64_t number = 0; // of the frame that was shown last
    QObject::connect(&display, &MilDisplay::frameShown, &display,
                     [&] { number = display.shownFrame()->number; });
    spinEventLoop(1000);
    for (auto _ : state) {
        const std::uint64_t shownBefore = display.framesShown();
        const std::uint64_t droppedBefore = display.framesDropped();
        const std::int64_t numberBefore = number;
        state.counters["cpu%"] = cpuPercentOverLiveTime();
        state.counters["taken"] = static_cast<double>(number - numberBefore);
        state.counters["shown"] = static_cast<double>(display.framesShown() - shownBefore);
        state.counters["dropped"] = static_cast<double>(display.framesDropped() - droppedBefore);
    }
}

void liveAt25FramesPerSecond(benchmark::State& state) {
    const QTemporaryDir folder;
    Program program(folder.path());
    measureLive(state, program);
}
BENCHMARK(liveAt25FramesPerSecond)->Iterations(1)->Unit(benchmark::kMillisecond);

void liveWhileTheStageMoves(benchmark::State& state) {
    const QTemporaryDir folder;
    Program program(folder.path());
    QTimer timer;
    moveStage(program.simulated->tn_micro_proxy(), timer);
    measureLive(state, program);
}
BENCHMARK(liveWhileTheStageMoves)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc > 2) {
        const QString folder = QString::fromLocal8Bit(argv[2]);
        const std::string_view what = argv[1];
        if (what == emptyWindowSwitch) {
            return startEmptyWindow();
        }
        if (what == programSwitch) {
            return startProgram(folder);
        }
        if (what == stillProgramSwitch) {
            return stillProgram(folder);
        }
        if (what == movingProgramSwitch) {
            return movingProgram(folder);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
