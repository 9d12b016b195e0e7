#include "setup/MagnificationSetup.h"

#include "tests/setup/FakeSetupWindow.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct MagnificationRig : testing::Test {
    StubHost host;
    Settings settings{host.tn_reg()};
    MagnificationStore store{settings, host.tn_lib_proxy()};
    FakeSetupWindow mainWindow{host};
    MagnificationSetup setup{store, mainWindow};
};

using TypedMagnification = MagnificationRig;

} // namespace

TEST_F(TypedMagnification, IsTheLeadingNumberRoundedHalfToEvenOr0) {
    const std::vector<std::pair<std::string, Long>> cases{{"12.7", 13},  {"abc", 0},     {"", 0},
                                                          {"400x", 400}, {" 12,5 ", 12}, {"13.5", 14},
                                                          {"-3", -3},    {"1e3", 1}};
    for (const auto& [text, wanted] : cases) {
        EXPECT_EQ(typedMagnification({text, "1", "1"}).magnification, wanted) << text;
    }
}

TEST_F(TypedMagnification, HasFieldWidthsThatKeepTheirFractions) {
    const Magnification typed = typedMagnification({"400", "2560.25 units", "x"});
    EXPECT_EQ(typed.x100, 2560.25F);
    EXPECT_EQ(typed.y100, 0.0F);
}

TEST_F(TypedMagnification, IsStoredBeforeItsFactorsAndThenTheMicroMarkerIsDrawn) {
    setup.set({"200", "1280", "960.5"});
    EXPECT_THAT(host.calls,
                ElementsAre("TarnRegisterSetString(\"tn_video\", \"VideoMag\", \"200\", \"TARN.INI\")",
                            testing::StartsWith("TarnSetVideoMag100Factors("), "showMagnification(200)",
                            "DrawMicroMarker()"));
    EXPECT_EQ(host.magFactorX, 1280.0F);
    EXPECT_EQ(host.magFactorY, 960.5F);
}

TEST_F(TypedMagnification, ReadsAsWhatGivesTheVerySameNumbersAgain) {
    for (const Single field : {2560.0F, 0.1F, 1.0F / 3.0F, 16777217.0F, 1e-7F, 3.4e38F, -12.5F}) {
        host.magFactorX = field;
        EXPECT_EQ(typedMagnification(setup.texts()).x100, field);
    }
    host.magFactorX = 2560.5F;
    EXPECT_EQ(setup.texts().magnification, "400");
    EXPECT_EQ(setup.texts().x100, "2560.5");
    EXPECT_EQ(setup.texts().y100, "1920");
}

TEST_F(TypedMagnification, ThatIsTooLargeNamesItsFieldAndStoresNothing) {
    const std::string many(60, '9');
    for (const MagnificationTexts& typed :
         {MagnificationTexts{"3000000000", "1", "1"}, {"1", many, "1"}, {"1", "1", many}}) {
        EXPECT_THROW(setup.set(typed), std::runtime_error);
    }
    EXPECT_THAT(host.calls, IsEmpty());
    try {
        setup.set({"1", many, "1"});
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "X Field: Overflow: the number does not fit into a 32-bit float");
    }
}

TEST_F(TypedMagnification, WithoutAScaleIsStillStoredAndReported) {
    mainWindow.canDrawMicroMarker = false;
    try {
        setup.set({"abc", "2560", "1920"});
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "There is no scale at this magnification (Division by zero)");
    }
    EXPECT_EQ(settings.readVideoMag(), 0);
}
