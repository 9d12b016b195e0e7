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

#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>

namespace {

using namespace ocuva;

using Seconds = std::chrono::duration<double>;

constexpr const char* emptyWindowSwitch = "--start-empty-window";
constexpr const char* programSwitch = "--start-program";
constexpr int liveMs = 4000;

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

int startEmptyWindow() {
    EmptyWindow window;
    window.resize(546, 448);
    window.show();
    return QApplication::exec();
}

int startProgram(const QString& folder) {
    Program program(folder);
    QObject::connect(&program.display(), &MilDisplay::frameShown, qApp, [] { QCoreApplication::exit(0); });
    return QApplication::exec();
}

// One run of this program with that switch, from its launch to its end.
void measureLaunch(benchmark::State& state, const char* what) {
    const QTemporaryDir folder;
    const auto launch = [&] {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(what), folder.path()});
        process.waitForFinished(60000);
    };
    launch(); // seeds the data folder and warms the caches
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        launch();
        state.SetIterationTime(Seconds(std::chrono::steady_clock::now() - begin).count());
    }
}

void baselineStartOfAnEmptyWindow(benchmark::State& state) { measureLaunch(state, emptyWindowSwitch); }
BENCHMARK(baselineStartOfAnEmptyWindow)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

void startToFirstLiveFrame(benchmark::State& state) { measureLaunch(state, programSwitch); }
BENCHMARK(startToFirstLiveFrame)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

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

void liveAt25FramesPerSecond(benchmark::State& state) {
    const QTemporaryDir folder;
    Program program(folder.path());
    spinEventLoop(1000);
    for (auto _ : state) {
        const std::uint64_t shownBefore = program.display().framesShown();
        const std::uint64_t droppedBefore = program.display().framesDropped();
        const std::int64_t numberBefore = program.display().shownFrame()->number;
        state.counters["cpu%"] = cpuPercentOverLiveTime();
        const std::int64_t taken = program.display().shownFrame()->number - numberBefore;
        state.counters["taken"] = static_cast<double>(taken);
        state.counters["shown"] = static_cast<double>(program.display().framesShown() - shownBefore);
        state.counters["dropped"] = static_cast<double>(program.display().framesDropped() - droppedBefore);
    }
}
BENCHMARK(liveAt25FramesPerSecond)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc > 2 && qstrcmp(argv[1], emptyWindowSwitch) == 0) {
        return startEmptyWindow();
    }
    if (argc > 2 && qstrcmp(argv[1], programSwitch) == 0) {
        return startProgram(QString::fromLocal8Bit(argv[2]));
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
