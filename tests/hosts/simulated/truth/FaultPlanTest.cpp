#include "hosts/simulated/faults/FaultPlan.h"

#include "tests/hosts/simulated/truth/TruthRig.h"

namespace hosts::simulated {
namespace {

using ocuva::axisX;

struct Faulty : TruthRig {
    void fault(const std::string& lines) { configure("[Faults]\n" + lines + "\n"); }
    bool load(TarnLong target) {
        return micro().TarnLoadStageAbs(axisX, static_cast<TarnSingle>(target)) != 0;
    }
};

TEST(FaultPlan, FaultsComeAndGoWhileTheHostRuns) {
    Faulty rig;
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(rig.load(100));
        rig.fault("TarnLoadStageAbs=fail");
        EXPECT_FALSE(rig.load(100));
        rig.fault("TarnLoadStageAbs=off");
    }
}

TEST(FaultPlan, NamesAreFoundWithoutRegardToCase) {
    Faulty rig;
    rig.fault("tarnloadstageabs=FAIL");
    EXPECT_FALSE(rig.load(100));
}

TEST(FaultPlan, AnUnknownKeyIsLoggedOnceAndIgnored) {
    Faulty rig;
    rig.fault("TarnFlyToTheMoon=fail\nTarnFlyToTheMoon.SlowMs=5");
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(rig.load(i));
    }
    EXPECT_EQ(rig.timesInLog("there is no fault \"TarnFlyToTheMoon\""), 1);
    EXPECT_EQ(rig.timesInLog("there is no fault \"TarnFlyToTheMoon.SlowMs\""), 1);
}

TEST(FaultPlan, AnInvalidValueIsLoggedOnceAndCountsAsOff) {
    const char* const rows[] = {"TarnLoadStageAbs=maybe",
                                "TarnLoadStageAbs.SlowMs=-1",
                                "TarnLoadStageAbs.SlowMs=nan",
                                "BoardRefuses=yes",
                                "GrabStopsByItself=2.5",
                                "GrabStopsByItself=-3",
                                "Camera=blurred",
                                "Stage=tired",
                                "StageLie=far",
                                "Focus=everything",
                                "DbObject=gone",
                                "StoreNotWritable=2",
                                "Lamp=7"};
    for (const char* row : rows) {
        Faulty rig;
        rig.fault(row);
        const double beganMs = rig.clock->nowMs();
        EXPECT_TRUE(rig.load(1)) << row;
        EXPECT_TRUE(rig.load(2)) << row;
        EXPECT_EQ(rig.clock->nowMs(), beganMs) << row;
        EXPECT_EQ(rig.timesInLog(std::string(row) + " is not a usable fault"), 1) << row;
        rig.live();
        EXPECT_GT(rig.greyAfter().mean, 10.0) << row;
    }
}

TEST(FaultPlan, ActiveFaultsAreLogged) {
    Faulty rig;
    rig.fault("Camera=black\nTarnStartStage=fail");
    rig.load(1);
    rig.load(2);
    EXPECT_EQ(rig.timesInLog("faults: Camera=black TarnStartStage=fail"), 1);
    rig.fault("");
    rig.load(1);
    EXPECT_EQ(rig.timesInLog("faults: none any more"), 1);
}

TEST(FaultPlan, ASlowFunctionAnswersAfterItsTimeAndThenFailsIfItShould) {
    Faulty rig;
    rig.fault("TarnLoadStageAbs.SlowMs=250");
    EXPECT_TRUE(rig.load(1));
    EXPECT_EQ(rig.clock->nowMs(), 250.0);
    rig.fault("TarnLoadStageAbs.SlowMs=250\nTarnLoadStageAbs=fail");
    EXPECT_FALSE(rig.load(1));
    EXPECT_EQ(rig.clock->nowMs(), 500.0);
}

TEST(FaultPlan, ADamagedFileMeansNoFaults) {
    Faulty rig;
    rig.folder.write("simulator.ini", std::string("\0[Faults]\nTarnLoadStageAbs=fail\n", 32));
    EXPECT_TRUE(rig.load(1));
}

TEST(FaultyStage, ARefusingOneTakesNoMove) {
    Faulty rig;
    rig.fault("Stage=refusing");
    EXPECT_FALSE(rig.load(100));
    EXPECT_EQ(rig.micro().TarnLoadStageRelSecure(1, 10.0F), 0);
    EXPECT_EQ(rig.micro().TarnBacklashStage(0), 0);
    EXPECT_EQ(rig.micro().TarnStartStage(0), 0);
    EXPECT_FALSE(rig.moving(axisX));
    rig.fault("");
    rig.goTo(axisX, 100);
    EXPECT_EQ(rig.host->truth().position().x, 100.0);
}

TEST(FaultyStage, AStallingOneStopsShortOfItsTarget) {
    Faulty rig;
    rig.fault("Stage=stalling");
    EXPECT_TRUE(rig.load(100));
    rig.micro().TarnStartStage(axisX);
    rig.clock->advance(1000.0);
    EXPECT_TRUE(rig.moving(axisX));
    rig.clock->advance(2500.0);
    EXPECT_FALSE(rig.moving(axisX));
    EXPECT_EQ(rig.reading(axisX), 0);
}

TEST(FaultyStage, ALyingOneReportsAnotherPlaceThanItsOwn) {
    Faulty rig;
    rig.goTo(axisX, 100);
    rig.fault("Stage=lying\nStageLie=-30");
    EXPECT_EQ(rig.reading(axisX), 70);
    EXPECT_EQ(rig.host->truth().position().x, 100.0);
    rig.fault("Stage=lying");
    EXPECT_EQ(rig.reading(axisX), 110);
    rig.fault("StageLie=5");
    EXPECT_EQ(rig.reading(axisX), 100);
}

TEST(FaultyDatabase, AStandardIsMissingOrHasNoPosition) {
    Faulty rig;
    rig.folder.write("standards/Known.std", "[OCUVASTD]\nName=Known\nX=1\nY=2\nZ=3\n");
    ocuva::TnLibProxy& general = rig.host->tn_lib_proxy();
    const std::string name = (rig.folder / "standards/Known.std").string();
    const TarnLong handle = general.TarnDbObjectNew("OCUVASTD");
    TarnLong x = 0;
    TarnLong y = 0;
    TarnLong z = 0;
    rig.fault("DbObject=missing");
    EXPECT_EQ(general.TarnDbObjectRead(handle, name.c_str()), 0);
    rig.fault("DbObject=noposition");
    EXPECT_NE(general.TarnDbObjectRead(handle, name.c_str()), 0);
    EXPECT_EQ(general.TarnDbGetStagePos(handle, &x, &y, &z), 0);
    rig.fault("");
    EXPECT_NE(general.TarnDbGetStagePos(handle, &x, &y, &z), 0);
    EXPECT_EQ(x, 1);
}

TEST(FaultyStore, ThatIsNotWritableKeepsWhatItHad) {
    Faulty rig;
    ocuva::TnReg& registry = rig.host->tn_reg();
    registry.TarnRegisterSetString("S", "K", "1", "Ocuva.INI");
    rig.fault("StoreNotWritable=1");
    EXPECT_EQ(registry.TarnRegisterSetString("S", "K", "2", "Ocuva.INI"), 0);
    const TarnSingle factor = 5.0F;
    EXPECT_EQ(rig.host->tn_lib_proxy().TarnSetVideoMag100Factors(&factor, &factor), 0);
    rig.fault("");
    EXPECT_EQ(registry.TarnRegisterGetInt("S", "K", 0, "Ocuva.INI"), 1);
    EXPECT_EQ(rig.host->truth().field().width, 640.0);
}

} // namespace
} // namespace hosts::simulated
