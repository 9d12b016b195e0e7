// What the whole program costs in a real window: its start compared with that of an empty window, a click on its way
// to the stage, and a live picture. Needs a display; bench/run brings a virtual one.

#include "RunningProgram.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
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
using namespace ocuva::bench;

using Seconds = std::chrono::duration<double>;

constexpr const char* emptyWindowSwitch = "--start-empty-window";
constexpr const char* programSwitch = "--start-program";
constexpr const char* stillProgramSwitch = "--still-program";
constexpr const char* movingProgramSwitch = "--moving-program";
constexpr int liveMs = 4000;
constexpr int stillSeconds = 10;
constexpr int overlayPairs = 9;
constexpr int overlayMs = 1500;
constexpr int launches = 15;

double processCpuSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

void spinEventLoop(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

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
    program.inter->mainWindow().run(command("mnuAcq"));
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
    program.inter->mainWindow().run(command("mnuAcq"));
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

void showAllOverlays(frmOcuva& window, bool on) {
    const std::pair<const char*, bool> overlays[]{
        {"mnuCross", window.overlays().bShowCross()},
        {"mnuGrid", window.overlays().bShowGrid()},
        {"mnuMicroMarker", window.panels().frMicroMarker->isVisible()},
    };
    for (const auto& [name, shown] : overlays) {
        if (shown != on) {
            window.run(command(name));
        }
    }
}

// Without and with all overlays in turn, so that a busy machine slows both alike; CPU time of the whole
// process per frame, medians. The argument is the grid's pitch on the picture at 1:2.
void liveWithAllOverlays(benchmark::State& state) {
    const QTemporaryDir folder;
    const auto pitch = static_cast<Long>(2 * state.range(0));
    const auto shape = [&](Program& program) {
        Settings(program.host->tn_reg()).writeGrid({pitch, pitch, 2});
        Settings(program.host->tn_reg()).writeCross({200, 4});
    };
    std::optional<Program> program(folder.path());
    shape(*program);
    program.reset();
    program.emplace(folder.path());
    frmOcuva& window = program->inter->mainWindow();
    const MilDisplay& display = program->display();
    spinEventLoop(1000);
    const auto cpuMsPerFrame = [&](bool on) {
        showAllOverlays(window, on);
        spinEventLoop(200);
        const std::uint64_t shownBefore = display.framesShown();
        const double begin = processCpuSeconds();
        spinEventLoop(overlayMs);
        return (processCpuSeconds() - begin) * 1000.0 /
               static_cast<double>(display.framesShown() - shownBefore);
    };
    std::vector<double> without;
    std::vector<double> with;
    std::vector<double> ratio;
    for (auto _ : state) {
        for (int i = 0; i < overlayPairs; ++i) {
            without.push_back(cpuMsPerFrame(false));
            with.push_back(cpuMsPerFrame(true));
            ratio.push_back(with.back() / without.back());
        }
    }
    const auto& bars = window.overlays().frGrid().bars();
    state.counters["gridBars"] = static_cast<double>(
        std::count_if(bars.begin(), bars.end(), [](const BarFrame* bar) { return !bar->bar().isEmpty(); }));
    state.counters["cpuMsWithout"] = median(without);
    state.counters["cpuMsWith"] = median(with);
    state.counters["ratio"] = median(ratio);
}
BENCHMARK(liveWithAllOverlays)
    ->ArgName("pitch")
    ->Arg(60)
    ->Arg(8)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

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
