// How many ready frames a second come onto a real window, through the real mailbox and the real display
// control: `bench_display SECONDS` prints the frames shown per second of wall time and the milliseconds of
// one core that each of them took. Another thread has the next frame ready as soon as one was drawn.
// bench/run sets a plain video player of the same size beside it.

#include "display/MilDisplay.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
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

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    DisplayWindows windows;
    MilDisplay display(windows, nullptr);
    display.resize(width, height);
    display.show();
    const Feeder feeder(windows, display);

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
