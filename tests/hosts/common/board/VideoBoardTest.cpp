#include "hosts/common/board/VideoBoard.h"

#include <gmock/gmock.h>
#include <memory>

namespace hosts {
namespace {

using testing::Each;

constexpr ocuva::Long window = 7;

// Delivers a grey frame when the test says so.
class StubCamera final : public FrameSource {
public:
    bool open() override {
        grabbing = false;
        return isThere;
    }
    void close() override {
        grabbing = false;
        receiver = nullptr;
    }
    void apply(const CameraSettings& wanted) override { settings = wanted; }
    CameraMode mode() const override { return cameraMode(settings.cameraType); }
    bool start(bool continuous, FrameReceiver& frames) override {
        grabbing = isThere;
        endsAfterOne = !continuous;
        receiver = &frames;
        return isThere;
    }
    void stop() override { grabbing = false; }
    ocuva::FramePtr frameAfterNow() override { return grey(); }
    void catchUp() override { ++looks; }

    ocuva::FramePtr grey() {
        auto frame = std::make_shared<ocuva::Frame>();
        frame->width = mode().width;
        frame->height = mode().height;
        frame->number = ++number;
        frame->pixels.assign(static_cast<std::size_t>(frame->width) * frame->height, 0xff808080U);
        return frame;
    }
    void deliver(int frames = 1) {
        for (; frames > 0 && grabbing; --frames) {
            grabbing = !endsAfterOne;
            receiver->frameTaken(grey());
        }
    }

    bool isThere = true;
    CameraSettings settings;
    bool grabbing = false;
    bool endsAfterOne = false;
    FrameReceiver* receiver = nullptr;
    std::int64_t number = 0;
    int looks = 0;
};

class StubSink final : public ocuva::FrameSink {
public:
    void present(ocuva::FramePtr frame) override {
        newest = std::move(frame);
        ++count;
    }
    double devicePixelRatio() const override { return ratio; }
    ocuva::FramePtr newest;
    int count = 0;
    double ratio = 1.0;
};

struct Rig {
    StubCamera camera;
    ocuva::DisplayWindows windows;
    StubSink sink;
    VideoBoard board{camera, &windows};

    Rig() {
        windows.attach(window, sink);
        board.setDisplay({window, -2, 0});
    }
    void grab() {
        ASSERT_TRUE(board.init());
        ASSERT_TRUE(board.startGrab(true));
    }
};

TEST(VideoBoard, AGrabIsRefusedBeforeTheBoardIsReady) {
    Rig rig;
    EXPECT_FALSE(rig.board.startGrab(true));
    EXPECT_FALSE(rig.camera.grabbing);
    EXPECT_TRUE(rig.board.init());
    EXPECT_TRUE(rig.board.startGrab(true));
    EXPECT_TRUE(rig.camera.grabbing);
}

TEST(VideoBoard, ABoardWithoutItsCameraIsNotReadyAndGrabsNothing) {
    Rig rig;
    rig.camera.isThere = false;
    EXPECT_FALSE(rig.board.init());
    EXPECT_FALSE(rig.board.isReady());
    rig.camera.isThere = true;
    rig.board.init();
    rig.camera.isThere = false;
    EXPECT_FALSE(rig.board.startGrab(true)) << "the camera went away";
}

TEST(VideoBoard, AHaltEndsTheGrabAndKeepsTheLastFrame) {
    Rig rig;
    rig.grab();
    rig.camera.deliver(2);
    rig.board.haltGrab();
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.count, 2);
    ASSERT_NE(rig.board.currentFrame(), nullptr);
    EXPECT_EQ(rig.board.currentFrame()->number, 2);
}

TEST(VideoBoard, AShutdownEndsTheGrabAndForgetsTheFrame) {
    Rig rig;
    rig.grab();
    rig.camera.deliver(2);
    rig.board.shutdown();
    EXPECT_EQ(rig.camera.receiver, nullptr);
    EXPECT_EQ(rig.board.currentFrame(), nullptr);
    EXPECT_FALSE(rig.board.startGrab(true));
}

TEST(VideoBoard, TheEndOfABoardClosesItsCamera) {
    Rig rig;
    {
        VideoBoard board(rig.camera, nullptr);
        board.init();
        board.startGrab(true);
        ASSERT_NE(rig.camera.receiver, nullptr);
    }
    EXPECT_EQ(rig.camera.receiver, nullptr);
}

TEST(VideoBoard, SettingTheBoardTypeLeavesItNotReadyButARunningGrabContinues) {
    Rig rig;
    rig.grab();
    EXPECT_TRUE(rig.board.setBoardType(1));
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.count, 1);
    EXPECT_FALSE(rig.board.startGrab(true));
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.count, 2);
}

TEST(VideoBoard, ALookLetsTheCameraCatchUp) {
    Rig rig;
    rig.grab();
    rig.board.currentFrame();
    EXPECT_EQ(rig.camera.looks, 1);
}

TEST(VideoBoard, ItIsWatchedWhileALiveBoardHasAWindow) {
    Rig rig;
    rig.grab();
    EXPECT_TRUE(rig.camera.receiver->isWatched());
    rig.board.noteBoardType(0);
    EXPECT_FALSE(rig.camera.receiver->isWatched());
    rig.board.noteBoardType(1);
    rig.board.setDisplay({0, -1, 0});
    EXPECT_FALSE(rig.camera.receiver->isWatched());
}

TEST(VideoBoard, TheHostsNoteOfTheBoardTypeLeavesItReady) {
    Rig rig;
    rig.board.init();
    EXPECT_TRUE(rig.board.noteBoardType(0));
    EXPECT_EQ(rig.board.boardType(), 0);
    EXPECT_TRUE(rig.board.isReady());
}

TEST(VideoBoard, UnknownBoardTypesAreRefused) {
    Rig rig;
    rig.board.init();
    for (const TarnLong type : {-1, 2, 99}) {
        EXPECT_FALSE(rig.board.setBoardType(type));
    }
    EXPECT_EQ(rig.board.boardType(), 1);
    EXPECT_TRUE(rig.board.isReady());
}

TEST(VideoBoard, CameraTypesGiveTheBufferItsSizeAndBands) {
    Rig rig;
    rig.board.init();
    EXPECT_EQ(rig.board.cameraType(), 0);
    struct {
        TarnLong camera;
        TarnBufferDesc buffer;
    } const rows[] = {{0, {20, 768, 576, 8, 3}}, // none chosen
                      {1, {20, 768, 576, 8, 1}},
                      {2, {20, 640, 480, 8, 3}},
                      {3, {20, 768, 576, 8, 3}},
                      {4, {20, 640, 480, 8, 1}}};
    for (const auto& row : rows) {
        EXPECT_EQ(rig.board.setCameraType(row.camera), row.camera != 0);
        TarnBufferDesc found{sizeof(TarnBufferDesc), 0, 0, 0, 0};
        EXPECT_TRUE(rig.board.describeBuffer(rig.board.allocateBuffer(), found));
        EXPECT_EQ(found.width, row.buffer.width);
        EXPECT_EQ(found.height, row.buffer.height);
        EXPECT_EQ(found.bitsPerSample, 8);
        EXPECT_EQ(found.bands, row.buffer.bands);
    }
    EXPECT_FALSE(rig.board.setCameraType(5));
    EXPECT_EQ(rig.board.cameraType(), 4);
}

TEST(VideoBoard, ThereIsNoBufferBeforeTheBoardIsReady) {
    Rig rig;
    EXPECT_EQ(rig.board.allocateBuffer(), TARN_BUFFER_NONE);
    TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 1, 2, 3, 4};
    EXPECT_FALSE(rig.board.describeBuffer(VideoBoard::currentBuffer, descriptor));
    rig.board.init();
    EXPECT_FALSE(rig.board.describeBuffer(TARN_BUFFER_NONE, descriptor));
    descriptor.recordSize = 16;
    EXPECT_FALSE(rig.board.describeBuffer(VideoBoard::currentBuffer, descriptor));
    EXPECT_EQ(descriptor.width, 1);
    EXPECT_EQ(descriptor.bands, 4);
}

TEST(VideoBoard, GainIsKeptWithinItsRange) {
    Rig rig;
    EXPECT_EQ(rig.board.gain(), -1);
    EXPECT_TRUE(rig.board.setGain(4));
    EXPECT_FALSE(rig.board.setGain(5));
    EXPECT_FALSE(rig.board.setGain(-2));
    EXPECT_EQ(rig.board.gain(), 4);
}

TEST(VideoBoard, TheDisplayGetsAReducedPictureAndTheBoardKeepsTheFullOne) {
    Rig rig;
    rig.grab();
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.newest->width, 384);
    EXPECT_EQ(rig.sink.newest->height, 288);
    EXPECT_EQ(rig.sink.newest->number, 1);
    EXPECT_THAT(rig.sink.newest->pixels, Each(0xff808080U));
    EXPECT_EQ(rig.board.currentFrame()->width, 768);
    rig.board.setDisplay({window, -2, -1});
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.newest->width, 768) << "full size";
    rig.board.setDisplay({window, -2, 0});
    rig.sink.ratio = 2.0;
    rig.camera.deliver();
    EXPECT_EQ(rig.sink.newest->width, 768) << "a screen twice as dense";
}

TEST(VideoBoard, ReferencesAndGainReachTheCameraAtOnce) {
    Rig rig;
    EXPECT_TRUE(isNeutral(rig.camera.settings.controls));
    EXPECT_TRUE(rig.board.setReferences(1, 20.0, 150.0));
    EXPECT_TRUE(rig.board.setReferences(2, 30.0, 40.0));
    rig.board.setGain(3);
    EXPECT_EQ(rig.camera.settings.controls, (PictureControls{20.0, 100.0, 30.0, 40.0, 3}));
    EXPECT_EQ(rig.camera.settings.cameraType, 0);
    rig.board.setCameraType(2);
    EXPECT_EQ(rig.camera.settings.cameraType, 2);
}

TEST(VideoBoard, AMeasuringExposureIsNeitherShownNorKept) {
    Rig rig;
    const ocuva::FramePtr frame = rig.board.frameAfterNow();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->width, 768);
    EXPECT_EQ(rig.sink.count, 0);
    EXPECT_EQ(rig.board.currentFrame(), nullptr);
}

} // namespace
} // namespace hosts
