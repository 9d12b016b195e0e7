#include "display/MicroMarkerPanel.h"
#include "display/TwipsGeometry.h"
#include "tests/support/Pattern.h"
#include "tests/support/WindowRig.h"

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct OverlaysOnTheWindow : WindowRig {
    void SetUp() override {
        host.settings["Ocuva.INI|Configuration|CrossSize"] = "200";
        host.settings["Ocuva.INI|Configuration|CrossWidth"] = "2";
        host.settings["Ocuva.INI|Configuration|GridSizeX"] = "100";
        host.settings["Ocuva.INI|Configuration|GridSizeY"] = "80";
        host.settings["Ocuva.INI|Configuration|GridLineWidth"] = "1";
        begin();
    }
    void begin() {
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    const OverlayFigure& cross() { return window().overlays().frCross(); }
    const OverlayFigure& grid() { return window().overlays().frGrid(); }
    const MicroMarkerPanel& marker() { return *window().panels().frMicroMarker; }
    const QWidget& display() { return *window().panels().milDisp; }
    std::string label() { return marker().lbMicroMarker->text().toStdString(); }
    int barPixels() { return marker().LineMicroMarker()[0].X2 - marker().LineMicroMarker()[0].X1; }
    std::string setting(const char* key) {
        return host.settings[std::string("Ocuva.INI|Configuration|").append(key)];
    }
    bool visible(const OverlayFigure& figure) {
        const auto& bars = figure.bars();
        return std::any_of(bars.begin(), bars.end(), [](const BarFrame* bar) { return bar->isVisible(); });
    }
    void resizeBy(int width, int height) {
        window().resize(window().width() + width, window().height() + height);
        QCoreApplication::processEvents();
    }
    QPointF middleOfTheCross() {
        const auto& arms = cross().bars();
        const QRectF left = arms[0]->bar();
        const QRectF right = arms[1]->bar();
        const QRectF upper = arms[2]->bar();
        const QRectF lower = arms[3]->bar();
        return {(left.right() + right.left()) / 2.0, (upper.bottom() + lower.top()) / 2.0};
    }
};

using CrossCommand = OverlaysOnTheWindow;
using GridCommand = OverlaysOnTheWindow;
using MicroMarkerOnTheWindow = OverlaysOnTheWindow;
using InformationPanel = OverlaysOnTheWindow;

} // namespace

TEST_F(CrossCommand, HasTheSameEffectFromItsItemItsShortcutAndItsToolbarKey) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuCross")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_F9); },
        [this] { toolbar("Cross"); },
    };
    for (const auto& way : ways) {
        way();
        EXPECT_TRUE(visible(cross()));
        EXPECT_TRUE(action("mnuCross")->isChecked());
        EXPECT_TRUE(window().tbMain->value(QStringLiteral("Cross")));
        EXPECT_EQ(setting("ShowCross"), "1");
        way();
        EXPECT_FALSE(visible(cross()));
        EXPECT_FALSE(action("mnuCross")->isChecked());
        EXPECT_FALSE(window().tbMain->value(QStringLiteral("Cross")));
        EXPECT_EQ(setting("ShowCross"), "0");
    }
}

TEST_F(GridCommand, HasTheSameEffectFromItsItemItsShortcutAndItsToolbarKey) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuGrid")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_F5); },
        [this] { toolbar("Grid"); },
    };
    for (const auto& way : ways) {
        way();
        EXPECT_TRUE(visible(grid()));
        EXPECT_TRUE(action("mnuGrid")->isChecked());
        EXPECT_TRUE(window().tbMain->value(QStringLiteral("Grid")));
        EXPECT_EQ(setting("ShowGrid"), "1");
        way();
        EXPECT_FALSE(visible(grid()));
        EXPECT_FALSE(action("mnuGrid")->isChecked());
        EXPECT_FALSE(window().tbMain->value(QStringLiteral("Grid")));
        EXPECT_EQ(setting("ShowGrid"), "0");
    }
}

TEST_F(CrossCommand, TwiceRestoresMenuCheckToolbarButtonAndSetting) {
    host.settings["Ocuva.INI|Configuration|ShowCross"] = "1";
    begin();
    action("mnuCross")->trigger();
    action("mnuCross")->trigger();
    EXPECT_TRUE(action("mnuCross")->isChecked());
    EXPECT_TRUE(window().tbMain->value(QStringLiteral("Cross")));
    EXPECT_EQ(setting("ShowCross"), "1");
}

TEST_F(CrossCommand, KeepsTheOtherSixViewOptions) {
    const char* others[]{"LiveImage", "FullImage", "ShowGrid", "LargeIcons", "MoveXInverse", "MoveYInverse"};
    int value = 3;
    for (const char* key : others) {
        host.settings[std::string("Ocuva.INI|Configuration|") + key] = std::to_string(value++);
    }
    action("mnuCross")->trigger();
    value = 3;
    for (const char* key : others) {
        EXPECT_EQ(setting(key), std::to_string(value++)) << key;
    }
}

TEST_F(CrossCommand, SavesTheToolbarWithTheUsersLayout) {
    action("mnuCross")->trigger();
    EXPECT_EQ(ToolbarLayoutStore().load(), window().tbMain->layoutText());
}

TEST_F(GridCommand, SavesTheToolbarWithTheUsersLayout) {
    window().tbMain->restoreLayout(QStringLiteral("Focus,Grid"));
    action("mnuGrid")->trigger();
    EXPECT_EQ(ToolbarLayoutStore().load(), QStringLiteral("Focus,Grid"));
}

TEST_F(MicroMarkerOnTheWindow, HasNoButtonAndSavesNoToolbarLayout) {
    action("mnuMicroMarker")->trigger();
    EXPECT_EQ(ToolbarLayoutStore().load(), QString());
}

TEST_F(OverlaysOnTheWindow, AreShownAtTheStartAsTheSettingsSay) {
    EXPECT_FALSE(visible(cross()));
    EXPECT_FALSE(visible(grid()));
    host.settings["Ocuva.INI|Configuration|ShowCross"] = "1";
    host.settings["Ocuva.INI|Configuration|ShowGrid"] = "-1";
    begin();
    EXPECT_TRUE(visible(cross()));
    EXPECT_TRUE(visible(grid()));
    EXPECT_TRUE(action("mnuCross")->isChecked());
    EXPECT_TRUE(action("mnuGrid")->isChecked());
    EXPECT_TRUE(window().tbMain->value(QStringLiteral("Cross")));
    EXPECT_TRUE(window().tbMain->value(QStringLiteral("Grid")));
}

TEST_F(OverlaysOnTheWindow, AZoomChangeDoublesCrossAndGridOnTheScreen) {
    const int arm = cross().bars()[0]->bar().width();
    const int pitch = grid().bars()[1]->bar().left() - grid().bars()[0]->bar().left();
    action("mnuZoom0")->trigger();
    EXPECT_EQ(cross().bars()[0]->bar().width(), 2 * arm);
    EXPECT_EQ(grid().bars()[1]->bar().left() - grid().bars()[0]->bar().left(), 2 * pitch);
    EXPECT_EQ(cross().bars()[0]->bar().height(), 2);
}

TEST_F(OverlaysOnTheWindow, TheCrossStaysInTheMiddleOfThePictureAtEverySizeOfTheWindow) {
    for (const auto& [width, height] : {std::pair{0, 0}, {157, 0}, {0, 93}, {400, 211}, {-640, -250}}) {
        resizeBy(width, height);
        EXPECT_NEAR(middleOfTheCross().x(), display().width() / 2.0, 1.0);
        EXPECT_NEAR(middleOfTheCross().y(), display().height() / 2.0, 1.0);
    }
}

TEST_F(OverlaysOnTheWindow, ClicksGoThroughThemToTheImage) {
    action("mnuCross")->trigger();
    action("mnuGrid")->trigger();
    for (const QPoint& at : {cross().bars()[1]->bar().center(), grid().bars()[0]->bar().center(),
                             marker().geometry().center()}) {
        host.calls.clear();
        EXPECT_EQ(display().childAt(at), nullptr);
        QTest::mouseClick(display().windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
        EXPECT_EQ(host.callsOf("TarnLoadStageRelSecure").size(), 2U) << at.x() << ", " << at.y();
    }
}

TEST_F(OverlaysOnTheWindow, OtherWindowsCanDrawAndShowThem) {
    window().ShowCross(true);
    window().ShowGrid(true);
    EXPECT_TRUE(visible(cross()));
    EXPECT_TRUE(visible(grid()));
    window().DrawCross(twipsY(100), twipsX(150));
    EXPECT_NEAR(middleOfTheCross().x(), 150.0, 1.0);
    EXPECT_NEAR(middleOfTheCross().y(), 100.0, 1.0);
    EXPECT_EQ(window().ComputeNearScaleVal(37), 20);
}

TEST_F(MicroMarkerOnTheWindow, IsShownFromTheStartAndFollowsItsMenuItem) {
    EXPECT_TRUE(action("mnuMicroMarker")->isChecked());
    EXPECT_TRUE(marker().isVisible());
    action("mnuMicroMarker")->trigger();
    EXPECT_FALSE(action("mnuMicroMarker")->isChecked());
    EXPECT_FALSE(marker().isVisible());
    action("mnuMicroMarker")->trigger();
    EXPECT_TRUE(marker().isVisible());
}

TEST_F(MicroMarkerOnTheWindow, ShowsItsLengthInTheExactLabelText) {
    EXPECT_EQ(label(), " 100 \xc2\xb5");
    EXPECT_EQ(barPixels(), 60);
}

TEST_F(MicroMarkerOnTheWindow, IsCorrectForTheShownPictureAtEveryWindowSize) {
    constexpr double fieldWidth = 640.0;
    for (const int width : {0, 100, 137, 300, 500, -900}) {
        resizeBy(width, 20);
        const double scaleValue = std::stod(label().substr(1));
        EXPECT_NEAR(barPixels(), display().width() * scaleValue / fieldWidth, 1.0) << display().width();
        EXPECT_EQ(marker().geometry().bottom(), display().height() - 1);
        EXPECT_EQ(marker().width(), display().width());
    }
}

TEST_F(MicroMarkerOnTheWindow, IsOfTheSameUnitsAtBothZooms) {
    action("mnuZoom0")->trigger();
    EXPECT_EQ(label(), " 100 \xc2\xb5");
    EXPECT_EQ(barPixels(), 120);
}

TEST_F(MicroMarkerOnTheWindow, FollowsTheMagnificationWhenItIsDrawnAgain) {
    host.settings["TARN.INI|tn_video|VideoMag"] = "200";
    window().DrawMicroMarker();
    EXPECT_EQ(label(), " 200 \xc2\xb5");
    EXPECT_EQ(barPixels(), 60);
    EXPECT_THAT(host.calls, ElementsAre("TarnRegisterGetInt(\"tn_video\", \"VideoMag\", 400, \"TARN.INI\")",
                                        "TarnGetVideoMag100Factors()"));
}

TEST_F(MicroMarkerOnTheWindow, WithoutMagnificationLogsAnErrorAndDisappears) {
    host.settings["TARN.INI|tn_video|VideoMag"] = "0";
    resizeBy(20, 20);
    EXPECT_THAT(host.logLines, Contains("Overflow in frame to stage conversion"));
    EXPECT_THAT(host.logLines, Contains("ERROR resizing: Division by zero\r\n"));
    EXPECT_FALSE(marker().isVisible());
    host.settings["TARN.INI|tn_video|VideoMag"] = "400";
    resizeBy(-20, -20);
    EXPECT_TRUE(marker().isVisible());
}

TEST_F(InformationPanel, ShowsStillZoomAndMagnification) {
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
    action("mnuZoom0")->trigger();
    EXPECT_EQ(panel("Info"), "Still   1:1   400x");
}

TEST_F(InformationPanel, ReadsTheMagnificationWhenTheWindowIsRefreshed) {
    host.settings["TARN.INI|tn_video|VideoMag"] = "250";
    resizeBy(10, 10);
    EXPECT_EQ(panel("Info"), "Still   stretched 1:1.95 x 1:1.93   250x");
}

TEST_F(InformationPanel, AClickMeasuresTheGreyLevelsAndReadsTheStage) {
    host.pixelCount = 10;
    host.pixelSum = 873;
    host.variance = 21.4 * 21.4;
    host.position = {{axisX, 77}};
    QTest::mouseClick(window().sbMain->panel(QStringLiteral("Info")), Qt::LeftButton);
    EXPECT_EQ(panel("Info"), "Still   mean 87.3, sd 21.4");
    EXPECT_EQ(panel("X"), "77");
    EXPECT_EQ(host.callsOf("TarnVideoBufferComputeStatistics").size(), 1U);
    action("mnuZoom0")->trigger();
    EXPECT_EQ(panel("Info"), "Still   1:1   400x");
}

TEST_F(InformationPanel, SaysNotMeasuredWhereTheHostGaveNoGreyLevels) {
    StatusPanel* info = window().sbMain->panel(QStringLiteral("Info"));
    QTest::mouseClick(info, Qt::LeftButton); // no frame yet: no pixels
    EXPECT_EQ(panel("Info"), "Still   not measured");
    host.pixelCount = 10;
    host.pixelSum = 873;
    QTest::mouseClick(info, Qt::LeftButton);
    EXPECT_EQ(panel("Info"), "Still   mean 87.3, sd 0.0");
    host.results["TarnVideoBufferComputeStatistics"] = 0;
    QTest::mouseClick(info, Qt::LeftButton);
    EXPECT_EQ(panel("Info"), "Still   not measured");
    EXPECT_THAT(info->toolTip().toStdString(), HasSubstr("start the live image"));
}

TEST_F(InformationPanel, WithoutAScaleStillShowsTheStageAtTheStart) {
    host.settings["TARN.INI|tn_video|VideoMag"] = "0";
    host.position = {{axisX, 5}, {axisY, 6}, {axisZ, 7}};
    begin();
    EXPECT_EQ(panel("X"), "5");
    EXPECT_EQ(panel("Z"), "7");
    EXPECT_EQ(panel("Info"), "Still   1:2   0x");
    EXPECT_FALSE(marker().isVisible());
}

TEST_F(InformationPanel, MeasuredGreyLevelsDisappearWithAnAutofocusFromTheMenuOrTheHost) {
    host.pixelCount = 1;
    for (const auto& focus : {std::function<void()>([this] { action("mnuFocus")->trigger(); }),
                              std::function<void()>([this] { window().DoFocus(); })}) {
        QTest::mouseClick(window().sbMain->panel(QStringLiteral("Info")), Qt::LeftButton);
        EXPECT_THAT(panel("Info"), HasSubstr("mean"));
        focus();
        EXPECT_EQ(panel("Info"), "Still   Z 0 -> 0");
    }
}

TEST_F(InformationPanel, AClickOnAPositionPanelMeasuresNoGreyLevels) {
    QTest::mouseClick(window().sbMain->panel(QStringLiteral("X")), Qt::LeftButton);
    EXPECT_THAT(host.callsOf("TarnVideoBufferComputeStatistics"), IsEmpty());
}

TEST_F(InformationPanel, SaysThatTheImageIsNotLiveUntilFramesComeBack) {
    auto* check = child<QTimer>("tLiveCheck");
    ASSERT_NE(check, nullptr);
    EXPECT_FALSE(check->isActive());
    action("mnuAcq")->trigger();
    EXPECT_EQ(panel("Info"), "Live   1:2   400x");
    EXPECT_TRUE(check->isActive());
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel("Info").rfind("Not live since ", 0) == 0; }));
    EXPECT_THAT(panel("Info"), HasForm("Not live since [0-2][0-9]:[0-5][0-9]:[0-6][0-9] .*"));
    EXPECT_FALSE(check->isActive());

    auto frame = std::make_shared<Frame>();
    frame->width = 2;
    frame->height = 2;
    frame->pixels.assign(4, 0xff102030U);
    windows.deliver(window().panels().milDisp->hWnd(), frame);
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel("Info") == "Live   1:2   400x"; }));
    EXPECT_TRUE(check->isActive());
    action("mnuAcq")->trigger();
    EXPECT_EQ(panel("Info"), "Still   1:2   400x");
    EXPECT_FALSE(check->isActive());
}

TEST_F(InformationPanel, ShowsAllOfItsTextInTheInitialWindow) {
    action("mnuAcq")->trigger();
    StatusPanel* info = window().sbMain->panel(QStringLiteral("Info"));
    EXPECT_LE(info->fontMetrics().horizontalAdvance(QStringLiteral("Live 25.0 frames/s   1:2   400x")) + 15,
              info->contentsRect().width());
    for (const char* word : {"Live", "Zoom 1:2", "Magnification 400x", "Click here to measure"}) {
        EXPECT_THAT(info->toolTip().toStdString(), HasSubstr(word));
    }
}

TEST_F(InformationPanel, NeverMakesTheWindowWider) {
    EXPECT_EQ(window().sbMain->panel(QStringLiteral("Info"))->sizePolicy().horizontalPolicy(),
              QSizePolicy::Ignored);
}
