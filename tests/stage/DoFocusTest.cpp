#include "autofocus/DoFocus.h"

#include "tests/support/StubHost.h"
#include "video/CTnVideoImage.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;

namespace {

struct SilentWindow : StageWatchView {
    Long monitorColour() const override { return 0; }
    void setMonitorColour(Long) override {}
    void enableMoveTimer(bool) override {}
    void showPosition(Integer, const std::string&) override {}
};

struct Focus : testing::Test {
    StubHost host;
    NoAutomation automation;
    CTnStage stage{host.tn_lib_proxy(), host.tn_micro_proxy()};
    SilentWindow window;
    StageWatch watch{stage, window};
    CTnVideoBoard board{host.tn_video()};
    CTnVideoImage image{host.tn_video(), host.tn_vduti(), automation};
};

} // namespace

TEST_F(Focus, WithTheGrabHaltedLeavesItHalted) {
    host.calls.clear();
    doFocus(stage, watch, board, image);
    EXPECT_THAT(host.calls, ElementsAre("TarnAutoFocusExt(-1)", "TarnReadStagePos(1)", "TarnReadStagePos(2)",
                                        "TarnReadStagePos(3)"));
}

TEST_F(Focus, WithTheGrabRunningHaltsAndStartsItOnceAfterTheFocusCall) {
    board.Grab(&image, true);
    host.calls.clear();
    doFocus(stage, watch, board, image);
    EXPECT_THAT(host.calls, ElementsAre("TarnAutoFocusExt(-1)", "TarnReadStagePos(1)", "TarnReadStagePos(2)",
                                        "TarnReadStagePos(3)", "TarnVideoBoardHaltGrab()",
                                        "TarnVideoBoardStartGrab(1, 1)"));
}
