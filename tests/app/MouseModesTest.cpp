// When a mouse mode acts on the image.

#include "tests/support/WindowRig.h"

namespace ocuva {

namespace {

struct MouseOnTheImage : WindowRig {
    void SetUp() override {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    std::vector<std::string> moves() const { return host.callsOf("TarnLoadStageRelSecure"); }
};

} // namespace

TEST_F(MouseOnTheImage, DoesNothingWhenAButtonIsOnlyPressed) {
    QTest::mousePress(window().panels().milDisp, Qt::LeftButton, Qt::NoModifier, {10, 10});
    EXPECT_TRUE(host.calls.empty());
    QTest::mouseRelease(window().panels().milDisp, Qt::LeftButton, Qt::NoModifier, {10, 10});
    EXPECT_EQ(moves().size(), 2U);
}

} // namespace ocuva
