#include "setup/OverlaySetup.h"

#include "tests/setup/FakeSetupWindow.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The stub host's field is 2560 by 1920 units at magnification 100 and the image 768 by 576 pixels, so at 400
// a micrometre is 1.2 pixels in both directions.
struct OverlaySetupRig : testing::Test {
    StubHost host;
    Settings settings{host.tn_reg()};
    MagnificationStore magnification{settings, host.tn_lib_proxy()};
    LengthConversion conversion{host.tn_log()};
    FakeSetupWindow mainWindow{host};
    OverlaySetup setup{settings, magnification, conversion, mainWindow};

    void store(Long x, Long y) {
        settings.writeGrid({x, y, 33});
        host.calls.clear();
    }
    std::string errorOf(const GridTexts& typed) {
        try {
            setup.setGrid(typed);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }
    std::vector<std::string> written() const { return host.callsOf("TarnRegisterSetString"); }
};

using GridInMicrometres = OverlaySetupRig;
using CrossInPixels = OverlaySetupRig;

} // namespace

TEST_F(GridInMicrometres, IsStoredInImagePixelsOfThePresentMagnification) {
    setup.setGrid({"100", "50"});
    EXPECT_EQ(settings.readGrid().GridSizeX, 120);
    EXPECT_EQ(settings.readGrid().GridSizeY, 60);
    settings.writeVideoMag(100);
    setup.setGrid({"101", "51"});
    EXPECT_EQ(settings.readGrid().GridSizeX, 30);
    EXPECT_EQ(settings.readGrid().GridSizeY, 15);
}

TEST_F(GridInMicrometres, SetsTheMainWindowsLengthsThenDrawsAtTheImagesCentreThenStores) {
    setup.setGrid({"100", "50"});
    const auto calls = host.calls;
    const std::vector<std::string> end(calls.end() - 5, calls.end());
    EXPECT_THAT(
        end,
        ElementsAre("setGridLengths(120, 60, 33)", "DrawGrid(2160, 2880)",
                    "TarnRegisterSetString(\"Configuration\", \"GridSizeX\", \"120\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"GridSizeY\", \"60\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"GridLineWidth\", \"33\", \"Ocuva.INI\")"));
}

TEST_F(GridInMicrometres, IsReadBackAsItWasTypedWhereverAPixelIsNoLongerThanAMicrometre) {
    for (const Long mag : {400, 800, 1000, 2500}) {
        settings.writeVideoMag(mag);
        for (Long typed = 1; typed < 3000; typed += typed < 60 ? 1 : 37) {
            setup.setGrid({std::to_string(typed), std::to_string(typed + 1)});
            EXPECT_EQ(setup.gridMicrometres().x, typed) << mag;
            EXPECT_EQ(setup.gridMicrometres().y, typed + 1) << mag;
        }
    }
}

TEST_F(GridInMicrometres, IsReadBackWithinHalfAPixelAtLowMagnifications) {
    settings.writeVideoMag(50);
    constexpr double halfPixel = 2560.0 * 2.0 / 768.0 / 2.0;
    for (Long typed = 4; typed < 5000; typed += 13) {
        setup.setGrid({std::to_string(typed), std::to_string(typed)});
        EXPECT_NEAR(setup.gridMicrometres().x, typed, halfPixel + 0.5);
        EXPECT_NEAR(setup.gridMicrometres().y, typed, halfPixel + 0.5);
    }
}

TEST_F(GridInMicrometres, AStoredPitchFinerThanMicrometresSurvivesTheOtherOnesChange) {
    store(120, 3); // 3 pixels are 2.5 micrometres, shown as 2
    EXPECT_EQ(setup.gridMicrometres().y, 2);
    setup.setGrid({"200", "2"});
    EXPECT_EQ(settings.readGrid().GridSizeX, 240);
    EXPECT_EQ(settings.readGrid().GridSizeY, 3);
}

TEST_F(GridInMicrometres, ATextThatIsNotANumberNamesItsFieldAndChangesNothing) {
    store(120, 60);
    EXPECT_EQ(errorOf({"12O", "50"}), "Width: \"12O\" is not a number");
    EXPECT_EQ(errorOf({"100", ""}), "Height: Nothing was typed where a number is needed");
    EXPECT_EQ(errorOf({"100", "3000000000"}), "Height: Overflow: the number does not fit into 32 bits");
    EXPECT_THAT(written(), IsEmpty());
    EXPECT_THAT(host.calls, Not(Contains(testing::HasSubstr("Draw"))));
}

TEST_F(GridInMicrometres, ALengthWithoutPixelsIsRefusedInsteadOfStoredAsZero) {
    store(120, 60);
    settings.writeVideoMag(0);
    host.calls.clear();
    EXPECT_EQ(errorOf({"100", "50"}),
              "Width: 100 micrometres cannot be converted to pixels at the present magnification");
    EXPECT_THAT(written(), IsEmpty());
    EXPECT_EQ(settings.readGrid().GridSizeX, 120);
    EXPECT_THAT(host.logLines, Contains("Overflow in stage to frame conversion"));
}

TEST_F(GridInMicrometres, TakesFractionsRoundedHalfToEvenAndNumbersBelowOneAsTheyCome) {
    setup.setGrid({"12,5", "-50"});
    EXPECT_EQ(settings.readGrid().GridSizeX, 14); // 12 micrometres are 14.4 pixels
    EXPECT_EQ(settings.readGrid().GridSizeY, -60);
    setup.setGrid({"0", "13.5"});
    EXPECT_EQ(settings.readGrid().GridSizeX, 0);
    EXPECT_EQ(settings.readGrid().GridSizeY, 17);
}

TEST_F(CrossInPixels, IsGivenToTheMainWindowDrawnAndStoredInThisOrder) {
    setup.setCross({250, 3});
    EXPECT_THAT(
        host.calls,
        ElementsAre("setCrossLengths(250, 3)", "DrawCross(2160, 2880)",
                    "TarnRegisterSetString(\"Configuration\", \"CrossSize\", \"250\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"Configuration\", \"CrossWidth\", \"3\", \"Ocuva.INI\")"));
}
