#include "hosts/simulated/camera/SimulatedCamera.h"

#include "hosts/common/board/VideoBoard.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace hosts::simulated {
namespace {

using testing::Each;

constexpr ocuva::Long window = 7;

// Paints every frame in one grey and remembers what it was asked for.
class StubSource final : public PictureSource {
public:
    void render(const Exposure& exposure, const PictureControls& controls, std::uint32_t* pixels) override {
        if (failing) {
            throw std::runtime_error("no light");
        }
        exposures.push_back(exposure);
        lastControls = controls;
        std::fill_n(pixels, exposure.mode.width * exposure.mode.height, pixel);
    }
    std::uint32_t pixel = 0xff808080U;
    bool failing = false;
    std::vector<Exposure> exposures;
    PictureControls lastControls;
};

class StubSink final : public ocuva::FrameSink {
public:
    void present(ocuva::FramePtr frame) override {
        newest = std::move(frame);
        ++count;
    }
    double devicePixelRatio() const override { return ratio; }
    ocuva::FramePtr newest;
    std::atomic_int count = 0;
    double ratio = 1.0;
};

struct Rig {
    VirtualClock clock;
    StageMechanics stage{clock, StageSettings()};
    StubSource source;
    ocuva::DisplayWindows windows;
    StubSink sink;
    FieldSize field{640.0, 480.0};
    SimulatedCamera camera{{clock, stage, source, [this] { return field; }}};
    VideoBoard board{camera, &windows};

    Rig() {
        windows.attach(window, sink);
        board.setDisplay({window, -2, 0});
    }
    void grab() {
        ASSERT_TRUE(board.init());
        ASSERT_TRUE(board.startGrab(true));
    }
    // Lets time pass as a program does that looks at each frame.
    void watch(double ms) {
        for (double passed = 0.0; passed < ms; passed += 10.0) {
            clock.advance(10.0);
        }
    }
};

TEST(SimulatedCamera, AGrabIsRefusedBeforeTheBoardIsReady) {
    Rig rig;
    EXPECT_FALSE(rig.board.startGrab(true));
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 0);
    EXPECT_TRUE(rig.board.init());
    EXPECT_TRUE(rig.board.startGrab(true));
}

TEST(SimulatedCamera, FramesComeAtTheRateOfTheCamera) {
    Rig rig;
    rig.grab();
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 25);
    rig.board.setCameraType(2);
    rig.watch(1000.0);
    EXPECT_NEAR(rig.sink.count, 25 + 30, 1);
}

TEST(SimulatedCamera, AHaltEndsTheFramesAndKeepsTheLast) {
    Rig rig;
    rig.grab();
    rig.watch(100.0);
    rig.board.haltGrab();
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 2);
    ASSERT_NE(rig.board.currentFrame(), nullptr);
    EXPECT_EQ(rig.board.currentFrame()->number, 2);
    EXPECT_EQ(rig.board.currentFrame()->capturedMs, 80.0);
}

TEST(SimulatedCamera, ASingleGrabDeliversOneFrame) {
    Rig rig;
    rig.board.init();
    EXPECT_TRUE(rig.board.startGrab(false));
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 1);
}

TEST(SimulatedCamera, AShutdownEndsTheGrabAndForgetsTheFrame) {
    Rig rig;
    rig.grab();
    rig.watch(100.0);
    rig.board.shutdown();
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 2);
    EXPECT_EQ(rig.board.currentFrame(), nullptr);
    EXPECT_FALSE(rig.board.startGrab(true));
}

TEST(SimulatedCamera, SettingTheBoardTypeLeavesItNotReadyButARunningGrabContinues) {
    Rig rig;
    rig.grab();
    EXPECT_TRUE(rig.board.setBoardType(1));
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 25);
    EXPECT_FALSE(rig.board.startGrab(true));
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 50);
    rig.board.haltGrab();
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 50);
}

TEST(SimulatedCamera, AnInitialisationEndsARunningGrab) {
    Rig rig;
    rig.grab();
    rig.board.init();
    rig.watch(1000.0);
    EXPECT_EQ(rig.sink.count, 0);
}

TEST(SimulatedCamera, BoardTypeZeroGrabsButShowsNothing) {
    Rig rig;
    rig.board.setBoardType(0);
    rig.grab();
    rig.clock.advance(1000.0);
    EXPECT_EQ(rig.sink.count, 0);
    EXPECT_NE(rig.board.currentFrame(), nullptr);
}

TEST(SimulatedCamera, AFrameIsExposedWhereTheStageIsAtThatMoment) {
    Rig rig;
    rig.grab();
    rig.stage.loadAbsolute(1, 25000.0);
    rig.stage.loadAbsolute(3, -100.0);
    rig.stage.start(0);
    rig.clock.advance(40.0);
    ASSERT_EQ(rig.source.exposures.size(), 1U);
    EXPECT_NEAR(rig.source.exposures[0].stageX, 40000.0 * 0.04 * 0.04 / 2.0, 1e-9);
    EXPECT_NEAR(rig.source.exposures[0].stageZ, -2000.0 * 0.04 * 0.04 / 2.0, 1e-9);
    EXPECT_EQ(rig.source.exposures[0].stageY, 0.0);
}

TEST(SimulatedCamera, TheFieldIsReadForEachFrame) {
    Rig rig;
    rig.grab();
    rig.clock.advance(40.0);
    rig.field = {320.0, 240.0};
    rig.clock.advance(40.0);
    ASSERT_EQ(rig.source.exposures.size(), 2U);
    EXPECT_EQ(rig.source.exposures[0].fieldWidth, 640.0);
    EXPECT_EQ(rig.source.exposures[1].fieldWidth, 320.0);
    EXPECT_EQ(rig.source.exposures[1].fieldHeight, 240.0);
    EXPECT_NE(rig.source.exposures[0].frameNumber, rig.source.exposures[1].frameNumber);
}

TEST(SimulatedCamera, ADisplayWindowWithoutASinkIsNoError) {
    Rig rig;
    rig.board.setDisplay({999, -1, 0});
    rig.grab();
    rig.clock.advance(100.0);
    EXPECT_EQ(rig.sink.count, 0);
    EXPECT_NE(rig.board.currentFrame(), nullptr);
}

TEST(SimulatedCamera, AFrameInUseIsNotOverwritten) {
    Rig rig;
    rig.board.setDisplay({window, -1, 0});
    rig.grab();
    rig.clock.advance(40.0);
    const ocuva::FramePtr held = rig.sink.newest;
    rig.source.pixel = 0xff000000U;
    rig.clock.advance(1000.0);
    EXPECT_THAT(held->pixels, Each(0xff808080U));
}

TEST(SimulatedCamera, AFrameThatCannotBeMadeIsLostAndTheNextComes) {
    Rig rig;
    rig.grab();
    rig.source.failing = true;
    rig.clock.advance(80.0);
    rig.source.failing = false;
    rig.clock.advance(40.0);
    EXPECT_EQ(rig.sink.count, 1);
}

TEST(SimulatedCamera, ReferencesAndGainReachTheCamera) {
    Rig rig;
    rig.grab();
    rig.clock.advance(40.0);
    EXPECT_TRUE(isNeutral(rig.source.lastControls));
    EXPECT_TRUE(rig.board.setReferences(1, 20.0, 150.0));
    EXPECT_TRUE(rig.board.setReferences(2, 30.0, 40.0));
    rig.board.setGain(3);
    rig.clock.advance(40.0);
    EXPECT_EQ(rig.source.lastControls, (PictureControls{20.0, 100.0, 30.0, 40.0, 3}));
    double contrast = 0.0;
    double brightness = 0.0;
    EXPECT_TRUE(rig.board.references(1, contrast, brightness));
    EXPECT_EQ(contrast, 20.0);
    EXPECT_EQ(brightness, 100.0);
}

TEST(SimulatedCamera, AMeasuringExposureIsNeitherShownNorKept) {
    Rig rig;
    const ocuva::FramePtr frame = rig.board.frameAfterNow();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->width, 768);
    EXPECT_EQ(rig.sink.count, 0);
    EXPECT_EQ(rig.board.currentFrame(), nullptr);
}

TEST(SimulatedCamera, TenMinutesUnwatchedRenderNoPictureUntilOneIsNeeded) {
    Rig rig;
    rig.board.setDisplay({0, -1, 0});
    rig.grab();
    rig.stage.loadAbsolute(1, 100.0);
    rig.stage.start(1);
    rig.clock.advance(10.0 * 60.0 * 1000.0);
    EXPECT_TRUE(rig.source.exposures.empty());
    EXPECT_EQ(rig.camera.lastFrameNumber(), 15000);
    const ocuva::FramePtr frame = rig.board.currentFrame();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->number, 15000);
    EXPECT_EQ(frame->capturedMs, 600000.0);
    rig.board.currentFrame();
    ASSERT_EQ(rig.source.exposures.size(), 1U);
    EXPECT_EQ(rig.source.exposures[0].frameNumber, 15000U);
    EXPECT_EQ(rig.source.exposures[0].stageX, 100.0);
}

TEST(SimulatedCamera, AWindowGetsOnePictureForEachTurnOfItsEventLoop) {
    Rig rig;
    rig.grab();
    for (int second = 0; second < 600; ++second) {
        rig.clock.advance(1000.0);
    }
    EXPECT_EQ(rig.source.exposures.size(), 600U);
    EXPECT_EQ(rig.sink.count, 600);
    EXPECT_EQ(rig.sink.newest->number, 15000);
}

TEST(SimulatedCamera, APictureThatWaitsIsOfItsMomentAndNotOfTheLook) {
    Rig rig;
    rig.board.setDisplay({0, -1, 0});
    rig.grab();
    rig.clock.advance(40.0);
    rig.board.haltGrab();
    rig.board.setReferences(1, 20.0, 20.0);
    rig.stage.loadAbsolute(1, 100.0);
    rig.stage.start(1);
    rig.clock.advance(1000.0);
    ASSERT_NE(rig.board.currentFrame(), nullptr);
    EXPECT_EQ(rig.source.exposures.back().stageX, 0.0);
    EXPECT_TRUE(isNeutral(rig.source.lastControls));
}

// The first picture of a place takes long: a start must not wait for it after the first frame is due.
TEST(SimulatedCamera, OnARealClockTheGroundIsPaintedBeforeTheFirstFrameAndCountsAsNone) {
    RealClock clock(50.0);
    StageMechanics stage(clock, StageSettings());
    StubSource source;
    ocuva::DisplayWindows windows;
    StubSink sink;
    windows.attach(window, sink);
    SimulatedCamera camera({clock, stage, source});
    VideoBoard board(camera, &windows);
    board.init();
    board.setDisplay({window, -1, 0});
    ASSERT_TRUE(board.startGrab(false));
    while (sink.count < 1) {
        std::this_thread::yield();
    }
    board.haltGrab();
    EXPECT_EQ(sink.count, 1);
    EXPECT_EQ(sink.newest->number, 1);
    ASSERT_EQ(source.exposures.size(), 2U);
    EXPECT_EQ(source.exposures[0].stageX, source.exposures[1].stageX);
    EXPECT_EQ(source.exposures[0].mode.width, source.exposures[1].mode.width);
    windows.detach(window);
}

TEST(SimulatedCamera, OnARealClockCommandsAndReadingsContinueDuringTheGrab) {
    RealClock clock(50.0);
    StageMechanics stage(clock, StageSettings());
    StubSource source;
    ocuva::DisplayWindows windows;
    StubSink sink;
    windows.attach(window, sink);
    SimulatedCamera camera({clock, stage, source});
    VideoBoard board(camera, &windows);
    board.init();
    board.setDisplay({window, -2, 0});
    ASSERT_TRUE(board.startGrab(true));
    while (sink.count < 5) {
        board.setReferences(1, 40.0, 60.0);
        board.setDisplay({window, -1 - sink.count % 2, 0});
        board.setCameraType(1 + sink.count % 4);
        stage.loadRelative(1, 1.0);
        stage.start(1);
        if (const ocuva::FramePtr frame = board.currentFrame()) {
            EXPECT_EQ(frame->pixels.size(), static_cast<std::size_t>(frame->width) * frame->height);
        }
        std::this_thread::yield();
    }
    board.haltGrab();
    const int atHalt = sink.count;
    clock.spend(500.0);
    EXPECT_EQ(sink.count, atHalt);
    windows.detach(window);
}

} // namespace
} // namespace hosts::simulated
