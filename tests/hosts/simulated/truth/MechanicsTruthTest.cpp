#include "hosts/common/services/IniText.h"
#include "hosts/simulated/config/MechanicsTable.h"
#include "tests/hosts/simulated/truth/TruthRig.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

using testing::HasSubstr;

using ocuva::axisX;
using ocuva::axisZ;

TEST(IdealMechanics, TheSampleIsWhereTheStageSaysItIs) {
    TruthRig rig;
    for (const TarnLong x : {500, -300, 200}) {
        rig.goTo(axisX, x);
        EXPECT_EQ(rig.host->truth().position().x, x);
        EXPECT_EQ(rig.reading(axisX), x);
    }
}

TEST(Play, TheSampleLagsWhenTheDirectionTurns) {
    TruthRig rig("[Mechanics]\nPlayX=4\n");
    const auto expect = [&rig](TarnLong reading, double truth) {
        rig.goTo(axisX, reading);
        EXPECT_EQ(rig.reading(axisX), reading);
        EXPECT_NEAR(rig.host->truth().position().x, truth, 1e-9) << "at " << reading;
    };
    expect(100, 100.0);
    expect(98, 100.0);
    expect(96, 100.0);
    expect(50, 54.0);
    expect(53, 54.0);
    expect(60, 60.0);
}

TEST(Play, TheBacklashMoveMakesTheReadingTrueOnAllAxes) {
    TruthRig rig("[Mechanics]\nPlayX=4\nPlayY=3\nPlayZ=2\n");
    for (const TarnLong axis : {1, 2, 3}) {
        rig.goTo(axis, -50);
    }
    EXPECT_NEAR(rig.host->truth().position().x, -46.0, 1e-9);
    EXPECT_NEAR(rig.host->truth().position().z, -48.0, 1e-9);
    rig.micro().TarnBacklashStage(0);
    rig.micro().TarnStartStage(0);
    rig.clock->advance(20000.0);
    const ocuva::ExactStagePosition at = rig.host->truth().position();
    EXPECT_NEAR(at.x, -50.0, 1e-9);
    EXPECT_NEAR(at.y, -50.0, 1e-9);
    EXPECT_NEAR(at.z, -50.0, 1e-9);
}

TEST(Play, ABacklashMoveShorterThanThePlayLeavesTheRestOfIt) {
    TruthRig rig("[Stage]\nBacklashX=3\n[Mechanics]\nPlayX=10\n");
    rig.goTo(axisX, -50);
    rig.micro().TarnBacklashStage(axisX);
    rig.micro().TarnStartStage(axisX);
    rig.clock->advance(20000.0);
    EXPECT_NEAR(rig.host->truth().position().x, -43.0, 1e-9);
}

TEST(Play, ThePictureShowsTheSamplesPositionNotTheReading) {
    TruthRig worn("[Mechanics]\nPlayX=4\n");
    TruthRig ideal;
    worn.goTo(axisX, -50);
    ideal.goTo(axisX, -46);
    worn.live();
    ideal.live();
    EXPECT_EQ(worn.frameAfter()->pixels, ideal.frameAfter()->pixels);
    ideal.goTo(axisX, -50);
    EXPECT_NE(worn.frameAfter()->pixels, ideal.frameAfter()->pixels);
}

TEST(Settling, TheSampleSwingsAfterAStopAndComesToRest) {
    TruthRig rig("[Mechanics]\nSettlingAmplitude=5\nSettlingMs=400\n");
    EXPECT_EQ(rig.host->truth().position().x, 0.0) << "nothing has moved yet";
    rig.micro().TarnLoadStageAbs(axisX, 100.0F);
    rig.micro().TarnStartStage(axisX);
    while (rig.moving(axisX)) {
    }
    double most = 0.0;
    for (int ms = 0; ms < 100; ++ms) {
        rig.clock->advance(1.0);
        most = std::max(most, std::abs(rig.host->truth().position().x - 100.0));
        EXPECT_EQ(rig.reading(axisX), 100);
    }
    EXPECT_GT(most, 2.0);
    EXPECT_LE(most, 5.0);
    rig.clock->advance(300.0);
    for (int ms = 0; ms < 100; ++ms) {
        rig.clock->advance(1.0);
        EXPECT_LE(std::abs(rig.host->truth().position().x - 100.0), 0.25);
    }
}

TEST(Drift, TheSampleCreepsAndTheReadingDoesNot) {
    TruthRig rig("[Mechanics]\nDriftX=1.5\nDriftZ=-0.5\n");
    rig.clock->advance(10.0 * 60000.0);
    EXPECT_NEAR(rig.host->truth().position().x, 15.0, 1e-6);
    EXPECT_NEAR(rig.host->truth().position().z, -5.0, 1e-6);
    EXPECT_EQ(rig.reading(axisX), 0);
    EXPECT_EQ(rig.reading(axisZ), 0);
}

TEST(Drift, TheFocusSearchFindsTheFocusThatHasCreptAway) {
    TruthRig rig("[Mechanics]\nDriftZ=0.5\n");
    rig.video().TarnVideoBoardInit();
    rig.clock->advance(10.0 * 60000.0);
    EXPECT_GT(std::abs(rig.host->truth().defocus()), 4.0);
    EXPECT_NE(rig.micro().TarnAutoFocusExt(-1), 0);
    EXPECT_NEAR(rig.host->truth().defocus(), 0.0, 1.5);
    EXPECT_NEAR(rig.reading(axisZ), -5.0, 1.5);
}

TEST(Stall, TheAxisStopsShortAndReportsThatItMovesUntilItsTimeout) {
    TruthRig rig("[Mechanics]\nStallAxis=1\nStallAfter=40\nStallTimeoutMs=2000\n");
    rig.micro().TarnLoadStageAbs(axisX, -100.0F);
    rig.micro().TarnStartStage(axisX);
    rig.clock->advance(1900.0);
    EXPECT_TRUE(rig.moving(axisX));
    EXPECT_EQ(rig.reading(axisX), -40);
    rig.clock->advance(1000.0);
    EXPECT_FALSE(rig.moving(axisX));
    EXPECT_NEAR(rig.host->truth().position().x, -40.0, 1e-9);
    rig.goTo(2, 100);
    EXPECT_EQ(rig.reading(2), 100) << "the other axes are well";
}

TEST(SecondController, MovesTheStageByItself) {
    TruthRig rig("[Mechanics]\nSecondControllerAmplitude=25\nSecondControllerPeriodMs=5000\n");
    rig.clock->advance(4900.0);
    EXPECT_EQ(rig.reading(axisX), 0);
    rig.clock->advance(120.0);
    EXPECT_TRUE(rig.moving(axisX));
    rig.clock->advance(1000.0);
    EXPECT_EQ(rig.reading(axisX), 25);
    EXPECT_EQ(rig.host->truth().position().x, 25.0);
    rig.clock->advance(5000.0);
    EXPECT_EQ(rig.reading(axisX), 0);
}

TEST(ScaleError, ThePictureShowsMoreThanTheSettingsSay) {
    TruthRig wrong("[Mechanics]\nScaleErrorX=0.1\nScaleErrorY=-0.05\n");
    EXPECT_DOUBLE_EQ(wrong.host->truth().field().width, 640.0 * 1.1);
    EXPECT_DOUBLE_EQ(wrong.host->truth().field().height, 480.0 * 0.95);
    TarnSingle x = 0.0F;
    TarnSingle y = 0.0F;
    wrong.host->tn_lib_proxy().TarnGetVideoMag100Factors(&x, &y);
    EXPECT_EQ(x, 2560.0F);
    TruthRig right;
    right.host->tn_reg().TarnRegisterSetString("tn_video", "VideoMag100X", "2816", "TARN.INI");
    right.host->tn_reg().TarnRegisterSetString("tn_video", "VideoMag100Y", "1824", "TARN.INI");
    wrong.live();
    right.live();
    EXPECT_EQ(wrong.frameAfter()->width, right.frameAfter()->width);
    EXPECT_NEAR(right.host->truth().field().width, wrong.host->truth().field().width, 1e-9);
    EXPECT_NEAR(wrong.greyAfter().mean, right.greyAfter().mean, 0.05);
}

TEST(Grades, SpoilTheInstrumentMoreAndMore) {
    const auto afterAMinuteAt = [](const std::string& grade) {
        TruthRig rig("[Mechanics]\nGrade=" + grade + "\n");
        rig.goTo(2, -50);
        rig.clock->advance(40000.0);
        return std::abs(rig.host->truth().position().y + 50.0);
    };
    EXPECT_EQ(afterAMinuteAt("ideal"), 0.0);
    EXPECT_NEAR(afterAMinuteAt("static"), 3.0, 1e-6);
    EXPECT_NEAR(afterAMinuteAt("dynamic"), 2.0, 1e-3) << "play up, drift down";
    const TruthRig ideal;
    const TruthRig tilted("[Mechanics]\nGrade=static\n");
    EXPECT_DOUBLE_EQ(tilted.host->truth().surfaceHeight(1000.0, 0.0) - 0.02,
                     3.0 * (ideal.host->truth().surfaceHeight(1000.0, 0.0) - 0.02));
}

TEST(Grades, AKeyOfItsOwnOverridesTheGrade) {
    TruthRig rig("[Mechanics]\nGrade=static\nPlayX=0\n");
    rig.goTo(axisX, -50);
    EXPECT_EQ(rig.host->truth().position().x, -50.0);
    rig.goTo(2, -50);
    EXPECT_NEAR(rig.host->truth().position().y, -47.0, 1e-9);
}

TEST(Grades, AnUnknownGradeIsIdealWithOneLogLine) {
    TruthRig rig("[Mechanics]\nGrade=rusty\n");
    rig.goTo(axisX, -50);
    EXPECT_EQ(rig.host->truth().position().x, -50.0);
    EXPECT_EQ(rig.timesInLog("Grade=\"rusty\""), 1);
}

TEST(MechanicsTable, TheSeededFileShowsEveryKeyButSetsOnlyTheGrade) {
    const std::string text = defaultSimConfigText();
    const IniText ini = IniText::parse(text).value_or(IniText());
    EXPECT_EQ(ini.value("Mechanics", "Grade"), "ideal");
    EXPECT_EQ(ini.entries("Mechanics").size(), 1U);
    EXPECT_TRUE(ini.entries("Faults").empty());
    for (const GradedSetting* row : mechanicsSettings) {
        EXPECT_THAT(text, HasSubstr(std::string("\n;") + row->setting.key + "="));
        for (const double value : {row->setting.defaultValue, row->inStatic, row->inDynamic}) {
            EXPECT_GE(value, row->setting.lowest) << row->setting.key;
            EXPECT_LE(value, row->setting.highest) << row->setting.key;
        }
    }
}

} // namespace
} // namespace hosts::simulated
