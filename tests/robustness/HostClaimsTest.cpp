// A host may report any number. For any picture size, scale or stage position the window opens on its
// screen, quickly, with a limited number of controls, and the log names impossible values.

#include "tests/support/WindowRig.h"

#include <QElapsedTimer>
#include <QScreen>

#include <cmath>
#include <limits>

using namespace ocuva;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr Long most = std::numeric_limits<Long>::max();
constexpr Long least = std::numeric_limits<Long>::min();
constexpr int soonMs = 20000; // of a machine with much else to do; what this is about took minutes

struct HostClaims : testing::TestWithParam<DisplayWindows::Painter> {
    StubHost host;
    DisplayWindows windows{GetParam()};
    NoAutomation automation;
    std::unique_ptr<modInter> inter;

    HostClaims() { emptyRegistry(); }
    frmOcuva& window() { return inter->mainWindow(); }
    void start() {
        inter.reset();
        host.logLines.clear();
        inter = std::make_unique<modInter>(StartContext{host,
                                                        windows,
                                                        automation,
                                                        "",
                                                        [] { return false; },
                                                        QStringLiteral("Ocuva (test)"),
                                                        [] {},
                                                        modServer::idleTickMs,
                                                        {},
                                                        {}});
        inter->Main();
        QTest::qWait(WindowFit::letGoMs + 50);
    }
    void setGrid(const char* pixels) {
        host.settings["Ocuva.INI|Configuration|ShowGrid"] = "1";
        host.settings["Ocuva.INI|Configuration|GridSizeX"] = pixels;
        host.settings["Ocuva.INI|Configuration|GridSizeY"] = pixels;
        host.settings["Ocuva.INI|Configuration|GridLineWidth"] = "1";
    }
    void expectSoundWindow(const std::string& what) {
        EXPECT_TRUE(window().isVisible()) << what;
        EXPECT_TRUE(window().QWidget::screen()->availableGeometry().contains(window().frameGeometry()))
            << what;
        EXPECT_LT(window().findChildren<QWidget*>().size(), 400) << what;
    }
};

} // namespace

TEST_P(HostClaims, OfAPictureOfAnySizeOpenAWindowSoon) {
    const std::pair<Long, Long> claims[]{{5472, 3648}, {40000, 30000}, {100000, 100000},
                                         {most, most}, {most, 1},      {1, most},
                                         {-768, -576}, {least, least}, {1, 1}};
    for (const auto& [width, height] : claims) {
        for (const char* grid : {"3", "96"}) {
            const std::string what =
                std::to_string(width) + " x " + std::to_string(height) + ", grid " + grid;
            setGrid(grid);
            host.bufferDesc.width = width;
            host.bufferDesc.height = height;
            QElapsedTimer clock;
            clock.start();
            start();
            window().run(command("mnuZoom0"));
            QTest::qWait(50);
            window().grab();
            EXPECT_LT(clock.elapsed(), soonMs) << what;
            expectSoundWindow(what);
            const bool isPlausible = width >= 1 && height >= 1 && width <= 32767 && height <= 32767;
            const auto sentence = HasSubstr("The video board reports a picture of " + std::to_string(width));
            if (isPlausible) {
                EXPECT_THAT(host.logLines, Not(Contains(sentence))) << what;
            } else {
                EXPECT_THAT(host.logLines, Contains(sentence)) << what;
            }
        }
    }
}

TEST_P(HostClaims, OfAScaleOrAStageThatCannotBeLeaveTheWindowSound) {
    setGrid("96");
    const float factors[]{std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                          -std::numeric_limits<float>::max(), 0.0F};
    for (const float factor : factors) {
        for (const Long number : {most, least, Long{0}, Long{-1}}) {
            host.magFactorX = factor;
            host.magFactorY = factor;
            host.settings["TARN.INI|tn_video|VideoMag"] = std::to_string(number);
            host.settings["Ocuva.INI|Configuration|CrossSize"] = std::to_string(number);
            host.settings["Ocuva.INI|Configuration|CrossWidth"] = std::to_string(number);
            for (const Integer axis : {axisX, axisY, axisZ}) {
                host.position[axis] = number;
                host.limits[axis] = {most, least};
            }
            host.pixelCount = number;
            host.pixelSum = number;
            host.variance = factor;
            host.status.clear();
            start();
            QTest::mouseClick(window().sbMain->panel(QStringLiteral("Info")), Qt::LeftButton);
            const std::string what = std::to_string(factor) + ", " + std::to_string(number);
            expectSoundWindow(what);
            EXPECT_EQ(window().sbMain->panel(QStringLiteral("X"))->text(), QString::number(number)) << what;
            EXPECT_THAT(window().sbMain->panel(QStringLiteral("Info"))->text().toStdString(),
                        Not(HasSubstr("nan")))
                << what;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(WhoeverPaints, HostClaims,
                         testing::Values(DisplayWindows::Painter::program, DisplayWindows::Painter::host));
