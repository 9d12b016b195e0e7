#include "video/CameraReferences.h"

#include "base/TextNumber.h"
#include "tests/support/SetupRig.h"
#include "video/ReferenceText.h"

#include <gmock/gmock.h>
#include <limits>
#include <random>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct References : testing::Test {
    ClampingHost host;
    FakeCameraView view;
    CameraReferences references{host.tn_video(), view};

    void type(CameraReference reference, const std::string& text) {
        view.texts.at(FakeCameraView::at(reference)) = text;
        references.textLeft(reference);
    }
    void slide(CameraReference reference, Long position) {
        view.sliders.at(FakeCameraView::at(reference)) = position;
        references.sliderMoved(reference);
    }
    Double hostValue(CameraReference reference) { return readCameraReference(host, reference).value(); }
    /// Controls that cannot tell the program's changes from the operator's.
    void letControlsEcho() {
        view.onOwnSliderChange = [this](CameraReference reference) { references.sliderMoved(reference); };
        view.onOwnTextChange = [this](CameraReference reference) { references.textLeft(reference); };
    }
};

constexpr auto contrast = CameraReference::Contrast;
constexpr auto brightness = CameraReference::Brightness;
constexpr auto hue = CameraReference::Hue;
constexpr auto saturation = CameraReference::Saturation;

} // namespace

TEST_F(References, EachTypedNumberGoesToItsGroupAndSlotAndLeavesTheOtherSlotAlone) {
    type(contrast, "11");
    type(brightness, "22");
    type(hue, "33");
    type(saturation, "44");
    EXPECT_THAT(
        host.callsOf("TarnVideoCameraSetReferences"),
        ElementsAre("TarnVideoCameraSetReferences(1, 11, -1)", "TarnVideoCameraSetReferences(1, -1, 22)",
                    "TarnVideoCameraSetReferences(2, 33, -1)", "TarnVideoCameraSetReferences(2, -1, 44)"));
    EXPECT_EQ(host.references[1], std::pair(11.0, 22.0));
    EXPECT_EQ(host.references[2], std::pair(33.0, 44.0));
    EXPECT_THAT(view.texts, ElementsAre("11.0", "22.0", "33.0", "44.0"));
    EXPECT_THAT(view.sliders, ElementsAre(11, 22, 33, 44));
}

TEST_F(References, AreShownFromTheirGroupAndSlotInTheOrderOfThePage) {
    host.references = {{1, {1.0, 2.0}}, {2, {3.0, 4.0}}};
    references.showAll();
    EXPECT_THAT(view.texts, ElementsAre("1.0", "2.0", "3.0", "4.0"));
    EXPECT_THAT(host.calls,
                ElementsAre("TarnVideoCameraGetReferences(1)", "TarnVideoCameraGetReferences(1)",
                            "TarnVideoCameraGetReferences(2)", "TarnVideoCameraGetReferences(2)"));
}

TEST_F(References, AMovedSliderSetsItsWholeNumberAndShowsTheHostsValue) {
    slide(hue, 70);
    EXPECT_THAT(host.calls,
                ElementsAre("TarnVideoCameraSetReferences(2, 70, -1)", "TarnVideoCameraGetReferences(2)"));
    EXPECT_THAT(view.changes, ElementsAre("setText 2 70.0", "setText 2 70.0"));
}

TEST_F(References, AValueTypedAs150IsSentAs150AndShownAsTheHostClampsIt) {
    type(contrast, "150");
    EXPECT_EQ(host.calls.front(), "TarnVideoCameraSetReferences(1, 150, -1)");
    EXPECT_EQ(view.texts[0], "100.0");
    EXPECT_EQ(view.sliders[0], 100);
}

TEST_F(References, ANegativeValueIsSentAsItIsAndShownClamped) {
    type(saturation, "-5");
    EXPECT_EQ(host.calls.front(), "TarnVideoCameraSetReferences(2, -1, -5)");
    EXPECT_EQ(view.texts[3], "0.0");
}

TEST_F(References, MinusOneLeavesTheValueBecauseTheHostTakesItSo) {
    type(contrast, "-1");
    EXPECT_THAT(host.callsOf("TarnVideoCameraSetReferences"),
                ElementsAre("TarnVideoCameraSetReferences(1, -1, -1)"));
    EXPECT_EQ(view.texts[0], "50.0");
}

TEST_F(References, ATextThatIsNotANumberSetsNothingAndShowsTheHostsValueAgain) {
    for (const char* text : {"", "abc", "-", "nan"}) {
        type(brightness, text);
        EXPECT_EQ(view.texts[1], "50.0") << text;
    }
    EXPECT_THAT(host.callsOf("TarnVideoCameraSetReferences"), IsEmpty());
}

TEST_F(References, AValueThatTheHostRefusesIsReplacedByTheOneItHas) {
    host.results["TarnVideoCameraSetReferences"] = 0;
    type(hue, "80");
    EXPECT_EQ(view.texts[2], "50.0");
    EXPECT_EQ(view.sliders[2], 50);
}

TEST_F(References, TheSliderTakesTheNearestWholeNumberOfTheTextTiesToEven) {
    for (const auto& [value, text, position] :
         {std::tuple(33.4, "33.4", 33), std::tuple(33.5, "33.5", 34), std::tuple(34.5, "34.5", 34),
          std::tuple(33.46, "33.5", 34), std::tuple(34.54, "34.5", 34), std::tuple(0.5, "0.5", 0)}) {
        host.references[1].first = value;
        references.show(contrast);
        EXPECT_EQ(view.texts[0], text);
        EXPECT_EQ(view.sliders[0], position) << text;
    }
}

TEST_F(References, TheSliderIsSetOnlyWhereItDiffers) {
    view.sliders[0] = 50;
    references.show(contrast);
    EXPECT_THAT(view.changes, ElementsAre("setText 0 50.0"));
    host.references[1].first = 51.0;
    references.show(contrast);
    EXPECT_THAT(view.changes, ElementsAre("setText 0 50.0", "setText 0 51.0", "setSlider 0 51"));
}

TEST_F(References, TheSliderStaysOnItsScaleForAnyHostValue) {
    for (const auto& [value, position] : {std::pair(1e300, 100), std::pair(-7.0, 0)}) {
        host.references[1].first = value;
        references.show(contrast);
        EXPECT_EQ(view.sliders[0], position);
    }
}

TEST_F(References, AValueThatTheHostDoesNotGiveLeavesTheTextEmptyAndTheSliderWhereItIs) {
    references.show(contrast);
    host.results["TarnVideoCameraGetReferences"] = 0;
    references.show(contrast);
    EXPECT_EQ(view.texts[0], "");
    EXPECT_EQ(view.sliders[0], 50);
    host.results.clear();
    for (const Double noNumber :
         {std::numeric_limits<Double>::quiet_NaN(), std::numeric_limits<Double>::infinity()}) {
        host.references[1].first = noNumber;
        references.show(contrast);
        EXPECT_EQ(view.texts[0], "");
        EXPECT_EQ(view.sliders[0], 50);
    }
}

TEST_F(References, ATypedDecimalSurvivesASliderThatReportsItsOwnChange) {
    letControlsEcho();
    type(contrast, "33.4");
    EXPECT_EQ(host.references[1].first, 33.4);
    EXPECT_EQ(view.texts[0], "33.4");
    EXPECT_EQ(view.sliders[0], 33);
    EXPECT_THAT(host.calls,
                ElementsAre("TarnVideoCameraSetReferences(1, 33.4, -1)", "TarnVideoCameraGetReferences(1)"));
}

TEST_F(References, AnyChangeCausesOneSetAndOneReadAndShowsTheHostsValue) {
    letControlsEcho();
    std::mt19937 random(20240611U);
    const std::array<std::string, 12> texts{"0",   "100", "33.4", "33.5", "34.5", "-5",
                                            "150", "1e9", "12,5", "7 %",  ".05",  "99.95"};
    for (int step = 0; step < 4000; ++step) {
        const auto reference = cameraReferences.at(random() % 4).reference;
        const auto other = cameraReferences.at(static_cast<std::size_t>(reference) ^ 1U).reference;
        const Double otherBefore = hostValue(other);
        host.calls.clear();
        if (random() % 2 == 0) {
            slide(reference, static_cast<Long>(random() % 101));
        } else {
            type(reference, texts.at(random() % texts.size()));
        }
        ASSERT_EQ(host.calls.size(), 2U);
        ASSERT_EQ(hostValue(other), otherBefore);
        ASSERT_EQ(view.text(reference), referenceText(hostValue(reference)));
        ASSERT_LE(std::abs(view.slider(reference) - leadingNumber(view.text(reference)).value()), 0.5);
        // Leaving the box a second time moves nothing any more.
        references.textLeft(reference);
        const std::string shown = view.text(reference);
        references.textLeft(reference);
        ASSERT_EQ(view.text(reference), shown);
    }
}
