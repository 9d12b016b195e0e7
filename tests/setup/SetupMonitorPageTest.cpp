#include "tests/setup/DialogRig.h"

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct MonitorPage : DialogRig {
    void SetUp() override {
        set("GridSizeX", "120");
        set("GridSizeY", "60");
        set("GridLineWidth", "1");
        set("CrossSize", "200");
        set("CrossWidth", "2");
        open(SetupTab::Monitor);
    }
    SetupMonitorPage& page() { return *dialog->monitorPage; }
    std::vector<std::string> view(const std::array<const char*, 7>& values) {
        constexpr std::array keys{"LiveImage",  "FullImage",    "ShowCross",   "ShowGrid",
                                  "LargeIcons", "MoveXInverse", "MoveYInverse"};
        std::vector<std::string> calls;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            calls.push_back(written(keys.at(i), values.at(i)));
        }
        return calls;
    }
    void click(QCheckBox* box) { QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8)); }
};

} // namespace

TEST_F(MonitorPage, ShowsTheStoredGridInMicrometres) {
    EXPECT_EQ(text(page().txtGridWidth), "100");
    EXPECT_EQ(text(page().txtGridHeight), "50");
}

TEST_F(MonitorPage, AGridChangeRedrawsTheMainWindowsGridAtOnceAndStoresIt) {
    type(page().txtGridWidth, "200");
    EXPECT_THAT(changes(),
                ElementsAre("setGridLengths(240, 60, 1)", "DrawGrid(2160, 2880)", written("GridSizeX", "240"),
                            written("GridSizeY", "60"), written("GridLineWidth", "1")));
    host.calls.clear();
    type(page().txtGridHeight, "75");
    EXPECT_THAT(changes(),
                ElementsAre("setGridLengths(240, 90, 1)", "DrawGrid(2160, 2880)", written("GridSizeX", "240"),
                            written("GridSizeY", "90"), written("GridLineWidth", "1")));
}

TEST_F(MonitorPage, ShowsTheTypedValuesWhenItOpensAgain) {
    type(page().txtGridWidth, "37");
    open(SetupTab::Monitor);
    EXPECT_EQ(text(page().txtGridWidth), "37");
}

TEST_F(MonitorPage, AnInvalidGridTextIsReportedOnceWithItsFieldAndNotStored) {
    type(page().txtGridWidth, "wide");
    EXPECT_THAT(reports, ElementsAre("Width: \"wide\" is not a number"));
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(text(page().txtGridWidth), "100");
    type(page().txtGridHeight, "");
    EXPECT_EQ(reports.size(), 1U); // nothing was typed, nothing changed
}

TEST_F(MonitorPage, TheErrorReportWaitsUntilTheFocusHasArrived) {
    page().txtGridWidth->setFocus();
    QTest::keyClicks(page().txtGridWidth, QStringLiteral("wide"));
    page().txtGridHeight->setFocus();
    EXPECT_THAT(reports, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(reports.size(), 1U);
    EXPECT_TRUE(page().txtGridHeight->hasFocus());
}

TEST_F(MonitorPage, ABoxThatIsOnlyVisitedIsNotWrittenBack) {
    page().txtGridWidth->setFocus();
    page().txtGridHeight->setFocus();
    page().chkShowGrid->setFocus();
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MonitorPage, EnterAppliesABoxAndClosesNothing) {
    page().txtGridWidth->setFocus();
    QTest::keyClicks(page().txtGridWidth, QStringLiteral("200"));
    QTest::keyClick(page().txtGridWidth, Qt::Key_Return);
    EXPECT_EQ(setting("GridSizeX"), "240");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(MonitorPage, AnUpDownChangesTheCrossAtOnce) {
    EXPECT_EQ(page().udCrossSize->value(), 200);
    EXPECT_EQ(page().udCrossThick->value(), 2);
    page().udCrossSize->stepUp();
    EXPECT_THAT(changes(), ElementsAre("setCrossLengths(210, 2)", "DrawCross(2160, 2880)",
                                       written("CrossSize", "210"), written("CrossWidth", "2")));
    host.calls.clear();
    page().udCrossThick->stepDown();
    EXPECT_THAT(changes(), ElementsAre("setCrossLengths(210, 1)", "DrawCross(2160, 2880)",
                                       written("CrossSize", "210"), written("CrossWidth", "1")));
}

TEST_F(MonitorPage, ACrossLengthThatIsTypedIsOneChange) {
    page().udCrossSize->setFocus();
    page().udCrossSize->selectAll();
    QTest::keyClicks(page().udCrossSize, QStringLiteral("350"));
    EXPECT_THAT(changes(), IsEmpty());
    QTest::keyClick(page().udCrossSize, Qt::Key_Tab);
    EXPECT_EQ(host.callsOf("DrawCross").size(), 1U);
    EXPECT_EQ(setting("CrossSize"), "350");
}

TEST_F(MonitorPage, AnUpDownLimitsTheCrossButNeverAStoredLength) {
    EXPECT_EQ(page().udCrossSize->minimum(), 1);
    EXPECT_EQ(page().udCrossSize->maximum(), 4000);
    EXPECT_EQ(page().udCrossThick->maximum(), 200);
    set("CrossSize", "9000");
    set("CrossWidth", "-5");
    open(SetupTab::Monitor);
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(page().udCrossSize->value(), 9000);
    page().udCrossThick->stepUp();
    EXPECT_EQ(setting("CrossSize"), "9000");
    EXPECT_EQ(setting("CrossWidth"), "-4");
}

TEST_F(MonitorPage, AStartUpBoxStoresAllSevenViewSettingsAndLeavesTheRunningDisplayAlone) {
    click(page().chkLiveImage);
    EXPECT_EQ(changes(), view({"1", "0", "0", "0", "0", "0", "0"}));
    host.calls.clear();
    click(page().chkFullSize);
    click(page().chkShowCross);
    click(page().chkShowGrid);
    host.calls.clear();
    click(page().chkShowLargeButtons);
    EXPECT_EQ(changes(), view({"1", "1", "1", "1", "1", "0", "0"}));
    host.calls.clear();
    click(page().chkLiveImage);
    EXPECT_EQ(changes(), view({"0", "1", "1", "1", "1", "0", "0"}));
}

TEST_F(MonitorPage, AStartUpBoxKeepsWhatTheMainWindowStoredMeanwhile) {
    set("ShowGrid", "1"); // by the grid command
    set("MoveXInverse", "-1");
    click(page().chkLiveImage);
    EXPECT_EQ(changes(), view({"1", "0", "0", "1", "0", "1", "0"}));
}

TEST_F(MonitorPage, TheStartUpBoxesShowWhatIsStoredWhenTheDialogComesToTheFrontAgain) {
    set("ShowGrid", "1");
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(dialog.get());
    EXPECT_TRUE(page().chkShowGrid->isChecked());
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(MonitorPage, LargeButtonsHaveTheirTip) {
    EXPECT_EQ(page().chkShowLargeButtons->toolTip().toStdString(), "Use large bitmaps button in the toolbar");
}
