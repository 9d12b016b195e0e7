#include "tests/conformance/HostUnderTest.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

class VideoConformance : public HostConformance {
protected:
    ocuva::TnVideo& video() { return host().tn_video(); }

    /// The board ready, as the program brings it up.
    void bringUp() {
        EXPECT_NE(host().tn_lib_proxy().TarnSetVideoBoardType(1), 0);
        ASSERT_NE(video().TarnVideoBoardInit(), 0);
    }
    void grabForAWhile() {
        ASSERT_NE(video().TarnVideoBoardStartGrab(1, 1), 0);
        underTest().letTimePass(500.0);
        video().TarnVideoBoardHaltGrab();
    }
    struct Statistics {
        TarnLong result = 0;
        TarnLong count = -1;
        TarnLong sum = -1;
        TarnDouble variance = -1.0;
    };
    Statistics statistics(TarnLong left = 0, TarnLong top = 0, TarnLong right = -1, TarnLong bottom = -1) {
        Statistics found;
        TarnLong buffer = 0;
        found.result = host().tn_vduti().TarnVideoBufferComputeStatistics(
            &buffer, left, top, right, bottom, &found.count, &found.sum, &found.variance);
        return found;
    }
};

// Guards against an acquisition button that stays pressed on a board that is not there.
TEST_P(VideoConformance, AGrabIsRefusedBeforeTheBoardIsReady) {
    EXPECT_EQ(video().TarnVideoBoardStartGrab(1, 1), 0);
    bringUp();
    EXPECT_NE(video().TarnVideoBoardStartGrab(1, 1), 0);
    video().TarnVideoBoardShutdown();
    EXPECT_EQ(video().TarnVideoBoardStartGrab(1, 1), 0);
}

// Guards against a board that only comes up once: the set-up dialog shuts it down and initialises it again.
TEST_P(VideoConformance, TheBoardCanBeBroughtUpAgain) {
    for (int round = 0; round < 3; ++round) {
        bringUp();
        grabForAWhile();
        video().TarnVideoBoardShutdown();
    }
}

// Guards against crashes on calls out of turn: the program halts and shuts down without asking first.
TEST_P(VideoConformance, HaltAndShutdownOutOfTurnDoNoHarm) {
    video().TarnVideoBoardHaltGrab();
    video().TarnVideoBoardShutdown();
    bringUp();
    video().TarnVideoBoardHaltGrab();
    video().TarnVideoBoardShutdown();
    video().TarnVideoBoardShutdown();
}

// Guards against a board choice that leaves the board of before in use.
TEST_P(VideoConformance, SettingTheBoardTypeLeavesTheBoardNotReady) {
    bringUp();
    for (const TarnLong type : {0, 1}) {
        EXPECT_NE(video().TarnVideoSetCurrentBoardType(type), 0);
        EXPECT_EQ(video().TarnVideoGetCurrentBoardType(), type);
        EXPECT_EQ(video().TarnVideoBoardStartGrab(1, 1), 0);
        EXPECT_NE(video().TarnVideoBoardInit(), 0);
        EXPECT_NE(video().TarnVideoBoardStartGrab(1, 1), 0);
    }
}

// Guards against a main window that names its board after the board object has initialised it, and so loses
// it.
TEST_P(VideoConformance, TellingTheHostTheBoardTypeLeavesTheBoardReady) {
    ASSERT_NE(video().TarnVideoBoardInit(), 0);
    EXPECT_NE(host().tn_lib_proxy().TarnSetVideoBoardType(1), 0);
    EXPECT_EQ(video().TarnVideoGetCurrentBoardType(), 1);
    EXPECT_NE(video().TarnVideoBoardStartGrab(1, 1), 0);
}

// Guards against camera buttons that show another camera than the one in use.
TEST_P(VideoConformance, TheCameraTypeIsReadAsItWasSet) {
    for (const TarnLong type : {1, 2, 3, 4}) {
        EXPECT_NE(video().TarnVideoSetCurrentCameraType(type), 0);
        EXPECT_EQ(video().TarnVideoGetCurrentCameraType(), type);
    }
    EXPECT_NE(host().tn_lib_proxy().TarnSetVideoCameraType(2), 0);
    EXPECT_EQ(video().TarnVideoGetCurrentCameraType(), 2);
}

// Guards against a monitor sized after nothing: a board that is not ready has no buffer.
TEST_P(VideoConformance, ABufferIsDescribedOnceTheBoardIsReady) {
    TarnBufferDesc descriptor{};
    descriptor.recordSize = sizeof(descriptor);
    EXPECT_EQ(video().TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT), TARN_BUFFER_NONE);
    bringUp();
    const TarnLong handle = video().TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT);
    ASSERT_NE(handle, TARN_BUFFER_NONE);
    TarnBufferDesc found{};
    found.recordSize = sizeof(found);
    EXPECT_NE(video().TarnVideoGetBufferDesc(handle, &found), 0);
    EXPECT_GT(found.width, 0);
    EXPECT_GT(found.height, 0);
    EXPECT_EQ(found.bitsPerSample, 8);
    EXPECT_TRUE(found.bands == 1 || found.bands == 3) << found.bands;
    EXPECT_EQ(found.recordSize, TarnLong{sizeof(found)});
}

// Guards against a monitor, a file or a statistic of a size that the program cannot take.
TEST_P(VideoConformance, PicturesOfEveryCameraTypeHaveASizeThatTheProgramTakes) {
    constexpr TarnLong largestSide = 32767;
    constexpr std::int64_t mostPixels = 100'000'000;
    bringUp();
    for (const TarnLong type : {1, 2, 3, 4}) {
        video().TarnVideoSetCurrentCameraType(type);
        TarnBufferDesc found{};
        found.recordSize = sizeof(found);
        const TarnLong handle = video().TarnVideoBufferAlloc(&found, TARN_BUFFER_CURRENT);
        ASSERT_NE(video().TarnVideoGetBufferDesc(handle, &found), 0) << type;
        EXPECT_TRUE(found.width >= 1 && found.width <= largestSide) << type << ": " << found.width;
        EXPECT_TRUE(found.height >= 1 && found.height <= largestSide) << type << ": " << found.height;
        EXPECT_LE(std::int64_t{found.width} * found.height, mostPixels) << type;
    }
}

// Guards against sliders, sizes and figures that show an invented 0 after a call that failed.
TEST_P(VideoConformance, AFailedReadLeavesTheLastKnownValue) {
    TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 11, 22, 33, 44};
    EXPECT_EQ(video().TarnVideoGetBufferDesc(0, &descriptor), 0) << "the board is not ready";
    EXPECT_EQ(descriptor.width, 11);
    EXPECT_EQ(descriptor.bands, 44);
    TarnDouble first = 5.5;
    TarnDouble second = 6.5;
    EXPECT_EQ(video().TarnVideoCameraGetReferences(9, &first, &second), 0);
    EXPECT_EQ(first, 5.5);
    EXPECT_EQ(second, 6.5);
    TarnLong buffer = 77;
    TarnLong count = 1;
    TarnLong sum = 2;
    TarnDouble variance = 3.0;
    EXPECT_EQ(
        host().tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &count, &sum, &variance),
        0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(sum, 2);
    EXPECT_EQ(variance, 3.0);
}

// Guards against a window that freezes while the camera is set up or a frame is awaited.
TEST_P(VideoConformance, NoCallWaitsForAFrame) {
    TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 0, 0, 0, 0};
    TarnLong gain = -1;
    bringUp();
    expectAtOnce("single grab", [&] { video().TarnVideoBoardStartGrab(0, 1); });
    expectAtOnce("grab", [&] { video().TarnVideoBoardStartGrab(1, 1); });
    expectAtOnce("camera type", [&] { video().TarnVideoSetCurrentCameraType(2); });
    expectAtOnce("references", [&] { video().TarnVideoCameraSetReferences(1, 40.0, 60.0); });
    expectAtOnce("gain", [&] { video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain); });
    expectAtOnce("buffer", [&] { video().TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT); });
    expectAtOnce("halt", [&] { video().TarnVideoBoardHaltGrab(); });
    expectAtOnce("shutdown", [&] { video().TarnVideoBoardShutdown(); });
    expectAtOnce("initialisation", [&] { video().TarnVideoBoardInit(); });
}

// Guards against a host that knows a longer record and writes past the caller's.
TEST_P(VideoConformance, ABufferDescriptionStaysInItsRecord) {
    bringUp();
    struct {
        char before[32];
        TarnBufferDesc descriptor;
        char after[32];
    } guarded{};
    std::memset(&guarded, 0x5A, sizeof(guarded));
    guarded.descriptor.recordSize = sizeof(TarnBufferDesc);
    const TarnLong handle = video().TarnVideoBufferAlloc(&guarded.descriptor, TARN_BUFFER_CURRENT);
    EXPECT_NE(video().TarnVideoGetBufferDesc(handle, &guarded.descriptor), 0);
    for (const char byte : guarded.before) {
        EXPECT_EQ(byte, 0x5A);
    }
    for (const char byte : guarded.after) {
        EXPECT_EQ(byte, 0x5A);
    }
}

// Guards against one leak of a buffer per zoom change.
TEST_P(VideoConformance, BuffersDoNotRunOut) {
    bringUp();
    TarnBufferDesc descriptor{};
    for (int i = 0; i < 2000; ++i) {
        descriptor.recordSize = sizeof(descriptor);
        ASSERT_NE(video().TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT), TARN_BUFFER_NONE) << i;
    }
}

// Guards against sliders that show what the operator typed and not what the camera does.
TEST_P(VideoConformance, ReferencesAreClampedAndMinusOneLeavesASlot) {
    bringUp();
    for (const TarnLong group : {1, 2}) {
        TarnDouble first = -5.0;
        TarnDouble second = -5.0;
        EXPECT_NE(video().TarnVideoCameraSetReferences(group, 150.0, 30.5), 0);
        EXPECT_NE(video().TarnVideoCameraGetReferences(group, &first, &second), 0);
        EXPECT_EQ(first, 100.0);
        EXPECT_EQ(second, 30.5);
        EXPECT_NE(video().TarnVideoCameraSetReferences(group, -1.0, -20.0), 0);
        EXPECT_NE(video().TarnVideoCameraGetReferences(group, &first, &second), 0);
        EXPECT_EQ(first, 100.0);
        EXPECT_EQ(second, 0.0);
    }
    TarnDouble value = 1.0;
    EXPECT_EQ(video().TarnVideoCameraGetReferences(3, &value, &value), 0);
}

// Guards against a contrast that moves when only the hue is set.
TEST_P(VideoConformance, TheGroupsOfReferencesAreApart) {
    video().TarnVideoCameraSetReferences(1, 11.0, 22.0);
    video().TarnVideoCameraSetReferences(2, 33.0, 44.0);
    TarnDouble first = 0.0;
    TarnDouble second = 0.0;
    video().TarnVideoCameraGetReferences(1, &first, &second);
    EXPECT_EQ(first, 11.0);
    EXPECT_EQ(second, 22.0);
}

// Guards against statistics of memory that no frame was ever grabbed into.
TEST_P(VideoConformance, StatisticsBeforeTheFirstFrameAreZero) {
    bringUp();
    const Statistics found = statistics();
    EXPECT_EQ(found.count, 0);
    EXPECT_EQ(found.sum, 0);
    EXPECT_EQ(found.variance, 0.0);
}

// Guards against statistics of a part of the picture, or of the reduced one that is shown.
TEST_P(VideoConformance, StatisticsCountEveryPixelOfTheBuffer) {
    bringUp();
    grabForAWhile();
    TarnBufferDesc descriptor{};
    descriptor.recordSize = sizeof(descriptor);
    video().TarnVideoGetBufferDesc(video().TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT),
                                   &descriptor);
    const Statistics found = statistics();
    EXPECT_NE(found.result, 0);
    EXPECT_EQ(found.count, descriptor.width * descriptor.height);
    EXPECT_GE(found.sum, 0);
    EXPECT_LE(found.sum, found.count * 255);
    EXPECT_GE(found.variance, 0.0);
    EXPECT_LE(found.variance, 255.0 * 255.0 / 4.0 + 1.0);
}

// Guards against statistics that change while the picture does not.
TEST_P(VideoConformance, StatisticsOfAHaltedPictureStayTheSame) {
    bringUp();
    grabForAWhile();
    const Statistics first = statistics();
    underTest().letTimePass(1000.0);
    const Statistics second = statistics();
    EXPECT_EQ(first.sum, second.sum);
    EXPECT_EQ(first.variance, second.variance);
}

// Guards against a grab for one frame that grabs none.
TEST_P(VideoConformance, ASingleGrabTakesAFrame) {
    bringUp();
    EXPECT_NE(video().TarnVideoBoardStartGrab(0, 1), 0);
    underTest().letTimePass(500.0);
    EXPECT_GT(statistics().count, 0);
}

// Guards against picture files of another format than the name says, and against a save that reports success
// without a picture.
TEST_P(VideoConformance, TheImageIsSavedInTheFormatOfItsName) {
    bringUp();
    GuardedBuffer key(40);
    const TarnLong length = host().Tn_log().TarnGetUniqueObjectKey(key.data(), key.size());
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("ocuva-save-" + key.text(length));
    std::filesystem::create_directories(folder);
    const auto save = [&](const std::string& name) {
        const std::string path = (folder / name).string();
        TarnSaveRequest request{TARN_SAVE_SUB_CODE, path.c_str()};
        return video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_SAVE, &request);
    };
    EXPECT_EQ(save("early.tif"), 0) << "no frame yet";
    grabForAWhile();
    struct {
        const char* name;
        const char* beginsWith;
    } const rows[] = {{"a.bmp", "BM"}, {"b.BMP", "BM"}, {"c.tif", "II*"}, {"d", "II*"}, {"e.jpg", "II*"}};
    for (const auto& row : rows) {
        EXPECT_NE(save(row.name), 0) << row.name;
        std::ifstream file(folder / row.name, std::ios::binary);
        std::string head(std::strlen(row.beginsWith), '\0');
        file.read(head.data(), static_cast<std::streamsize>(head.size()));
        EXPECT_EQ(head, row.beginsWith) << row.name;
    }
    EXPECT_EQ(save("no/such/folder/f.tif"), 0);
    std::filesystem::remove_all(folder);
}

// Guards against a crash where a number of another function's meaning arrives.
TEST_P(VideoConformance, BoardFunctionsTakeTheirRecordsAndRefuseOthers) {
    bringUp();
    TarnDisplayRequest display{1, -2, -1};
    EXPECT_NE(video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_DISPLAY, &display), 0);
    for (TarnLong gain = -1; gain <= 4; ++gain) {
        EXPECT_NE(video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_GAIN, &gain), 0) << gain;
    }
    TarnLong number = 0;
    EXPECT_EQ(video().TarnVideoBoardFunction(99, &number), 0);
}

INSTANTIATE_TEST_SUITE_P(Hosts, VideoConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
