#include "video/Magnification.h"

#include "tests/support/StubHost.h"
#include "video/DisplayHandOver.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;

namespace {

struct MagnificationRig : testing::Test {
    StubHost host;
    Settings settings{host.tn_reg()};
    MagnificationStore store{settings, host.tn_lib_proxy()};
};

using VideoMagnification = MagnificationRig;

} // namespace

TEST_F(VideoMagnification, IsReadBeforeItsFactorsAndBothAfreshEveryTime) {
    const Magnification first = store.read();
    EXPECT_EQ(first.magnification, 400);
    EXPECT_EQ(first.x100, 2560.0F);
    EXPECT_EQ(first.y100, 1920.0F);
    EXPECT_THAT(host.calls, ElementsAre("TarnRegisterGetInt(\"tn_video\", \"VideoMag\", 400, \"TARN.INI\")",
                                        "TarnGetVideoMag100Factors()"));
    host.magFactorX = 1000.0F;
    EXPECT_EQ(store.read().x100, 1000.0F);
}

TEST_F(VideoMagnification, IsWrittenBeforeItsFactors) {
    store.write({200, 1280.0F, 960.0F});
    EXPECT_EQ(host.settings["TARN.INI|tn_video|VideoMag"], "200");
    EXPECT_EQ(host.magFactorX, 1280.0F);
    EXPECT_EQ(host.magFactorY, 960.0F);
    EXPECT_EQ(host.calls.front(), "TarnRegisterSetString(\"tn_video\", \"VideoMag\", \"200\", \"TARN.INI\")");
}

TEST_F(VideoMagnification, HasNoFieldWhenTheHostDoesNotGiveTheFactors) {
    host.results["TarnGetVideoMag100Factors"] = 0;
    EXPECT_EQ(store.read().x100, 0.0F);
    EXPECT_EQ(store.read().y100, 0.0F);
}

TEST_F(VideoMagnification, TheDisplayIsHandedOverWithItsReductionAndTheFullSizeMark) {
    handDisplayToBoard(host.tn_video(), 77, 2, false);
    handDisplayToBoard(host.tn_video(), 77, 1, true);
    ASSERT_EQ(host.displayRequests.size(), 2U);
    EXPECT_EQ(host.displayRequests[0].windowHandle, 77);
    EXPECT_EQ(host.displayRequests[0].zoom, -2);
    EXPECT_EQ(host.displayRequests[0].fullSize, 0);
    EXPECT_EQ(host.displayRequests[1].zoom, -1);
    EXPECT_EQ(host.displayRequests[1].fullSize, -1);
}
