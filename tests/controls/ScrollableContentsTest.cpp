#include "controls/ScrollableContents.h"

#include <QDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

struct TallDialog : QDialog {
    std::vector<QPushButton*> buttons;

    TallDialog() {
        auto* column = new QVBoxLayout(this);
        for (int i = 0; i < 3; ++i) {
            buttons.push_back(new QPushButton(QString::number(i), this));
            buttons.back()->setMinimumSize(200, 300);
            column->addWidget(buttons.back());
        }
        buttons[1]->setFocus();
    }
    bool scrolls() const { return findChild<QScrollArea*>() != nullptr; }
};

} // namespace

TEST(ScrollableContents, AreLeftAloneWhereTheyFit) {
    TallDialog dialog;
    scrollWhatDoesNotFit(dialog, {400, 1200});
    EXPECT_FALSE(dialog.scrolls());
    EXPECT_EQ(dialog.buttons[0]->parentWidget(), &dialog);
}

TEST(ScrollableContents, LetTheWindowBeAsSmallAsTheRoomAndKeepTheirSize) {
    TallDialog dialog;
    scrollWhatDoesNotFit(dialog, {400, 500});
    dialog.resize(400, 500);
    dialog.show();
    EXPECT_TRUE(dialog.scrolls());
    EXPECT_EQ(dialog.size(), QSize(400, 500));
    EXPECT_GE(dialog.buttons[2]->height(), 300);
    EXPECT_TRUE(dialog.buttons[2]->isVisible());
}

TEST(ScrollableContents, KeepFocusAndOrderOfTheControls) {
    TallDialog dialog;
    scrollWhatDoesNotFit(dialog, {400, 500});
    dialog.resize(400, 500);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    EXPECT_EQ(dialog.focusWidget(), dialog.buttons[1]);
    QTest::keyClick(&dialog, Qt::Key_Tab);
    EXPECT_EQ(dialog.focusWidget(), dialog.buttons[2]);
    QTest::keyClick(&dialog, Qt::Key_Tab);
    EXPECT_EQ(dialog.focusWidget(), dialog.buttons[0]);
}

TEST(ScrollableContents, ThatAreTooWideGetNoScrollBarForTheirHeightToo) {
    TallDialog dialog;
    const int needed = dialog.layout()->totalMinimumSize().height();
    scrollWhatDoesNotFit(dialog, {150, 2000});
    dialog.resize(150, dialog.height());
    dialog.show();
    EXPECT_TRUE(dialog.scrolls());
    EXPECT_GT(dialog.height(), needed);
    EXPECT_FALSE(dialog.findChild<QScrollArea*>()->verticalScrollBar()->isVisible());
}

TEST(ScrollableContents, AreNotPutIntoAnAreaTwice) {
    TallDialog dialog;
    scrollWhatDoesNotFit(dialog, {400, 500});
    scrollWhatDoesNotFit(dialog, {400, 500});
    EXPECT_EQ(dialog.findChildren<QScrollArea*>().size(), 1);
}

TEST(ScrollableContents, OfAWindowWithoutLayoutAreLeftAlone) {
    QWidget window;
    scrollWhatDoesNotFit(window, {1, 1});
    EXPECT_TRUE(window.children().isEmpty());
}
