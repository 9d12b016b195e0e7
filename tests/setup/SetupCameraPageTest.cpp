#include "tests/setup/DialogRig.h"

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct CameraPage : DialogRig {
    void SetUp() override {
        host.references = {{1, {33.4, 66.0}}, {2, {12.0, 80.0}}};
        open(SetupTab::Camera);
    }
    SetupCameraPage& page() { return *dialog->cameraPage; }
    QSlider* slider(CameraReference reference) {
        return page().sldReference.at(static_cast<std::size_t>(reference));
    }
    TextBox* box(CameraReference reference) {
        return page().txtReference.at(static_cast<std::size_t>(reference));
    }
    void click(QAbstractButton* button) {
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    }
    std::vector<int> visibleGainRanges() {
        std::vector<int> visible;
        for (int i = 0; i < gainRangeCount; ++i) {
            if (page().lblGainRange.at(static_cast<std::size_t>(i))->isVisible()) {
                visible.push_back(i);
            }
        }
        return visible;
    }
};

} // namespace

TEST_F(CameraPage, ShowsTheHostsCameraAndReferences) {
    EXPECT_TRUE(page().optCam[2]->isChecked());
    EXPECT_EQ(text(box(CameraReference::Contrast)), "33.4");
    EXPECT_EQ(slider(CameraReference::Contrast)->value(), 33);
    EXPECT_EQ(text(box(CameraReference::Brightness)), "66.0");
    EXPECT_EQ(text(box(CameraReference::Hue)), "12.0");
    EXPECT_EQ(text(box(CameraReference::Saturation)), "80.0");
    EXPECT_TRUE(cameraWindow.acqEnabled);
}

TEST_F(CameraPage, OpeningItHandsTheDisplayOverAndSetsNothing) {
    host.calls.clear();
    frmSetup another(SetupContext{host, settings, magnification, conversion, board, mainWindow, cameraWindow,
                                  memory, standards, [] { return false; }, [] {}, [](const QString&) {}},
                     nullptr);
    EXPECT_THAT(changes(), ElementsAre("TarnVideoBoardFunction(0, {77, -2, 0})"));
    EXPECT_THAT(host.gains, IsEmpty());
}

TEST_F(CameraPage, AClickOnACameraChoosesItsTypeAndShowsWhatTheHostTook) {
    for (int i = 0; i < 4; ++i) {
        click(page().optCam.at(static_cast<std::size_t>(i)));
        EXPECT_EQ(host.cameraType, i + 1);
    }
    host.results["TarnVideoSetCurrentCameraType"] = 0;
    click(page().optCam[0]);
    EXPECT_TRUE(page().optCam[3]->isChecked());
}

TEST_F(CameraPage, TheCamerasHaveTheirTips) {
    std::vector<std::string> tips;
    for (const QRadioButton* option : page().optCam) {
        tips.push_back(option->toolTip().toStdString());
    }
    EXPECT_THAT(tips, ElementsAre("Select european black & white camera", "Select US/Japanese color camera",
                                  "Select european color camera", "Select US/Japanese black & white camera"));
}

TEST_F(CameraPage, AMovedSliderSetsItsReferenceAndLeavesTheOtherOfTheGroup) {
    slider(CameraReference::Brightness)->setValue(70);
    EXPECT_THAT(host.callsOf("TarnVideoCameraSetReferences"),
                ElementsAre("TarnVideoCameraSetReferences(1, -1, 70)"));
    EXPECT_EQ(text(box(CameraReference::Brightness)), "70.0");
    EXPECT_EQ(text(box(CameraReference::Contrast)), "33.4");
}

TEST_F(CameraPage, ATypedReferenceIsSentAsItIsAndShownAsTheHostReportsIt) {
    type(box(CameraReference::Saturation), "150");
    EXPECT_THAT(host.callsOf("TarnVideoCameraSetReferences"),
                ElementsAre("TarnVideoCameraSetReferences(2, -1, 150)"));
    EXPECT_EQ(text(box(CameraReference::Saturation)), "100.0");
    EXPECT_EQ(slider(CameraReference::Saturation)->value(), 100);
}

TEST_F(CameraPage, ATypedDecimalSurvivesTheSlider) {
    type(box(CameraReference::Hue), "45.6");
    EXPECT_EQ(text(box(CameraReference::Hue)), "45.6");
    EXPECT_EQ(slider(CameraReference::Hue)->value(), 46);
    EXPECT_EQ(host.callsOf("TarnVideoCameraSetReferences").size(), 1U);
}

TEST_F(CameraPage, BeginsWithAutomaticGainAndOnlyItsLabel) {
    EXPECT_TRUE(page().chkAutoGain->isChecked());
    EXPECT_FALSE(page().sldGain->isVisible());
    EXPECT_TRUE(page().lblAutoGain->isVisible());
    EXPECT_THAT(visibleGainRanges(), IsEmpty());
}

TEST_F(CameraPage, GainGoesToTheHostAndOnlyTheLabelOfItsRangeIsShown) {
    click(page().chkAutoGain);
    EXPECT_TRUE(page().sldGain->isVisible());
    EXPECT_FALSE(page().lblAutoGain->isVisible());
    EXPECT_THAT(visibleGainRanges(), ElementsAre(2));
    page().sldGain->setValue(4);
    EXPECT_THAT(visibleGainRanges(), ElementsAre(4));
    click(page().chkAutoGain);
    EXPECT_THAT(host.gains, ElementsAre(2, 4, -1));
    EXPECT_THAT(visibleGainRanges(), IsEmpty());
}

TEST_F(CameraPage, TheGainThatWasChosenIsShownAtTheNextOpening) {
    click(page().chkAutoGain);
    page().sldGain->setValue(1);
    host.gains.clear();
    open(SetupTab::Camera);
    EXPECT_FALSE(page().chkAutoGain->isChecked());
    EXPECT_EQ(page().sldGain->value(), 1);
    EXPECT_THAT(visibleGainRanges(), ElementsAre(1));
    EXPECT_THAT(host.gains, IsEmpty());
}

TEST_F(CameraPage, TheSlidersAreNamedAfterTheirReferences) {
    for (const char* name : {"sldContrast", "sldBrightness", "sldHue", "sldSaturation", "txtContrast",
                             "txtBrightness", "txtHue", "txtSaturation"}) {
        EXPECT_NE(dialog->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    }
}
