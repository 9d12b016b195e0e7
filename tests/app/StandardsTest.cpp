#include "standards/frmStdList.h"
#include "tests/support/NamesOnList.h"
#include "tests/support/UsersHand.h"
#include "tests/support/WindowRig.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <limits>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct StandardsRig : WindowRig {
    void SetUp() override {
        host.dirStd = "/std";
        host.dbObjects = {{"/std/Quartz.std", {-9000, 4000, 12}}, {"/std/Pyrite.std", {9000, -4000, -3}}};
        store({"/std/Quartz.std", "/elsewhere/Gold.std", "/std/Pyrite.std"});
        start();
        QCoreApplication::processEvents();
        host.calls.clear();
    }
    void store(const std::vector<std::string>& names) {
        host.settings["Ocuva.INI|StandardList|StandardListSize"] = std::to_string(names.size());
        for (std::size_t i = 0; i < names.size(); ++i) {
            host.settings["Ocuva.INI|StandardList|Standard" + std::to_string(i + 1)] = names[i];
        }
    }
    std::vector<std::string> menuTexts() {
        std::vector<std::string> texts;
        const ButtonMenus* menus = window().tbMain->buttonMenus(QStringLiteral("Stage"));
        texts.reserve(static_cast<std::size_t>(menus->count()));
        for (int i = 0; i < menus->count(); ++i) {
            texts.push_back(menus->text(i).toStdString());
        }
        return texts;
    }
    std::vector<std::string> storedNames() { return namesOn(window().standards().list()); }
    std::vector<std::string> moves() const { return host.callsOf("TarnLoadStageRelSecure"); }
    frmMove& moveDialog() { return window().standards().moveDialog(); }
    std::vector<std::string> typed() {
        std::vector<std::string> texts;
        texts.reserve(moveDialog().txtMove.size());
        for (const TextBox* box : moveDialog().txtMove) {
            texts.push_back(box->text().toStdString());
        }
        return texts;
    }
    QString messageBoxText(const std::function<void()>& action) {
        QString text;
        QTimer::singleShot(0, &window(), [&text] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                box->accept();
            }
        });
        action();
        QCoreApplication::processEvents();
        return text;
    }
};

using MoveDialog = StandardsRig;
using StageMenu = StandardsRig;

struct StandardListDialog : StandardsRig {
    std::unique_ptr<StandardList> list;
    std::unique_ptr<frmStdList> dialog;
    std::string chosen; // by the operator in the file dialog; empty: cancelled
    int menusFilled = 0;

    void SetUp() override {
        StandardsRig::SetUp();
        host.dbObjects["/elsewhere/Gold.std"] = {1, 2, 3};
        open();
    }
    void open() {
        list = std::make_unique<StandardList>(host.tn_reg(), host.tn_lib_proxy());
        dialog = std::make_unique<frmStdList>(
            *list, host.tn_lib_proxy(),
            [this] {
                if (!chosen.empty()) {
                    list->AppendStandard(chosen, false);
                }
                return !chosen.empty();
            },
            [this] { ++menusFilled; }, [this](const QString& what) { return window().holdInput(what); },
            &window());
        dialog->show();
    }
    std::string noteText() const { return dialog->lblStdNote->text().toStdString(); }
    void pressEveryButton() {
        for (QPushButton* button : {dialog->cmdUp, dialog->cmdDown, dialog->cmdDelete, dialog->cmdInsert}) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    QString cell(int row, int column) { return dialog->lvwStdEntries->topLevelItem(row - 1)->text(column); }
    void select(const std::vector<int>& rows) {
        dialog->lvwStdEntries->clearSelection();
        for (const int row : rows) {
            dialog->lvwStdEntries->topLevelItem(row - 1)->setSelected(true);
        }
    }
    std::vector<int> selected() {
        std::vector<int> rows;
        for (int i = 0; i < dialog->lvwStdEntries->topLevelItemCount(); ++i) {
            if (dialog->lvwStdEntries->topLevelItem(i)->isSelected()) {
                rows.push_back(i + 1);
            }
        }
        return rows;
    }
};

} // namespace

TEST_F(MoveDialog, OpensShowingWhereTheStageIsAndMoveAtOnceSendsThreeMovesOfZeroAndAWatchOfAllAxes) {
    host.position = {{axisX, 100}, {axisY, -200}, {axisZ, 30}};
    action("mnuMove")->trigger();
    EXPECT_THAT(typed(), ElementsAre("100", "-200", "30"));
    host.calls.clear();
    QTest::mouseClick(moveDialog().cmdMove, Qt::LeftButton);
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 0)", "TarnLoadStageRelSecure(2, 0)",
                                     "TarnLoadStageRelSecure(3, 0)"));
    EXPECT_EQ(host.calls.back(), "TarnStartStage(0)");
    EXPECT_TRUE(window().tStageMove->isActive());
}

TEST_F(MoveDialog, OpensFromItsItemItsShortcutItsToolbarKeyAndADoubleClickOnAPositionPanel) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuMove")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_F8); },
        [this] { toolbar("Stage"); },
        [this] { QTest::mouseDClick(window().sbMain->panel(QStringLiteral("X")), Qt::LeftButton); },
    };
    for (const auto& way : ways) {
        moveDialog().close();
        way();
        EXPECT_TRUE(moveDialog().isVisible());
    }
}

TEST_F(MoveDialog, OpensNextToTheMainWindowAndNotOverTheImage) {
    window().move(40, 60);
    action("mnuMove")->trigger();
    EXPECT_FALSE(moveDialog().frameGeometry().intersects(window().frameGeometry()));
    EXPECT_TRUE(window().QWidget::screen()->availableGeometry().contains(moveDialog().frameGeometry()));
}

TEST_F(MoveDialog, ComesBackWhereItWasLeftWithWhereTheStageIsNow) {
    action("mnuMove")->trigger();
    dragWindow(moveDialog(), {QPoint(7, 9), moveDialog().size() + QSize(30, 10)});
    const QRect left = moveDialog().geometry();
    moveDialog().close();
    host.position = {{axisX, 5}};
    start();
    QCoreApplication::processEvents();
    action("mnuMove")->trigger();
    EXPECT_EQ(moveDialog().geometry(), left);
    EXPECT_EQ(typed().front(), "5");
}

TEST_F(MoveDialog, KeepsTypedTextsWhenItIsRestoredFromTheMinimisedState) {
    action("mnuMove")->trigger();
    moveDialog().txtMove[0]->setText(QStringLiteral("12"));
    host.calls.clear();
    QShowEvent shownByTheWindowSystem;
    QSpontaneKeyEvent::setSpontaneous(&shownByTheWindowSystem);
    qApp->notify(&moveDialog(), &shownByTheWindowSystem); // sendEvent would take the mark away
    EXPECT_EQ(typed().front(), "12");
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MoveDialog, LeavesTheStageAloneWhileOneTypesUntilEnterOrMove) {
    action("mnuMove")->trigger();
    QApplication::setActiveWindow(&moveDialog());
    TextBox* box = moveDialog().txtMove[0];
    box->setFocus();
    host.calls.clear();
    // The window's own commands that move the stage have these keys; none of them counts here.
    for (const Qt::Key key : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8,
                              Qt::Key_F9, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown,
                              Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Space}) {
        QTest::keyClick(box, key);
    }
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("-12"));
    EXPECT_EQ(box->text(), QStringLiteral("-12"));
    EXPECT_THAT(host.calls, IsEmpty());
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(moves().size(), 3U);
}

TEST_F(MoveDialog, RoundsTypedNumbersHalfToEven) {
    action("mnuMove")->trigger();
    moveDialog().txtMove[0]->setText(QStringLiteral("12.5"));
    moveDialog().txtMove[1]->setText(QStringLiteral("13.5"));
    QTest::mouseClick(moveDialog().cmdMove, Qt::LeftButton);
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 12)", "TarnLoadStageRelSecure(2, 14)",
                                     "TarnLoadStageRelSecure(3, 0)"));
}

TEST_F(MoveDialog, ReportsATextThatIsNotANumberWithItsFieldAndMovesNothing) {
    action("mnuMove")->trigger();
    moveDialog().txtMove[1]->setText(QStringLiteral("12abc"));
    const QString text = messageBoxText([this] { QTest::mouseClick(moveDialog().cmdMove, Qt::LeftButton); });
    EXPECT_EQ(text.toStdString(), "Y: \"12abc\" is not a number");
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(MoveDialog, ReportsADistanceBeyond32BitsAndMovesNothing) {
    host.position = {{axisX, std::numeric_limits<Long>::min()}};
    action("mnuMove")->trigger();
    moveDialog().txtMove[0]->setText(QStringLiteral("1"));
    const QString text = messageBoxText([this] { QTest::mouseClick(moveDialog().cmdMove, Qt::LeftButton); });
    EXPECT_EQ(text.toStdString(), "X: 1 is too far away from where the stage is. Nothing was moved");
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(MoveDialog, SelectsTheWholeTextOfABoxThatGetsTheFocus) {
    action("mnuMove")->trigger();
    QApplication::setActiveWindow(&moveDialog()); // the offscreen platform leaves the main window active
    moveDialog().txtMove[0]->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), moveDialog().txtMove[0]);
    QTest::keyClick(moveDialog().txtMove[0], Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), moveDialog().txtMove[1]);
    EXPECT_EQ(moveDialog().txtMove[1]->selectedText(), moveDialog().txtMove[1]->text());
    QTest::mouseClick(moveDialog().txtMove[2], Qt::LeftButton);
    EXPECT_EQ(moveDialog().txtMove[2]->selectedText(), moveDialog().txtMove[2]->text());
}

TEST_F(MoveDialog, AddsAChosenStandardToTheListAndTheMenuAndDrivesThereAtOnce) {
    host.dbObjects["/std/Albite.std"] = {500, 600, 7};
    QString folder;
    window().chooseStandard = [&folder](const QString& startIn) {
        folder = startIn;
        return QStringLiteral("/std/Albite.std");
    };
    action("mnuMove")->trigger();
    QTest::mouseClick(moveDialog().cmdStandard, Qt::LeftButton);
    EXPECT_EQ(folder, QStringLiteral("/std"));
    EXPECT_EQ(storedNames().back(), "/std/Albite.std");
    EXPECT_THAT(menuTexts(), ElementsAre("Quartz", "/elsewhere/Gold.std", "Pyrite", "Albite"));
    EXPECT_THAT(typed(), ElementsAre("500", "600", "7"));
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, 500)", "TarnLoadStageRelSecure(2, 600)",
                                     "TarnLoadStageRelSecure(3, 7)"));
}

TEST_F(MoveDialog, RefusesAStandardWithATooLongPath) {
    const std::string longest = "/std/" + std::string(119, 'a') + ".std";
    window().chooseStandard = [&longest](const QString&) { return QString::fromStdString(longest); };
    action("mnuMove")->trigger();
    EXPECT_EQ(messageBoxText([this] { moveDialog().cmdStandard->click(); }), QString());
    EXPECT_EQ(storedNames().back(), longest);
    const std::string tooLong = "/std/" + std::string(120, 'a') + ".std";
    window().chooseStandard = [&tooLong](const QString&) { return QString::fromStdString(tooLong); };
    host.calls.clear();
    const QString text = messageBoxText([this] { moveDialog().cmdStandard->click(); });
    EXPECT_TRUE(text.contains(QStringLiteral("its path takes 129 characters"))) << text.toStdString();
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(MoveDialog, AsksForStandardsInTheHostsDirectoryAndStartsFromItsPattern) {
    const QTemporaryDir folder;
    QFile(folder.filePath(QStringLiteral("Albite.std"))).open(QIODevice::WriteOnly);
    QTimer::singleShot(0, &window(), [&folder] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* nameEdit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Add Standard Position"));
        EXPECT_EQ(dialog->nameFilters(), QStringList{QStringLiteral("Standard (*.std)")});
        EXPECT_EQ(dialog->defaultSuffix(), QStringLiteral("std"));
        EXPECT_EQ(dialog->directory().absolutePath(), folder.path());
        EXPECT_EQ(nameEdit->text(), QStringLiteral("*.std"));
        nameEdit->setText(QStringLiteral("Albite")); // the extension is added
        static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(chooseStandardFile(window(), folder.path()),
              QDir::toNativeSeparators(folder.filePath(QStringLiteral("Albite.std"))));
}

TEST_F(MoveDialog, ChangesNothingWhenTheFileDialogIsCancelled) {
    window().chooseStandard = [](const QString&) { return QString(); };
    action("mnuMove")->trigger();
    host.calls.clear();
    QTest::mouseClick(moveDialog().cmdStandard, Qt::LeftButton);
    EXPECT_EQ(storedNames().size(), 3U);
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(MoveDialog, ClosesWithTheProgram) {
    action("mnuMove")->trigger();
    action("mnuExit")->trigger();
    EXPECT_FALSE(moveDialog().isVisible());
}

TEST_F(StageMenu, ShowsTheStoredStandardsInOrderInsideTheDirectoryByTheirBareNames) {
    EXPECT_THAT(menuTexts(), ElementsAre("Quartz", "/elsewhere/Gold.std", "Pyrite"));
}

TEST_F(StageMenu, ComparesTheDirectoryWithoutRegardToCase) {
    host.dirStd = "/STD";
    window().standards().FillStageMenu();
    EXPECT_THAT(menuTexts(), ElementsAre("Quartz", "/elsewhere/Gold.std", "Pyrite"));
}

TEST_F(StageMenu, IsEmptyWithoutAStoredList) {
    for (const char* size : {"0", "-1", ""}) {
        host.settings["Ocuva.INI|StandardList|StandardListSize"] = size;
        window().standards().FillStageMenu();
        EXPECT_THAT(menuTexts(), IsEmpty()) << '"' << size << '"';
    }
    host.settings.erase("Ocuva.INI|StandardList|StandardListSize");
    window().standards().FillStageMenu();
    EXPECT_THAT(menuTexts(), IsEmpty());
}

TEST_F(StageMenu, SkipsAHoleAndKeepsTheOrder) {
    store({"/std/Quartz.std", "", "/std/Pyrite.std"});
    window().standards().FillStageMenu();
    EXPECT_THAT(menuTexts(), ElementsAre("Quartz", "Pyrite"));
}

TEST_F(StageMenu, LacksTheSecondOfTwoEqualNames) {
    store({"/std/Quartz.std", "/std/Quartz.std", "/std/Pyrite.std"});
    window().standards().FillStageMenu();
    EXPECT_THAT(menuTexts(), ElementsAre("Quartz", "Pyrite"));
}

TEST_F(StageMenu, DrivesToAStandardWithTheMoveDialogNeverShownWhichThenHoldsItsPosition) {
    Q_EMIT window().tbMain->buttonMenuClicked(QStringLiteral("Stage"), QStringLiteral("/std/Quartz.std"));
    EXPECT_FALSE(moveDialog().isVisible());
    EXPECT_THAT(typed(), ElementsAre("-9000", "4000", "12"));
    EXPECT_THAT(moves(), ElementsAre("TarnLoadStageRelSecure(1, -9000)", "TarnLoadStageRelSecure(2, 4000)",
                                     "TarnLoadStageRelSecure(3, 12)"));
    EXPECT_EQ(host.calls.front(), "TarnDbObjectNew(\"OCUVASTD\")");
    EXPECT_EQ(host.calls.back().rfind("TarnDbObjectDelete", 0), 0U);
}

TEST_F(StageMenu, SilentlyIgnoresAStandardWithoutAPosition) {
    for (const char* failing : {"", "TarnDbObjectNew", "TarnDbGetStagePos"}) {
        host.results.clear();
        if (*failing != '\0') {
            host.results[failing] = 0;
        }
        const QString name =
            *failing == '\0' ? QStringLiteral("/elsewhere/Gold.std") : QStringLiteral("/std/Quartz.std");
        Q_EMIT window().tbMain->buttonMenuClicked(QStringLiteral("Stage"), name);
        EXPECT_THAT(moves(), IsEmpty()) << failing;
        EXPECT_THAT(host.dbHandles, IsEmpty()) << failing;
    }
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(StandardListDialog, ShowsNamesAndPositionsAndInFullWhatIsOutsideTheDirectory) {
    EXPECT_EQ(cell(1, 0), QStringLiteral("Quartz"));
    EXPECT_EQ(cell(1, 1), QStringLiteral("-9000"));
    EXPECT_EQ(cell(1, 3), QStringLiteral("12"));
    EXPECT_EQ(cell(2, 0), QStringLiteral("/elsewhere/Gold.std"));
    EXPECT_EQ(dialog->lvwStdEntries->headerItem()->text(0), QStringLiteral("File"));
    EXPECT_TRUE(dialog->lvwStdEntries->headerItem()->textAlignment(1) & Qt::AlignRight);
}

TEST_F(StandardListDialog, LeavesOutWhatTheDatabaseCannotReadAndTheNextEditPurgesIt) {
    host.dbObjects.erase("/elsewhere/Gold.std");
    open();
    EXPECT_EQ(dialog->rows().count(), 2);
    EXPECT_EQ(storedNames().size(), 3U);
    select({1});
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    EXPECT_THAT(storedNames(), ElementsAre("/std/Pyrite.std", "/std/Quartz.std"));
}

TEST_F(StandardListDialog, ShowsANameThatIsStoredTwiceOnceAndAsksNoPositionForItAgain) {
    store({"/std/Quartz.std", "/std/Pyrite.std", "/std/Quartz.std"});
    host.calls.clear();
    open();
    EXPECT_EQ(dialog->rows().count(), 2);
    EXPECT_EQ(cell(2, 0), QStringLiteral("Pyrite"));
    EXPECT_EQ(host.callsOf("TarnDbObjectRead").size(), 3U);
    EXPECT_EQ(host.callsOf("TarnDbGetStagePos").size(), 2U);
}

TEST_F(StandardListDialog, MovesDeletesAndSavesAtOnce) {
    select({2});
    QTest::mouseClick(dialog->cmdUp, Qt::LeftButton);
    EXPECT_THAT(storedNames(), ElementsAre("/elsewhere/Gold.std", "/std/Quartz.std", "/std/Pyrite.std"));
    EXPECT_THAT(selected(), IsEmpty());
    select({2});
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    EXPECT_THAT(selected(), ElementsAre(3));
    select({2});
    QTest::mouseClick(dialog->cmdDelete, Qt::LeftButton);
    EXPECT_THAT(storedNames(), ElementsAre("/elsewhere/Gold.std", "/std/Quartz.std"));
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(StandardListDialog, KeepsItsScrollPositionAndTheSelectedRowAfterAnEdit) {
    std::vector<std::string> names;
    for (int i = 1; i <= 100; ++i) {
        names.push_back("/std/" + std::to_string(i) + ".std");
        host.dbObjects[names.back()] = {i, i, i};
    }
    store(names);
    open();
    select({60});
    dialog->lvwStdEntries->scrollToItem(dialog->lvwStdEntries->topLevelItem(59),
                                        QAbstractItemView::PositionAtCenter);
    const int scrolledTo = dialog->lvwStdEntries->verticalScrollBar()->value();
    ASSERT_GT(scrolledTo, 0);
    dialog->cmdDown->click();
    EXPECT_EQ(dialog->lvwStdEntries->verticalScrollBar()->value(), scrolledTo);
    EXPECT_EQ(dialog->lvwStdEntries->currentItem(), dialog->lvwStdEntries->topLevelItem(60));
    EXPECT_THAT(selected(), ElementsAre(61));
}

TEST_F(StandardListDialog, WithAnEmptyListDeleteStillSavesAnEmptyList) {
    select({1, 2, 3});
    QTest::mouseClick(dialog->cmdDelete, Qt::LeftButton);
    EXPECT_THAT(storedNames(), IsEmpty());
    host.settings["Ocuva.INI|StandardList|StandardListSize"] = "2"; // by somebody else meanwhile
    host.calls.clear();
    QTest::mouseClick(dialog->cmdDelete, Qt::LeftButton);
    EXPECT_THAT(
        host.callsOf("TarnRegisterSetString"),
        ElementsAre("TarnRegisterSetString(\"StandardList\", \"StandardListSize\", \"0\", \"Ocuva.INI\")"));
    QTest::mouseClick(dialog->cmdUp, Qt::LeftButton);
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    EXPECT_EQ(dialog->rows().count(), 0);
    EXPECT_THAT(storedNames(), IsEmpty());
}

TEST_F(StandardListDialog, InsertsAtTheFirstSelectedRowOrAtTheTopAndSelectsTheNewOne) {
    host.dbObjects["/std/Albite.std"] = {5, 6, 7};
    host.dbObjects["/std/Olivine.std"] = {8, 9, 10};
    chosen = "/std/Albite.std";
    select({2, 3});
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_THAT(storedNames(),
                ElementsAre("/std/Quartz.std", "/std/Albite.std", "/elsewhere/Gold.std", "/std/Pyrite.std"));
    EXPECT_THAT(selected(), ElementsAre(2));
    chosen = "/std/Olivine.std";
    select({});
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_EQ(storedNames().front(), "/std/Olivine.std");
}

TEST_F(StandardListDialog, ChangesNothingWhenInsertIsCancelled) {
    host.calls.clear();
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(StandardListDialog, ADropReordersNothingAndRemovesTheHighlight) {
    QMimeData data;
    const QPoint at = dialog->lvwStdEntries->visualItemRect(dialog->lvwStdEntries->topLevelItem(1)).center();
    QWidget* viewport = dialog->lvwStdEntries->viewport();
    QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
    EXPECT_EQ(dialog->lvwStdEntries->dropHighlight(), dialog->lvwStdEntries->topLevelItem(1));
    QDropEvent drop(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &drop);
    EXPECT_EQ(dialog->lvwStdEntries->dropHighlight(), nullptr);
    EXPECT_THAT(storedNames(), ElementsAre("/std/Quartz.std", "/elsewhere/Gold.std", "/std/Pyrite.std"));
    EXPECT_EQ(cell(1, 0), QStringLiteral("Quartz"));
}

TEST_F(StandardListDialog, KeepsTheSelectionWhenItComesBackFromBeingMinimised) {
    select({2});
    host.calls.clear();
    QShowEvent shownByTheWindowSystem;
    QSpontaneKeyEvent::setSpontaneous(&shownByTheWindowSystem);
    qApp->notify(dialog.get(), &shownByTheWindowSystem);
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(StandardListDialog, WithoutTheDatabaseSaysSoAndTheStoredListStaysAsItIs) {
    host.results["TarnDbObjectNew"] = 0;
    chosen = "/std/Quartz.std";
    open();
    EXPECT_THAT(noteText(), HasSubstr("database cannot be opened"));
    pressEveryButton();
    EXPECT_EQ(storedNames().size(), 3U);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(StandardListDialog, WhenNoStandardCanBeReadSaysSoAndTheStoredListStaysAsItIs) {
    host.dbObjects.clear();
    open();
    EXPECT_THAT(noteText(), HasSubstr("none of the standards on the list (3)"));
    pressEveryButton();
    EXPECT_EQ(storedNames().size(), 3U);
    host.dbObjects = {{"/std/Quartz.std", {1, 2, 3}}};
    chosen = "/std/Quartz.std";
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton); // Insert looks again
    EXPECT_EQ(dialog->rows().count(), 1);
}

TEST_F(StandardListDialog, SaysHowManyStandardsTheNextChangeRemoves) {
    EXPECT_FALSE(dialog->lblStdNote->isVisible());
    host.dbObjects.erase("/elsewhere/Gold.std");
    open();
    EXPECT_THAT(noteText(), HasSubstr("not shown: 1 of 3"));
    select({1});
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    EXPECT_EQ(noteText(), "");
}

TEST_F(StandardListDialog, StoresNothingWhereNothingChanged) {
    host.calls.clear();
    select({1, 3});
    QTest::mouseClick(dialog->cmdUp, Qt::LeftButton);
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    select({});
    QTest::mouseClick(dialog->cmdUp, Qt::LeftButton);
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    QTest::mouseClick(dialog->cmdDelete, Qt::LeftButton);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
}

TEST_F(StandardListDialog, RefusesAChosenFileThatTheHostCannotReadAndSaysSo) {
    chosen = "/std/Notes.std";
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_THAT(noteText(), HasSubstr("\"/std/Notes.std\" was not added"));
    EXPECT_THAT(storedNames(), ElementsAre("/std/Quartz.std", "/elsewhere/Gold.std", "/std/Pyrite.std"));
    store({});
    open();
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_THAT(noteText(), HasSubstr("was not added"));
    EXPECT_THAT(storedNames(), IsEmpty());
}

TEST_F(StandardListDialog, SaysThatAChosenStandardIsOnTheListAlready) {
    chosen = "/std/Quartz.std";
    QTest::mouseClick(dialog->cmdInsert, Qt::LeftButton);
    EXPECT_THAT(noteText(), HasSubstr("on the list already"));
    EXPECT_EQ(storedNames().size(), 3U);
}

TEST_F(StandardListDialog, SaysThatTheHostCouldNotStoreTheList) {
    host.results["TarnRegisterSetString"] = 0;
    select({1});
    QTest::mouseClick(dialog->cmdDown, Qt::LeftButton);
    EXPECT_THAT(noteText(), HasSubstr("could not store all of the list"));
}

TEST_F(StandardListDialog, ClosingItRebuildsTheStageMenu) {
    QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(menusFilled, 1);
    open();
    dialog->close();
    EXPECT_EQ(menusFilled, 2);
}

TEST_F(StandardListDialog, TheDeleteKeyInTheListDoesWhatTheButtonDoes) {
    select({2});
    QApplication::setActiveWindow(dialog.get());
    dialog->lvwStdEntries->setFocus();
    QTest::keyClick(dialog->lvwStdEntries, Qt::Key_Delete);
    EXPECT_THAT(storedNames(), ElementsAre("/std/Quartz.std", "/std/Pyrite.std"));
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(StandardListDialog, AltAndTheArrowKeysMoveTheSelectedStandards) {
    select({2});
    QApplication::setActiveWindow(dialog.get());
    const std::vector<std::string> before = storedNames();
    QTest::keyClick(dialog->lvwStdEntries, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return storedNames() != before; }));
    EXPECT_THAT(storedNames(), ElementsAre("/std/Quartz.std", "/std/Pyrite.std", "/elsewhere/Gold.std"));
    QTest::keyClick(dialog->lvwStdEntries, Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return storedNames() == before; }));
}
