#include "standards/frmStdList.h"
#include "tests/setup/DialogRig.h"

#include <QTimer>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct StagePage : DialogRig {
    void SetUp() override { open(SetupTab::Stage); }
    SetupStagePage& page() { return *dialog->stagePage; }
    void click(QRadioButton* option) {
        QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option->height() / 2));
    }
};

} // namespace

TEST_F(StagePage, ShowsMagnificationAndField) {
    EXPECT_EQ(text(page().txtMag), "400");
    EXPECT_EQ(text(page().txtMagX100), "2560");
    EXPECT_EQ(text(page().txtMagY100), "1920");
}

TEST_F(StagePage, EachOfTheThreeBoxesStoresTheMagnificationAndDrawsTheMicroMarker) {
    const std::vector<std::pair<TextBox*, const char*>> boxes{
        {page().txtMag, "200"}, {page().txtMagX100, "1280.5"}, {page().txtMagY100, "960"}};
    for (const auto& [box, typed] : boxes) {
        host.calls.clear();
        type(box, typed);
        EXPECT_THAT(changes(),
                    ElementsAre("TarnRegisterSetString(\"tn_video\", \"VideoMag\", \"200\", \"TARN.INI\")",
                                StartsWith("TarnSetVideoMag100Factors("), "showMagnification(200)",
                                "DrawMicroMarker()"));
        EXPECT_EQ(text(box), typed);
    }
    EXPECT_EQ(host.magFactorX, 1280.5F);
    EXPECT_EQ(host.magFactorY, 960.0F);
}

TEST_F(StagePage, Typing12Point7SetsMagnification13AndTypingAbcSets0) {
    type(page().txtMag, "12.7");
    EXPECT_EQ(settings.readVideoMag(), 13);
    EXPECT_EQ(text(page().txtMag), "13");
    type(page().txtMag, "abc");
    EXPECT_EQ(settings.readVideoMag(), 0);
    EXPECT_EQ(text(page().txtMag), "0");
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(StagePage, AMicroMarkerThatCannotBeDrawnIsReportedOnce) {
    mainWindow.canDrawMicroMarker = false;
    type(page().txtMag, "abc");
    EXPECT_THAT(reports, ElementsAre("There is no scale at this magnification (Division by zero)"));
    EXPECT_EQ(settings.readVideoMag(), 0);
}

TEST_F(StagePage, AnotherMagnificationUpdatesTheGridsMicrometresAndKeepsItsPixels) {
    set("GridSizeX", "120");
    type(page().txtMag, "800");
    EXPECT_EQ(text(dialog->monitorPage->txtGridWidth), "50");
    EXPECT_EQ(setting("GridSizeX"), "120");
}

TEST_F(StagePage, BoxesWithoutTypedTextFollowAMagnificationThatChangedElsewhere) {
    set("GridSizeX", "120");
    host.settings["TARN.INI|tn_video|VideoMag"] = "800";
    host.magFactorX = 1280.0F;
    dialog->followMagnification();
    EXPECT_EQ(text(page().txtMag), "800");
    EXPECT_EQ(text(page().txtMagX100), "1280");
    EXPECT_EQ(text(dialog->monitorPage->txtGridWidth), "25");
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(StagePage, ATypedTextStaysAndEscapeRestoresTheMagnificationThatTheHostHasNow) {
    page().txtMag->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(page().txtMag, QStringLiteral("25"));
    host.settings["TARN.INI|tn_video|VideoMag"] = "800";
    dialog->followMagnification();
    EXPECT_EQ(text(page().txtMag), "25");
    QTest::keyClick(page().txtMag, Qt::Key_Escape);
    EXPECT_EQ(text(page().txtMag), "800");
}

TEST_F(StagePage, TheDialogFollowsWhenItBecomesActiveAgain) {
    host.settings["TARN.INI|tn_video|VideoMag"] = "800";
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(text(page().txtMag), "400");
    QApplication::setActiveWindow(dialog.get());
    EXPECT_EQ(text(page().txtMag), "800");
}

TEST_F(StagePage, AnOptionStoresItsIndexForItsAxis) {
    click(page().optMoveX[1]);
    EXPECT_EQ(setting("MoveXInverse"), "1");
    EXPECT_EQ(setting("MoveYInverse"), "0");
    click(page().optMoveY[1]);
    EXPECT_EQ(setting("MoveYInverse"), "1");
    click(page().optMoveX[0]);
    EXPECT_EQ(setting("MoveXInverse"), "0");
    EXPECT_EQ(setting("MoveYInverse"), "1");
}

TEST_F(StagePage, AnOptionStoresAllSevenViewSettingsInTheirOrder) {
    set("LiveImage", "1");
    click(page().optMoveY[1]);
    EXPECT_THAT(changes(),
                ElementsAre(written("LiveImage", "1"), written("FullImage", "0"), written("ShowCross", "0"),
                            written("ShowGrid", "0"), written("LargeIcons", "0"),
                            written("MoveXInverse", "0"), written("MoveYInverse", "1")));
}

TEST_F(StagePage, ShowsTheStoredDirections) {
    set("MoveXInverse", "1");
    set("MoveYInverse", "-1");
    open(SetupTab::Stage);
    EXPECT_TRUE(page().optMoveX[1]->isChecked());
    EXPECT_FALSE(page().optMoveX[0]->isChecked());
    EXPECT_TRUE(page().optMoveY[1]->isChecked());
}

TEST_F(StagePage, SortOpensTheStandardListOwnedByTheDialogWhichFillsTheStageMenuWhenItCloses) {
    bool wasModal = false;
    QWidget* owner = nullptr;
    QTimer::singleShot(0, dialog.get(), [&] {
        auto* list = qobject_cast<frmStdList*>(QApplication::activeModalWidget());
        if (list != nullptr) {
            wasModal = list->isModal();
            owner = list->parentWidget();
            list->accept();
        }
    });
    QTest::mouseClick(page().cmdStandardSort, Qt::LeftButton);
    EXPECT_TRUE(wasModal);
    EXPECT_EQ(owner, dialog.get());
    EXPECT_EQ(menusFilled, 1);
}
