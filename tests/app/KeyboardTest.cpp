// What the keyboard reaches in the program's windows: access letters, the keys of a list, and Exit.

#include "controls/AccessLetter.h"
#include "tests/app/AccessLetters.h"
#include "tests/app/EveryWindowRig.h"

#include <QMessageBox>
#include <QTimer>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

struct Keyboard : EveryWindow {
    static std::vector<std::string> keysOf(const QWidget& window) {
        std::vector<std::string> keys;
        for (const auto& [key, meanings] : accessLetters(window)) {
            keys.push_back(key);
        }
        return keys;
    }
    void closeModalWindows() {
        standardList->close();
        window().findChild<QDialog*>(QStringLiteral("dlgCustomizeToolbar"))->close();
        QCoreApplication::processEvents();
    }
    frmMove& moveDialog() { return window().standards().moveDialog(); }
    frmSetupStage& calibrationDialog() { return window().pictureOnStage().dialog(); }
};

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::AltModifier) {
    QApplication::setActiveWindow(&window);
    QWidget* focused = window.focusWidget();
    QTest::keyClick(focused != nullptr ? focused : &window, key, modifiers);
}

} // namespace

TEST_F(Keyboard, NoAccessLetterOfAWindowHasTwoMeanings) {
    forEachPage([](QWidget& shown, const std::string& where) {
        EXPECT_THAT(ambiguousLetters(shown), IsEmpty()) << where;
    });
}

TEST_F(Keyboard, NoAccessLetterOfAMenuHasTwoMeanings) {
    for (const QMenu* menu : window().menuBar()->findChildren<QMenu*>()) {
        std::map<QString, int> letters;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator()) {
                EXPECT_EQ(++letters[QKeySequence::mnemonic(action->text()).toString()], 1)
                    << action->text().toStdString();
            }
        }
    }
}

TEST_F(Keyboard, MoveCalibrateAndStandardListHaveAccessLetters) {
    EXPECT_THAT(keysOf(moveDialog()), IsSupersetOf({"Alt+C", "Alt+M", "Alt+S", "Alt+X", "Alt+Y", "Alt+Z"}));
    EXPECT_THAT(keysOf(calibrationDialog()), IsSupersetOf({"Alt+1", "Alt+2", "Alt+3", "Alt+C", "Alt+H",
                                                           "Alt+K", "Alt+O", "Alt+P", "Alt+R"}));
    EXPECT_THAT(keysOf(*standardList), IsSupersetOf({"Alt+D", "Alt+Down", "Alt+I", "Alt+O", "Alt+Up"}));
}

TEST_F(Keyboard, CaptionsWithAnAccessLetterReadAsBefore) {
    EXPECT_EQ(moveDialog().cmdMove->text().toStdString(), "Move");
    EXPECT_EQ(moveDialog().cmdStandard->text().toStdString(), "Standard Pos...");
    EXPECT_EQ(moveDialog().cmdClose->text().toStdString(), "Close");
    EXPECT_EQ(moveDialog().findChild<QLabel*>(QStringLiteral("lbMoveX"))->text().toStdString(), "X");
    EXPECT_EQ(standardList->cmdInsert->text().toStdString(), "Insert...");
    EXPECT_EQ(standardList->cmdDelete->text().toStdString(), "Delete");
    EXPECT_EQ(calibrationDialog().optThreePoints->text().toStdString(), "3 Points");
    EXPECT_EQ(calibrationDialog().optTwoPoints->text().toStdString(), "2 Points");
}

TEST_F(Keyboard, AltAndTheLetterOfAnAxisGoesToItsBoxInTheMoveDialog) {
    closeModalWindows();
    press(moveDialog(), Qt::Key_Z);
    EXPECT_EQ(moveDialog().focusWidget(), moveDialog().txtMove[2]);
    press(moveDialog(), Qt::Key_Y);
    EXPECT_EQ(moveDialog().focusWidget(), moveDialog().txtMove[1]);
}

TEST_F(Keyboard, AltAndMMovesTheStageAndAltAndCClosesTheMoveDialog) {
    closeModalWindows();
    host.calls.clear();
    press(moveDialog(), Qt::Key_M);
    EXPECT_TRUE(QTest::qWaitFor([this] { return host.callsOf("TarnStartStage").size() == 1; }));
    press(moveDialog(), Qt::Key_C);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !moveDialog().isVisible(); }));
}

TEST_F(Keyboard, AltAndTheNumberOfAPointPicksItAndControlAndTheNumberReadsIt) {
    closeModalWindows();
    press(calibrationDialog(), Qt::Key_2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return calibrationDialog().isSelecting(); }));
    host.position = {{axisX, 77}, {axisY, 0}, {axisZ, 0}};
    press(calibrationDialog(), Qt::Key_3, Qt::ControlModifier);
    const TextBox* const box = calibrationDialog().FramePoint->box(2, PointField::XS);
    EXPECT_TRUE(QTest::qWaitFor([box] { return box->text() == QStringLiteral("77"); }));
}

TEST_F(Keyboard, ShowPointsKeepsItsAccessLetter) {
    closeModalWindows();
    for (const auto& caption : {QStringLiteral("Show Points"), QStringLiteral("Hide Points")}) {
        press(calibrationDialog(), Qt::Key_H);
        EXPECT_TRUE(QTest::qWaitFor([&] { return calibrationDialog().CmdPt->text() == caption; }));
    }
}

TEST_F(Keyboard, ControlAndQEndsTheProgramFromEachOfItsWindows) {
    closeModalWindows();
    for (QWidget* shown : windowsOnScreen()) {
        EXPECT_TRUE(shown->actions().contains(action("mnuExit")) || shown == &window()) << described(*shown);
    }
    press(moveDialog(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(processEnds, 1);
    EXPECT_THAT(windowsOnScreen(), IsEmpty());
}

TEST_F(Keyboard, ControlAndQEndsTheProgramFromAMessageBoxThatIsOpen) {
    closeModalWindows();
    QMessageBox box(&window());
    box.setText(QStringLiteral("A question"));
    box.open();
    press(box, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(processEnds, 1);
}

TEST(AccessLetter, IsNotPartOfTheTextThatAButtonShows) {
    EXPECT_EQ(withoutAccessLetter(QStringLiteral("&Move")).toStdString(), "Move");
    EXPECT_EQ(withoutAccessLetter(QStringLiteral("S&how Points")).toStdString(), "Show Points");
    EXPECT_EQ(withoutAccessLetter(QStringLiteral("Fe && &Ni")).toStdString(), "Fe & Ni");
    EXPECT_EQ(withoutAccessLetter(QStringLiteral("Plain")).toStdString(), "Plain");
}

TEST(AccessLetter, IsUnderlined) {
    QWidget parent;
    LetteredButton plain(QStringLiteral("Move"), &parent);
    LetteredButton lettered(QStringLiteral("&Move"), &parent);
    ASSERT_EQ(plain.size(), lettered.size());
    EXPECT_NE(plain.grab().toImage(), lettered.grab().toImage());
    EXPECT_EQ(plain.sizeHint(), lettered.sizeHint());
}
