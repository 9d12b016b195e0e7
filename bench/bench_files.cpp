// The cost of saving and opening a large picture compared with libtiff alone, and of filling long lists.
#include "app/toolbar/ButtonMenus.h"
#include "standards/StandardText.h"
#include "standards/frmStdList.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/StubHost.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>
#include <tiffio.h>
#include <vector>

namespace {

using namespace ocuva;

constexpr int width = 6000; // 24 megapixels
constexpr int height = 4000;
constexpr tmsize_t lineBytes = tmsize_t{width} * 3;

QImage largeImage() {
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < lineBytes; ++x) {
            line[x] = static_cast<uchar>(x * 7 + y * 13);
        }
    }
    return image;
}

std::string fileIn(const QTemporaryDir& folder) {
    return folder.filePath(QStringLiteral("x.tif")).toStdString();
}

void writeAlone(const std::string& name, const QImage& image) {
    TIFF* file = TIFFOpen(name.c_str(), "w");
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, height);
    TIFFWriteRawStrip(file, 0, const_cast<uchar*>(image.constBits()), lineBytes * height);
    TIFFClose(file);
}

void baselineLibtiffWrites24Megapixels(benchmark::State& state) {
    const QTemporaryDir folder;
    const QImage image = largeImage();
    for (auto _ : state) {
        writeAlone(fileIn(folder), image);
    }
}
BENCHMARK(baselineLibtiffWrites24Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void saving24Megapixels(benchmark::State& state) {
    const QTemporaryDir folder;
    const Picture picture{largeImage(), {12000.0, 12000.0}, {}, {}};
    for (auto _ : state) {
        writeTiffFile(fileIn(folder), picture);
    }
}
BENCHMARK(saving24Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void baselineLibtiffReads24Megapixels(benchmark::State& state) {
    const QTemporaryDir folder;
    writeTiffFile(fileIn(folder), {largeImage(), {12000.0, 12000.0}, {}, {}});
    for (auto _ : state) {
        const std::unique_ptr<uchar[]> bytes(new uchar[static_cast<std::size_t>(lineBytes * height)]);
        TIFF* file = TIFFOpen(fileIn(folder).c_str(), "r");
        tmsize_t done = 0;
        for (std::uint32_t strip = 0; strip < TIFFNumberOfStrips(file); ++strip) {
            done += TIFFReadEncodedStrip(file, strip, bytes.get() + done, lineBytes * height - done);
        }
        TIFFClose(file);
        if (done != lineBytes * height) {
            state.SkipWithError("libtiff could not read it");
        }
    }
}
BENCHMARK(baselineLibtiffReads24Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void opening24Megapixels(benchmark::State& state) {
    const QTemporaryDir folder;
    writeTiffFile(fileIn(folder), {largeImage(), {12000.0, 12000.0}, {}, {}});
    for (auto _ : state) {
        benchmark::DoNotOptimize(readTiffFile(fileIn(folder)));
    }
}
BENCHMARK(opening24Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void fillStandards(StubHost& host, int count) {
    for (int i = 1; i <= count; ++i) {
        const std::string name = "/std/Standard number " + std::to_string(i) + ".std";
        host.settings["Ocuva.INI|StandardList|Standard" + std::to_string(i)] = name;
        host.dbObjects[name] = {i, -i, 0};
    }
    host.settings["Ocuva.INI|StandardList|StandardListSize"] = std::to_string(count);
}

void fillingTheStandardList(benchmark::State& state) {
    StubHost host;
    fillStandards(host, static_cast<int>(state.range(0)));
    StandardList list(host.tn_reg(), host.tn_lib_proxy());
    frmStdList dialog(
        list, host.tn_lib_proxy(), [] { return false; }, [] {},
        [](const QString& /*what*/) { return std::shared_ptr<void>(); }, nullptr);
    for (auto _ : state) {
        host.calls.clear();
        dialog.FillStdList();
    }
}
BENCHMARK(fillingTheStandardList)
    ->ArgName("standards")
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);

void fillingTheStageMenu(benchmark::State& state) {
    StubHost host;
    fillStandards(host, static_cast<int>(state.range(0)));
    const StandardList list(host.tn_reg(), host.tn_lib_proxy());
    ButtonMenus menus;
    for (auto _ : state) {
        host.calls.clear();
        menus.clear();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::string name;
        Integer index = 0;
        while (list.GetNextStandard(name, index)) {
            menus.add(QString::fromStdString(name), QString::fromStdString(standardText(name, "/std")));
        }
    }
}
BENCHMARK(fillingTheStageMenu)
    ->ArgName("standards")
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
