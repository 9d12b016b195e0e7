// How many ready frames a second come onto a real window, through the real mailbox and the real display
// control, compared with a plain video player of the same size on the same screen. Another thread has the next frame
// ready as soon as the one before is being drawn. Needs a display; bench/run brings a virtual one.

#include "display/MilDisplay.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <ctime>
#include <iterator>
#include <thread>
#include <vector>

namespace {

using namespace ocuva;

constexpr int width = 768;
constexpr int height = 576;
constexpr int settleMs = 300;
constexpr int measureMs = 1500;
constexpr int rounds = 7;
constexpr int playFew = 100; // frames; the difference of two runs is free of the player's start
constexpr int playMany = 4100;

FramePtr readyFrame(std::uint32_t colour) {
    auto frame = std::make_shared<Frame>();
    frame->width = width;
    frame->height = height;
    frame->pixels.assign(static_cast<std::size_t>(width) * height, colour);
    return frame;
}

// Delivers from a thread of its own: the next frame as soon as the one before is on its way to the screen,
// when the mailbox is empty again.
class Feeder final : public QObject {
public:
    Feeder(const DisplayWindows& windows, MilDisplay& display)
        : m_display(display)
        , m_thread([this, &windows, window = display.hWnd()] { run(windows, window); }) {
        display.installEventFilter(this);
    }
    ~Feeder() override {
        m_stopping = true;
        ++m_wanted;
        m_wanted.notify_one();
        m_thread.join();
    }

protected:
    bool eventFilter(QObject* /*display*/, QEvent* event) override {
        if (event->type() == QEvent::Paint && m_display.shownFrame().get() != m_drawn) {
            m_drawn = m_display.shownFrame().get();
            ++m_wanted;
            m_wanted.notify_one();
        }
        return false;
    }

private:
    void run(const DisplayWindows& windows, Long window) {
        const FramePtr frames[] = {readyFrame(0xff204060), readyFrame(0xff604020), readyFrame(0xff406020)};
        for (std::uint64_t number = 0; !m_stopping; ++number) {
            windows.deliver(window, frames[number % std::size(frames)]);
            m_wanted.wait(number);
        }
    }

    MilDisplay& m_display;
    const Frame* m_drawn = nullptr; // the frame before
    std::atomic<std::uint64_t> m_wanted{0};
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};

// One display in a window of its own, fed for some seconds of wall time.
struct Rate {
    double framesPerSecond;
    double cpuMsPerFrame;
};
Rate rateOfTheDisplay() {
    DisplayWindows windows;
    MilDisplay display(windows, nullptr);
    display.resize(width, height);
    display.show();
    const Feeder feeder(windows, display);
    QEventLoop loop;
    QTimer::singleShot(settleMs, &loop, &QEventLoop::quit);
    loop.exec();
    const std::uint64_t shownBefore = display.framesShown();
    const std::clock_t cpuBefore = std::clock();
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer::singleShot(measureMs, &loop, &QEventLoop::quit);
    loop.exec();
    const double seconds = static_cast<double>(elapsed.nsecsElapsed()) * 1e-9;
    const auto shown = static_cast<double>(display.framesShown() - shownBefore);
    const double cpuMs = static_cast<double>(std::clock() - cpuBefore) * 1000.0 / CLOCKS_PER_SEC;
    return {shown / seconds, cpuMs / shown};
}

// Wall time of a plain video player that draws so many plain frames; 0 when there is none.
double playSeconds(int frames) {
    QElapsedTimer elapsed;
    elapsed.start();
    const QString format = QStringLiteral("video/x-raw,width=%1,height=%2").arg(width).arg(height);
    const int result = QProcess::execute(
        QStringLiteral("gst-launch-1.0"),
        {QStringLiteral("-q"), QStringLiteral("videotestsrc"), QStringLiteral("pattern=solid-color"),
         QStringLiteral("num-buffers=%1").arg(frames), QStringLiteral("!"), format, QStringLiteral("!"),
         QStringLiteral("ximagesink"), QStringLiteral("sync=false")});
    return result == 0 ? static_cast<double>(elapsed.nsecsElapsed()) * 1e-9 : 0.0;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// In turn, so that a busy machine slows both alike; medians.
void readyFramesOnAWindow(benchmark::State& state) {
    std::vector<double> ours;
    std::vector<double> player;
    std::vector<double> ratio;
    std::vector<double> cpu;
    for (auto _ : state) {
        for (int round = 0; round < rounds; ++round) {
            const double few = playSeconds(playFew);
            const double many = playSeconds(playMany);
            if (few == 0.0 || many <= few) {
                state.SkipWithError("gst-launch-1.0 does not play on this display");
                return;
            }
            const Rate rate = rateOfTheDisplay();
            ours.push_back(rate.framesPerSecond);
            cpu.push_back(rate.cpuMsPerFrame);
            player.push_back((playMany - playFew) / (many - few));
            ratio.push_back(ours.back() / player.back());
        }
    }
    state.counters["framesPerSecond"] = median(ours);
    state.counters["playerFramesPerSecond"] = median(player);
    state.counters["ratio"] = median(ratio);
    state.counters["cpuMsPerFrame"] = median(cpu);
}
BENCHMARK(readyFramesOnAWindow)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
