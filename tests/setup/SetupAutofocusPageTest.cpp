#include "tests/setup/DialogRig.h"

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct AutofocusPage : DialogRig {
    SetupAutofocusPage& page() { return *dialog->autofocusPage; }
    std::vector<std::string> stored(const char* all, const char* fraction, const char* transmitted) {
        return {written("AutofocusOnAllImage", all), written("AutofocusOnImageFraction", fraction),
                written("UseTransmittedLight", transmitted)};
    }
};

} // namespace

TEST_F(AutofocusPage, ShowsTheDefaultsOfAnEmptyStore) {
    open();
    EXPECT_TRUE(page().chkAutoAll->isChecked());
    EXPECT_EQ(page().cbAutoPart->currentText().toStdString(), "1/9");
    EXPECT_FALSE(page().chkAutoTransmit->isChecked());
    EXPECT_EQ(page().cbCourseType->currentText().toStdString(), "Fine");
    EXPECT_EQ(text(page().txtCourseHalf), "9");
    EXPECT_EQ(text(page().txtCourseNbPoints), "7");
    EXPECT_FALSE(page().chkCourseFix->isChecked());
}

TEST_F(AutofocusPage, ShowsTheStoredValues) {
    set("AutofocusOnAllImage", "0");
    set("AutofocusOnImageFraction", "8");
    set("UseTransmittedLight", "1");
    host.settings["Ocuva.INI|Fine Parameters|Z Range"] = "60";
    host.settings["Ocuva.INI|Fine Parameters|Number of points"] = "21";
    open();
    EXPECT_FALSE(page().chkAutoAll->isChecked());
    EXPECT_EQ(page().cbAutoPart->currentText().toStdString(), "1/64");
    EXPECT_TRUE(page().chkAutoTransmit->isChecked());
    EXPECT_EQ(text(page().txtCourseHalf), "30");
    EXPECT_EQ(text(page().txtCourseNbPoints), "21");
}

TEST_F(AutofocusPage, OffersTheSevenParts) {
    open();
    std::vector<std::string> parts;
    parts.reserve(static_cast<std::size_t>(page().cbAutoPart->count()));
    for (int i = 0; i < page().cbAutoPart->count(); ++i) {
        parts.push_back(page().cbAutoPart->itemText(i).toStdString());
    }
    EXPECT_THAT(parts, ElementsAre("1/4", "1/9", "1/16", "1/25", "1/36", "1/49", "1/64"));
}

TEST_F(AutofocusPage, StoresAllThreeOptionsOnEachClickTheOthersAsTheyAreStored) {
    open();
    QTest::mouseClick(page().chkAutoAll, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    EXPECT_EQ(changes(), stored("0", "3", "0"));
    host.calls.clear();
    set("AutofocusOnImageFraction", "5"); // by another program meanwhile
    QTest::mouseClick(page().chkAutoTransmit, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    EXPECT_EQ(changes(), stored("0", "5", "1"));
}

TEST_F(AutofocusPage, StoresAChosenPartAsItsIndexPlus2) {
    open();
    page().cbAutoPart->setFocus();
    QTest::keyClick(page().cbAutoPart, Qt::Key_Down);
    EXPECT_EQ(changes(), stored("1", "4", "0"));
    host.calls.clear();
    QTest::keyClick(page().cbAutoPart, Qt::Key_End);
    EXPECT_EQ(changes(), stored("1", "8", "0"));
}

TEST_F(AutofocusPage, ShowsNoPartForAStoredFractionThatIsNotListedAndKeepsItUntilOneIsChosen) {
    set("AutofocusOnImageFraction", "20");
    open();
    EXPECT_EQ(page().cbAutoPart->currentIndex(), -1);
    QTest::mouseClick(page().chkAutoTransmit, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    EXPECT_EQ(setting("AutofocusOnImageFraction"), "20");
}

TEST_F(AutofocusPage, StoresHalfCourseAndStepsWhenEitherBoxIsLeft) {
    open();
    type(page().txtCourseHalf, "30");
    EXPECT_THAT(changes(), ElementsAre(written("Z Range", "60", "Fine Parameters"),
                                       written("Number of points", "7", "Fine Parameters")));
    host.calls.clear();
    type(page().txtCourseNbPoints, "21");
    EXPECT_THAT(changes(), ElementsAre(written("Z Range", "60", "Fine Parameters"),
                                       written("Number of points", "21", "Fine Parameters")));
}

TEST_F(AutofocusPage, IgnoresACourseThatIsNotANumberAndShowsTheValueInUse) {
    open();
    for (const char* wrong : {"abc", "9 units", "2000000000", "99999999999"}) {
        type(page().txtCourseHalf, wrong);
        EXPECT_THAT(changes(), IsEmpty()) << wrong;
        EXPECT_EQ(text(page().txtCourseHalf), "9") << wrong;
    }
    type(page().txtCourseNbPoints, "many");
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(text(page().txtCourseNbPoints), "7");
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(AutofocusPage, KeepsCourseTypeAndFixingFromOneOpeningToTheNext) {
    open();
    page().cbCourseType->setFocus();
    QTest::keyClick(page().cbCourseType, Qt::Key_Up);
    QTest::mouseClick(page().chkCourseFix, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    EXPECT_THAT(changes(), IsEmpty());
    open();
    EXPECT_EQ(page().cbCourseType->currentText().toStdString(), "Coarse");
    EXPECT_TRUE(page().chkCourseFix->isChecked());
}
