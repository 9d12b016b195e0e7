// The whole simulated host with a real clock: live video on its own thread while the program's thread does
// what an operator does. The thread sanitizer watches this one.
#include "display/FrameMailbox.h"
#include "hosts/simulated/SimulatedHost.h"
#include "tests/support/TempFolder.h"

#include <condition_variable>
#include <gmock/gmock.h>
#include <mutex>

using namespace hosts;
using namespace hosts::simulated;
using ocuva::FrameMailbox;
using ocuva::FramePtr;

namespace {

/// A display as the program has it: woken on the grabbing thread, emptied on its own.
class Display final : public ocuva::FrameSink {
public:
    void present(FramePtr frame) override {
        ++m_presented;
        m_mailbox.present(std::move(frame));
    }
    double devicePixelRatio() const override { return m_mailbox.devicePixelRatio(); }

    /// Waits for the next frame.
    FramePtr next() {
        std::unique_lock lock(m_mutex);
        m_arrival.wait(lock, [this] { return m_woken; });
        m_woken = false;
        return m_mailbox.take();
    }
    /// Waits for a frame so wide.
    void awaitWidth(int width) {
        while (next()->width != width) {
        }
    }
    int presented() const { return m_presented; }
    void setDensity(double ratio) { m_mailbox.setDevicePixelRatio(ratio); }

private:
    std::mutex m_mutex;
    std::condition_variable m_arrival;
    bool m_woken = false;
    std::atomic<int> m_presented = 0;
    FrameMailbox m_mailbox{[this] {
        const std::lock_guard lock(m_mutex);
        m_woken = true;
        m_arrival.notify_one();
    }};
};

constexpr TarnLong firstWindow = 7;
constexpr TarnLong secondWindow = 8;

struct Rig {
    TempFolder folder;
    ocuva::DisplayWindows windows;
    Display display;
    std::optional<SimulatedHost> host;

    Rig() {
        SimulatedHostOptions options;
        options.dataFolder = folder / "data";
        options.windows = &windows;
        options.clock = std::make_shared<RealClock>(8.0);
        host.emplace(std::move(options));
        windows.attach(firstWindow, display);
    }
    ocuva::TnVideo& video() { return host->tn_video(); }
    void show(TarnLong window, TarnLong zoom) {
        TarnDisplayRequest request{window, zoom, 0};
        EXPECT_NE(video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_DISPLAY, &request), 0);
    }
    void grab() {
        ASSERT_NE(video().TarnVideoBoardInit(), 0);
        show(firstWindow, -2);
        ASSERT_NE(video().TarnVideoBoardStartGrab(1, 1), 0);
    }
};

} // namespace

TEST(RealClockGrab, CameraAndDisplayChangeWhileFramesCome) {
    Rig rig;
    rig.grab();
    for (TarnLong cameraType = 1; cameraType <= 4; ++cameraType) {
        EXPECT_NE(rig.video().TarnVideoSetCurrentCameraType(cameraType), 0);
        const CameraMode mode = cameraMode(cameraType);
        for (const TarnLong zoom : {-1, -4, -2}) {
            rig.show(firstWindow, zoom);
            rig.display.awaitWidth(mode.width / -zoom);
        }
        EXPECT_NE(rig.video().TarnVideoSetCurrentBoardType(cameraType % 2), 0);
        EXPECT_NE(rig.video().TarnVideoSetCurrentBoardType(1), 0);
    }
    rig.display.setDensity(2.0);
    rig.display.awaitWidth(cameraMode(4).width);
    rig.video().TarnVideoBoardHaltGrab();
}

TEST(RealClockGrab, AWindowThatClosesGetsNoFrameAndItsSuccessorDoes) {
    Rig rig;
    rig.grab();
    rig.display.next();
    rig.windows.detach(firstWindow);
    const int atClosing = rig.display.presented();
    Display second;
    rig.windows.attach(secondWindow, second);
    rig.show(secondWindow, -2);
    second.next();
    second.next();
    EXPECT_EQ(rig.display.presented(), atClosing);
    rig.windows.detach(secondWindow);
    rig.video().TarnVideoBoardShutdown();
}

TEST(RealClockGrab, TheOperatorsWorkContinuesDuringTheGrab) {
    Rig rig;
    rig.grab();
    auto& settings = rig.host->tn_reg();
    auto& stage = rig.host->tn_micro_proxy();
    for (TarnLong round = 0; round < 5; ++round) {
        const std::string magnification = round == 3 ? "none" : std::to_string(300 + 50 * round);
        settings.TarnRegisterSetString("tn_video", "VideoMag", magnification.c_str(), "TARN.INI");
        const TarnSingle factor = 2500.0F + static_cast<TarnSingle>(round);
        rig.host->tn_lib_proxy().TarnSetVideoMag100Factors(&factor, &factor);
        stage.TarnLoadStageRelSecure(1, 250.0F);
        stage.TarnStartStage(1);
        rig.display.next();

        rig.video().TarnVideoCameraSetReferences(1, 40.0 + round, 60.0);
        TarnLong gain = round - 1;
        rig.video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain);
        TarnLong buffer = 0;
        TarnLong count = 0;
        TarnLong sum = 0;
        TarnDouble variance = 0.0;
        rig.host->tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &count, &sum, &variance);
        EXPECT_GT(count, 0);
        const std::string picture = (rig.folder / "picture.tif").string();
        TarnSaveRequest save{TARN_SAVE_SUB_CODE, picture.c_str()};
        EXPECT_NE(rig.video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_SAVE, &save), 0);
        rig.host->tn_log().TarnPrintfVB("beside the grab");
        rig.display.next();
    }
    stage.TarnAutoFocusExt(0);
    rig.video().TarnVideoBoardHaltGrab();
}

TEST(RealClockGrab, AfterEachHaltNoFrameComes) {
    Rig rig;
    rig.grab();
    for (int round = 0; round < 30; ++round) {
        ASSERT_NE(rig.video().TarnVideoBoardStartGrab(round % 3 == 0 ? 0 : 1, 1), 0);
        if (round % 5 == 0) {
            rig.display.next();
        }
        rig.video().TarnVideoBoardHaltGrab();
        const int atHalt = rig.display.presented();
        rig.host->clock().spend(round % 10 == 0 ? 200.0 : 0.0);
        ASSERT_EQ(rig.display.presented(), atHalt);
    }
}

TEST(RealClockGrab, AHostThatEndsWhileItGrabsEndsItsGrab) {
    Rig rig;
    rig.grab();
    rig.display.next();
    rig.host.reset();
    const int atEnd = rig.display.presented();
    RealClock(8.0).spend(200.0);
    EXPECT_EQ(rig.display.presented(), atEnd);
}
