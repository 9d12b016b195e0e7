#include "controls/TextBox.h"
#include "controls/UpDownBox.h"

#include <QDialog>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

struct EscapeInADialog : testing::Test {
    QDialog dialog;
    TextBox* text = new TextBox(&dialog);
    UpDownBox* upDown = new UpDownBox(&dialog);

    EscapeInADialog() {
        auto* column = new QVBoxLayout(&dialog);
        column->addWidget(text);
        column->addWidget(upDown);
        text->setText(QStringLiteral("400"));
        upDown->setRange(1, 4000);
        upDown->setKeyboardTracking(false);
        upDown->setValue(96);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
    }
};

} // namespace

TEST_F(EscapeInADialog, PutsTheTextBackAndOnlyASecondOneClosesTheDialog) {
    text->setFocus();
    QTest::keyClick(text, Qt::Key_7);
    ASSERT_EQ(text->text().toStdString(), "7");
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_EQ(text->text().toStdString(), "400");
    EXPECT_FALSE(text->isModified());
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(EscapeInADialog, ClosesAtOnceAfterEnterHasAppliedTheText) {
    text->setFocus();
    QTest::keyClick(text, Qt::Key_7);
    QTest::keyClick(text, Qt::Key_Return);
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_EQ(text->text().toStdString(), "7");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(EscapeInADialog, PutsTheValueOfAnUpDownBoxBackWithoutAChange) {
    int changes = 0;
    QObject::connect(upDown, &QSpinBox::valueChanged, upDown, [&changes] { ++changes; });
    upDown->setFocus();
    upDown->selectAll();
    QTest::keyClick(upDown, Qt::Key_7);
    ASSERT_EQ(upDown->cleanText().toStdString(), "7");
    QTest::keyClick(upDown, Qt::Key_Escape);
    EXPECT_EQ(upDown->cleanText().toStdString(), "96");
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(upDown, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(changes, 0);
}
