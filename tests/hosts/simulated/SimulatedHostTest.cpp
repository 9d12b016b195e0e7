#include "hosts/simulated/SimulatedHost.h"

#include "hosts/simulated/config/SimConfig.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace hosts::simulated {
namespace {

using testing::HasSubstr;

constexpr ocuva::Long window = 3;

struct KeepingSink final : public ocuva::FrameSink {
    void present(ocuva::FramePtr frame) override { newest = std::move(frame); }
    double devicePixelRatio() const override { return 1.0; }
    ocuva::FramePtr newest;
};

struct HostRig {
    explicit HostRig(const std::string& simulatorIni = {}) {
        if (!simulatorIni.empty()) {
            folder.write("simulator.ini", simulatorIni);
        }
        windows.attach(window, sink);
        host = std::make_unique<SimulatedHost>(options());
    }
    SimulatedHostOptions options() {
        SimulatedHostOptions chosen;
        chosen.dataFolder = folder.path();
        chosen.windows = &windows;
        chosen.clock = clock;
        return chosen;
    }
    void moveTo(TarnLong axis, double target) {
        ASSERT_NE(host->tn_micro_proxy().TarnLoadStageAbs(axis, static_cast<TarnSingle>(target)), 0);
        host->tn_micro_proxy().TarnStartStage(axis);
        clock->advance(60000.0);
    }
    TarnLong at(TarnLong axis) const {
        TarnLong position = 0;
        host->tn_micro_proxy().TarnReadStagePos(axis, &position);
        return position;
    }
    std::string log() const { return folder.read("tarn.log"); }

    TempFolder folder;
    ocuva::DisplayWindows windows;
    KeepingSink sink;
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    std::unique_ptr<SimulatedHost> host;
};

TEST(SimulatedHost, LiveVideoReachesTheWindowThatWasHandedOver) {
    HostRig rig;
    TarnDisplayRequest display{window, -2, 0};
    rig.host->tn_video().TarnVideoBoardInit();
    rig.host->tn_video().TarnVideoBoardFunction(TARN_BOARD_FUNCTION_DISPLAY, &display);
    rig.host->tn_video().TarnVideoBoardStartGrab(1, 1);
    rig.clock->advance(100.0);
    ASSERT_NE(rig.sink.newest, nullptr);
    EXPECT_EQ(rig.sink.newest->width, 384);
}

TEST(SimulatedHost, TheCameraBeginsWithTheReferencesThatWereSavedForItsType) {
    HostRig rig;
    rig.folder.write("TARN.INI", "[tn_video]\nCameraType=2\n[tn_video\\meteor2]\nDefaultContrast100_2=6550\n"
                                 "DefaultHue100_2=1000\nDefaultBrightness100_3=9000\n"
                                 "DefaultSaturation100_2=99900\n");
    rig.host = std::make_unique<SimulatedHost>(rig.options());
    TarnDouble first = 0.0;
    TarnDouble second = 0.0;
    rig.host->tn_video().TarnVideoCameraGetReferences(1, &first, &second);
    EXPECT_EQ(first, 65.5);
    EXPECT_EQ(second, 50.0) << "those of another camera do not count";
    rig.host->tn_video().TarnVideoCameraGetReferences(2, &first, &second);
    EXPECT_EQ(first, 10.0);
    EXPECT_EQ(second, 100.0);
}

TEST(SimulatedHost, TheStageIsAsTheConfigurationSays) {
    HostRig rig("[Stage]\nXMin=-100\nXMax=300\nStartX=42\nZMin=-5\nZMax=5\n");
    TarnLong lower = 0;
    TarnLong upper = 0;
    EXPECT_NE(rig.host->tn_lib_proxy().TarnGetStageLimits(1, &lower, &upper), 0);
    EXPECT_EQ(lower, -100);
    EXPECT_EQ(upper, 300);
    EXPECT_EQ(rig.at(1), 42);
}

TEST(SimulatedHost, WithoutAConfigurationTheStageHasTheDefaultsOfItsSettings) {
    HostRig rig;
    const AxisSettings defaults = StageSettings().z;
    TarnLong lower = 0;
    TarnLong upper = 0;
    rig.host->tn_lib_proxy().TarnGetStageLimits(3, &lower, &upper);
    EXPECT_EQ(lower, defaults.lower);
    EXPECT_EQ(upper, defaults.upper);
    EXPECT_EQ(defaults.speed, settings::speedZ.defaultValue);
    EXPECT_EQ(defaults.acceleration, settings::accelerationZ.defaultValue);
    EXPECT_EQ(StageSettings().x.speed, settings::speedX.defaultValue);
    EXPECT_EQ(StageSettings().y.acceleration, settings::accelerationY.defaultValue);
    EXPECT_EQ(defaults.backlash, settings::backlashZ.defaultValue);
}

TEST(SimulatedHost, TheFieldFollowsTheMagnification) {
    HostRig rig;
    EXPECT_EQ(rig.host->trueField().width, 640.0);
    rig.host->tn_reg().TarnRegisterSetString("tn_video", "VideoMag", "800", "TARN.INI");
    EXPECT_EQ(rig.host->trueField().width, 320.0);
    const TarnSingle x = 1000.0F;
    const TarnSingle y = 500.0F;
    rig.host->tn_lib_proxy().TarnSetVideoMag100Factors(&x, &y);
    EXPECT_EQ(rig.host->trueField().width, 125.0);
    EXPECT_EQ(rig.host->trueField().height, 62.5);
}

TEST(SimulatedHost, TheCameraTypeOutlivesTheHost) {
    HostRig rig;
    EXPECT_NE(rig.host->tn_video().TarnVideoSetCurrentCameraType(4), 0);
    EXPECT_EQ(rig.host->tn_video().TarnVideoSetCurrentCameraType(7), 0);
    rig.host.reset();
    rig.host = std::make_unique<SimulatedHost>(rig.options());
    EXPECT_EQ(rig.host->tn_video().TarnVideoGetCurrentCameraType(), 4);
}

TEST(SimulatedHost, AStoredCameraTypeThatIsNoneLeavesNoneChosen) {
    HostRig rig;
    rig.host->tn_reg().TarnRegisterSetString("tn_video", "CameraType", "9", "TARN.INI");
    rig.host = std::make_unique<SimulatedHost>(rig.options());
    EXPECT_EQ(rig.host->tn_video().TarnVideoGetCurrentCameraType(), 0);
    EXPECT_THAT(rig.log(), HasSubstr("CameraType=9"));
}

TEST(SimulatedHost, AMessageBoxIsShownByTheProgramAndItsAnswerLogged) {
    HostRig rig;
    SimulatedHostOptions options = rig.options();
    std::string shown;
    options.showMessage = [&](const std::string& text, const std::string& title, TarnLong style) {
        shown = title + "/" + text + "/" + std::to_string(style);
        return TarnLong{TARN_ANSWER_CANCEL};
    };
    rig.host = std::make_unique<SimulatedHost>(options);
    EXPECT_EQ(rig.host->tn_log().TarnMessageBoxVB("TnOcuvaSelect", "Stage", TARN_BOX_OK_CANCEL),
              TARN_ANSWER_CANCEL);
    EXPECT_THAT(shown, HasSubstr("Stage/Click the point on the live image"));
    EXPECT_THAT(rig.log(), HasSubstr("Click the point on the live image"));
    EXPECT_THAT(rig.log(), HasSubstr("answer 2"));
}

TEST(SimulatedHost, NoExceptionOfAMessageBoxCrossesTheBoundary) {
    HostRig rig;
    SimulatedHostOptions options = rig.options();
    options.showMessage = [](const std::string&, const std::string&, TarnLong) -> TarnLong {
        throw std::runtime_error("no screen");
    };
    rig.host = std::make_unique<SimulatedHost>(options);
    EXPECT_EQ(rig.host->tn_log().TarnMessageBoxVB("Sure?", "", TARN_BOX_YES_NO), TARN_ANSWER_NO);
    EXPECT_THAT(rig.log(), HasSubstr("TarnMessageBoxVB failed: no screen"));
}

TEST(SimulatedHost, MissingPointersAreRefusedEverywhere) {
    HostRig rig;
    ocuva::TnLibProxy& general = rig.host->tn_lib_proxy();
    TarnSingle single = 1.0F;
    TarnLong number = 0;
    EXPECT_EQ(general.TarnGetVideoMag100Factors(nullptr, &single), 0);
    EXPECT_EQ(general.TarnSetVideoMag100Factors(&single, nullptr), 0);
    EXPECT_EQ(general.TarnGetStageLimits(1, &number, nullptr), 0);
    EXPECT_EQ(general.TarnGetDirStd(nullptr, 10), 0);
    EXPECT_EQ(general.TarnDbObjectNew(nullptr), 0);
    EXPECT_EQ(general.TarnDbGetStagePos(1, nullptr, &number, &number), 0);
    EXPECT_EQ(general.TarnSolvePlan(3, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.host->tn_micro_proxy().TarnReadStagePos(1, nullptr), 0);
    EXPECT_EQ(rig.host->tn_micro_proxy().TarnReadStageStatus(1, 0, nullptr), 0);
    ocuva::TnVideo& video = rig.host->tn_video();
    video.TarnVideoBoardInit();
    for (const TarnLong code : {0, 1, 2, 3}) {
        EXPECT_EQ(video.TarnVideoBoardFunction(code, nullptr), 0);
    }
    EXPECT_EQ(video.TarnVideoBufferAlloc(nullptr, TARN_BUFFER_CURRENT), TARN_BUFFER_NONE);
    EXPECT_EQ(video.TarnVideoGetBufferDesc(0, nullptr), 0);
    EXPECT_EQ(video.TarnVideoCameraGetReferences(1, nullptr, nullptr), 0);
    EXPECT_EQ(rig.host->tn_vduti().TarnVideoBufferComputeStatistics(nullptr, 0, 0, -1, -1, nullptr, nullptr,
                                                                    nullptr),
              0);
    EXPECT_EQ(rig.host->tn_reg().TarnRegisterGetInt(nullptr, nullptr, 6, nullptr), 6);
    rig.host->tn_log().TarnPrintfVB(nullptr);
    TarnSaveRequest request{TARN_SAVE_SUB_CODE, nullptr};
    EXPECT_EQ(video.TarnVideoBoardFunction(TARN_BOARD_FUNCTION_SAVE, &request), 0);
}

TEST(SimulatedHost, StatisticsOfARegionCountItsPixels) {
    HostRig rig;
    rig.host->tn_video().TarnVideoBoardInit();
    rig.host->tn_video().TarnVideoBoardStartGrab(0, 1);
    rig.clock->advance(100.0);
    struct {
        TarnLong left, top, right, bottom, count;
    } const rows[] = {{0, 0, -1, -1, 768 * 576},       {0, 0, 0, 0, 1}, {10, 20, 19, 29, 100},
                      {-5, -5, 9999, 9999, 768 * 576}, {5, 5, 4, 4, 0}, {760, 570, -1, -1, 48},
                      {0, 0, -2147483647, -1, 0}};
    for (const auto& row : rows) {
        TarnLong buffer = 0;
        TarnLong count = -1;
        TarnLong sum = -1;
        TarnDouble variance = -1.0;
        EXPECT_NE(rig.host->tn_vduti().TarnVideoBufferComputeStatistics(&buffer, row.left, row.top, row.right,
                                                                        row.bottom, &count, &sum, &variance),
                  0);
        EXPECT_EQ(count, row.count);
        EXPECT_LE(sum, 255 * count);
    }
}

TEST(SimulatedHost, AnUnusableDataFolderIsReportedInASentence) {
    TempFolder folder;
    folder.write("file", "in the way");
    SimulatedHostOptions options;
    options.dataFolder = folder / "file";
    try {
        const SimulatedHost host(options);
        FAIL() << "a file is no folder";
    } catch (const std::runtime_error& problem) {
        EXPECT_THAT(problem.what(), HasSubstr((folder / "file").string()));
    }
}

TEST(SimulatedHost, TheMessageBusCanBeReplaced) {
    HostRig rig;
    SimulatedHostOptions options = rig.options();
    std::string sent;
    options.sendByName = [&](const std::string& name) {
        sent = name;
        return true;
    };
    rig.host = std::make_unique<SimulatedHost>(options);
    EXPECT_NE(rig.host->tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp"), 0);
    EXPECT_EQ(sent, "OCUVA_WakeUp");
}

} // namespace
} // namespace hosts::simulated
