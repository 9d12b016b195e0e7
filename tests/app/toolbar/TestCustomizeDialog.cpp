// The dialog that chooses and orders the buttons, with real events.

#include "ToolbarRig.h"
#include "app/toolbar/CustomizeToolbarDialog.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>

using namespace ocuva;

namespace {

struct DialogRig : ToolbarRig {
    CustomizeToolbarDialog* dialog = nullptr;

    DialogRig() {
        QTest::mouseDClick(&bar, Qt::LeftButton, {}, emptyPlace());
        dialog = bar.findChild<CustomizeToolbarDialog*>();
        settle();
    }

    static std::vector<std::string> rows(const QListWidget& list) {
        std::vector<std::string> texts;
        texts.reserve(static_cast<std::size_t>(list.count()));
        for (int row = 0; row < list.count(); ++row) {
            texts.push_back(list.item(row)->text().toStdString());
        }
        return texts;
    }

    void chooseCurrent(const char* key) const {
        dialog->lstCurrent->setCurrentRow(bar.buttonLayout().indexOf(text(key)));
    }

    static void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    // Drops a row of one list over (upper half) or under (lower half) a row of another; row -1 is below all.
    static void drop(ButtonList& from, int row, ButtonList& onto, int ontoRow, bool lowerHalf) {
        const std::unique_ptr<QMimeData> dragged(from.model()->mimeData({from.model()->index(row, 0)}));
        QPoint place(10, onto.viewport()->height() - 2);
        if (ontoRow >= 0) {
            const QRect target = onto.visualItemRect(onto.item(ontoRow));
            place = {target.center().x(), lowerHalf ? target.bottom() - 2 : target.top() + 2};
        }
        dropData(*dragged, onto, place);
    }

    static void dropData(const QMimeData& dragged, ButtonList& onto, QPoint place) {
        QDragEnterEvent enter(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(onto.viewport(), &enter);
        QDragMoveEvent move(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(onto.viewport(), &move);
        QDropEvent drop(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(onto.viewport(), &drop);
        settle();
    }
};

} // namespace

TEST(CustomizeToolbarDialog, ShowsTheBarOnTheRightAndWhatIsLeftOnTheLeft) {
    const DialogRig rig;
    ASSERT_NE(rig.dialog, nullptr);
    EXPECT_EQ(DialogRig::rows(*rig.dialog->lstAvailable), std::vector<std::string>{"Separator"});
    EXPECT_EQ(
        DialogRig::rows(*rig.dialog->lstCurrent),
        (std::vector<std::string>{"Save", "Live", "Separator", "Zoom", "Cross", "Grid", "Separator", "Stage",
                                  "Standard", "Autofocus", "Separator", "Setup", "Separator"}));
    EXPECT_FALSE(rig.dialog->cmdReset->isEnabled());
    EXPECT_EQ(rig.dialog->windowModality(), Qt::WindowModal);
}

TEST(CustomizeToolbarDialog, RemoveTakesTheButtonOffTheBarAtOnce) {
    DialogRig rig;
    rig.chooseCurrent("Grid");
    DialogRig::press(rig.dialog->cmdRemove);
    EXPECT_EQ(rig.button("Grid"), nullptr);
    EXPECT_EQ(rig.customizations, 1);
    EXPECT_EQ(DialogRig::rows(*rig.dialog->lstAvailable), (std::vector<std::string>{"Separator", "Grid"}));
    EXPECT_TRUE(rig.dialog->cmdReset->isEnabled());
}

TEST(CustomizeToolbarDialog, AddPutsTheButtonBehindTheChosenOne) {
    DialogRig rig;
    rig.chooseCurrent("Grid");
    DialogRig::press(rig.dialog->cmdRemove);
    rig.chooseCurrent("Save");
    rig.dialog->lstAvailable->setCurrentRow(1);
    DialogRig::press(rig.dialog->cmdAdd);
    EXPECT_EQ(rig.layout(), "Save,Grid,Acq,Sep1,Zoom,Cross,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
    EXPECT_EQ(rig.dialog->lstCurrent->currentRow(), 1);
}

TEST(CustomizeToolbarDialog, SeparatorsCanBeAddedAgainAndAgain) {
    DialogRig rig;
    rig.chooseCurrent("Save");
    rig.dialog->lstAvailable->setCurrentRow(0);
    DialogRig::press(rig.dialog->cmdAdd);
    DialogRig::press(rig.dialog->cmdAdd);
    EXPECT_EQ(rig.layout(),
              "Save,Sep5,Sep6,Acq,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
    EXPECT_EQ(rig.dialog->lstAvailable->count(), 1);
}

TEST(CustomizeToolbarDialog, MoveUpAndMoveDownShiftTheChosenItemAndKeepItChosen) {
    DialogRig rig;
    rig.chooseCurrent("Acq");
    DialogRig::press(rig.dialog->cmdMoveUp);
    EXPECT_EQ(rig.layout().substr(0, 8), "Acq,Save");
    EXPECT_FALSE(rig.dialog->cmdMoveUp->isEnabled());
    DialogRig::press(rig.dialog->cmdMoveDown);
    DialogRig::press(rig.dialog->cmdMoveDown);
    EXPECT_EQ(rig.layout().substr(0, 13), "Save,Sep1,Acq");
    EXPECT_EQ(rig.dialog->lstCurrent->currentRow(), 2);
    rig.chooseCurrent("Sep4");
    EXPECT_FALSE(rig.dialog->cmdMoveDown->isEnabled());
}

TEST(CustomizeToolbarDialog, ResetBringsTheDesignBackAndCloseOnlyCloses) {
    DialogRig rig;
    DialogRig::press(rig.dialog->cmdRemove);
    DialogRig::press(rig.dialog->cmdReset);
    EXPECT_EQ(rig.layout(), designText);
    EXPECT_EQ(rig.customizations, 2);
    DialogRig::press(rig.dialog->cmdClose);
    ToolbarRig::settle();
    EXPECT_EQ(rig.bar.findChild<CustomizeToolbarDialog*>(), nullptr);
    EXPECT_EQ(rig.customizations, 2);
}

TEST(CustomizeToolbarDialog, EverythingCanBeTakenOffAndPutBack) {
    DialogRig rig;
    for (int i = 0; i < 20; ++i) {
        rig.dialog->cmdRemove->click();
    }
    EXPECT_EQ(rig.layout(), "");
    EXPECT_FALSE(rig.dialog->cmdRemove->isEnabled());
    rig.dialog->lstAvailable->setCurrentRow(1);
    rig.dialog->cmdAdd->click();
    EXPECT_EQ(rig.layout(), "Save");
}

TEST(CustomizeToolbarDialog, DoubleClicksAddAndRemoveAndDeleteRemoves) {
    DialogRig rig;
    ButtonList& current = *rig.dialog->lstCurrent;
    const QPoint onFirst = current.visualItemRect(current.item(0)).center();
    QTest::mouseClick(current.viewport(), Qt::LeftButton, {}, onFirst);
    QTest::mouseDClick(current.viewport(), Qt::LeftButton, {}, onFirst);
    EXPECT_EQ(rig.button("Save"), nullptr);
    rig.chooseCurrent("Setup");
    current.setFocus();
    QTest::keyClick(&current, Qt::Key_Delete);
    EXPECT_EQ(rig.button("Setup"), nullptr);
    ButtonList& available = *rig.dialog->lstAvailable;
    const QPoint onSave = available.visualItemRect(available.item(1)).center();
    QTest::mouseClick(available.viewport(), Qt::LeftButton, {}, onSave);
    QTest::mouseDClick(available.viewport(), Qt::LeftButton, {}, onSave);
    EXPECT_NE(rig.button("Save"), nullptr);
}

TEST(CustomizeToolbarDialog, ARowDraggedWithinTheListMovesTheButton) {
    DialogRig rig;
    ButtonList& current = *rig.dialog->lstCurrent;
    DialogRig::drop(current, 0, current, 4, true);
    EXPECT_EQ(rig.layout(), "Acq,Sep1,Zoom,Cross,Save,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4");
    DialogRig::drop(current, 4, current, 0, false);
    EXPECT_EQ(rig.layout(), designText);
    DialogRig::drop(current, 0, current, -1, false);
    EXPECT_EQ(rig.layout(), "Acq,Sep1,Zoom,Cross,Grid,Sep2,Stage,Standard,Focus,Sep3,Setup,Sep4,Save");
}

TEST(CustomizeToolbarDialog, ARowDraggedToTheOtherListAddsOrRemoves) {
    DialogRig rig;
    ButtonList& current = *rig.dialog->lstCurrent;
    ButtonList& available = *rig.dialog->lstAvailable;
    DialogRig::drop(current, 5, available, -1, false);
    EXPECT_EQ(rig.button("Grid"), nullptr);
    DialogRig::drop(available, 1, current, 0, false);
    EXPECT_EQ(rig.layout().substr(0, 9), "Grid,Save");
    DialogRig::drop(available, 0, current, 0, true);
    EXPECT_EQ(rig.layout().substr(0, 14), "Grid,Sep5,Save");
    const int before = rig.customizations;
    DialogRig::drop(available, 0, available, 0, true);
    EXPECT_EQ(rig.customizations, before);
}

TEST(CustomizeToolbarDialog, WhatOtherProgramsDropIsIgnored) {
    DialogRig rig;
    ButtonList& current = *rig.dialog->lstCurrent;
    for (const char* const rubbish : {"", "1", "x:lstCurrent:0", "0:lstCurrent:0", "::"}) {
        QMimeData foreign;
        foreign.setData(text("application/x-ocuva-toolbar-row"), rubbish);
        foreign.setText(text("some text"));
        DialogRig::dropData(foreign, current, {10, 10});
    }
    QMimeData outOfRange;
    outOfRange.setData(text("application/x-ocuva-toolbar-row"),
                       QByteArray::number(QCoreApplication::applicationPid()) + ":lstCurrent:99");
    DialogRig::dropData(outOfRange, current, {10, 10});
    EXPECT_EQ(rig.layout(), designText);
}
