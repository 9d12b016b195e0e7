// What the overlays add to the drawing of one live frame at 1:2. The baseline is the same frame without any.

#include "display/MicroMarkerPanel.h"
#include "display/MilDisplay.h"
#include "display/OverlayFigure.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace ocuva;

constexpr int width = 384;
constexpr int height = 288;

struct Live {
    DisplayWindows windows;
    MilDisplay display{windows, nullptr};
    OverlayFigure frGrid{QStringLiteral("frGrid"), &display};
    OverlayFigure frCross{QStringLiteral("frCross"), &display};
    MicroMarkerPanel frMicroMarker{&display};

    Live() {
        display.setStyleSheet(overlayStyleSheet());
        display.resize(width, height);
        frMicroMarker.hide();
        display.show();
        auto frame = std::make_shared<Frame>();
        frame->width = width;
        frame->height = height;
        frame->pixels.assign(std::size_t{width} * height, 0xff506070U);
        windows.deliver(display.hWnd(), frame);
        for (int i = 0; i < 20 && display.framesShown() == 0; ++i) {
            QApplication::processEvents(QEventLoop::AllEvents, 100);
        }
    }
    void showCross() {
        frCross.place({{132, 143, 53, 2}, {199, 143, 53, 2}, {191, 84, 2, 53}, {191, 151, 2, 53}});
        frCross.show(true);
    }
    void showGrid(int pitch) {
        std::vector<PixelRect> bars;
        for (int x = pitch / 2; x < width; x += pitch) {
            bars.push_back({x, 0, 1, height});
        }
        for (int y = pitch / 2; y < height; y += pitch) {
            bars.push_back({0, y, width, 1});
        }
        frGrid.place(bars);
        frGrid.show(true);
    }
    void showMicroMarker() {
        frMicroMarker.place(display.size(), 60, QStringLiteral(" 100 \u00b5"));
        frMicroMarker.show();
    }
    void draw(benchmark::State& state) {
        QApplication::processEvents();
        for (auto _ : state) {
            display.repaint();
        }
    }
};

void baselineFrameAlone(benchmark::State& state) { Live().draw(state); }

void frameWithCross(benchmark::State& state) {
    Live live;
    live.showCross();
    live.draw(state);
}

void frameWithGrid(benchmark::State& state) {
    Live live;
    live.showGrid(static_cast<int>(state.range(0)));
    live.draw(state);
}

void frameWithMicroMarker(benchmark::State& state) {
    Live live;
    live.showMicroMarker();
    live.draw(state);
}

void frameWithAllOverlays(benchmark::State& state) {
    Live live;
    live.showCross();
    live.showGrid(static_cast<int>(state.range(0)));
    live.showMicroMarker();
    live.draw(state);
}

BENCHMARK(baselineFrameAlone)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameWithCross)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameWithGrid)->ArgName("pitch")->Arg(60)->Arg(8)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameWithMicroMarker)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameWithAllOverlays)->ArgName("pitch")->Arg(60)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
