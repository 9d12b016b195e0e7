// How many ready frames a second come onto a real window, through the real mailbox and the real display
// control: `bench_display SECONDS` prints the frames shown per second of wall time and the milliseconds of
// one core that each of them took. Another thread has the next frame ready as soon as one was drawn.
// bench/run sets a plain video player of the same size beside it.

#include "display/MilDisplay.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <mutex>
#include <thread>

namespace {

using namespace ocuva;

constexpr int width = 768;
constexpr int height = 576;

FramePtr readyFrame(std::uint32_t colour) {
    auto frame = std::make_shared<Frame>();
    frame->width = width;
    frame->height = height;
    frame->pixels.assign(static_cast<std::size_t>(width) * height, colour);
    return frame;
}

// Delivers from a thread of its own, one frame for each that was drawn.
class Feeder {
public:
    Feeder(const DisplayWindows& windows, Long window)
        : m_thread([this, &windows, window] { run(windows, window); }) {}
    ~Feeder() {
        {
            const std::lock_guard lock(m_mutex);
            m_stopping = true;
        }
        m_changed.notify_one();
        m_thread.join();
    }
    void frameShown() {
        const std::lock_guard lock(m_mutex);
        ++m_shown;
        m_changed.notify_one();
    }

private:
    void run(const DisplayWindows& windows, Long window) {
        const FramePtr frames[] = {readyFrame(0xff204060), readyFrame(0xff604020), readyFrame(0xff406020)};
        for (std::uint64_t number = 0;; ++number) {
            windows.deliver(window, frames[number % std::size(frames)]);
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [&] { return m_stopping || m_shown > number; });
            if (m_stopping) {
                return;
            }
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::uint64_t m_shown = 0;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    DisplayWindows windows;
    MilDisplay display(windows, nullptr);
    display.resize(width, height);
    display.show();
    Feeder feeder(windows, display.hWnd());
    QObject::connect(&display, &MilDisplay::frameShown, &display, [&feeder] { feeder.frameShown(); });

    QElapsedTimer elapsed;
    std::uint64_t shownBefore = 0;
    std::clock_t cpuBefore = 0;
    QTimer::singleShot(500, &display, [&] {
        elapsed.start();
        shownBefore = display.framesShown();
        cpuBefore = std::clock();
        QTimer::singleShot(seconds * 1000, &display, [] { QApplication::quit(); });
    });
    QApplication::exec();
    const double wall = static_cast<double>(elapsed.nsecsElapsed()) * 1e-9;
    const auto shown = static_cast<double>(display.framesShown() - shownBefore);
    const double cpu = static_cast<double>(std::clock() - cpuBefore) / CLOCKS_PER_SEC;
    std::printf("%.1f frames/s  %.4f ms of one core a frame  %llu dropped\n", shown / wall,
                cpu * 1000.0 / shown, static_cast<unsigned long long>(display.framesDropped()));
    return 0;
}
