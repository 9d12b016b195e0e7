#include "controls/InputGate.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gmock/gmock.h>
#include <optional>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Gate : testing::Test {
    std::vector<std::string> said;
    InputGate gate{[this](const QString& what) { said.push_back(what.toStdString()); }};
    QWidget window;
    QPushButton button{&window};
    QLineEdit field{&window};
    int clicks = 0;

    Gate() {
        button.setGeometry(0, 0, 50, 20);
        field.setGeometry(0, 30, 50, 20);
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++clicks; });
        window.resize(100, 100);
        window.show();
        QApplication::setActiveWindow(&window);
    }
    QPoint middle() const { return button.geometry().center(); }
    void clickWindow() { QTest::mouseClick(window.windowHandle(), Qt::LeftButton, plain, middle()); }

    static constexpr Qt::KeyboardModifiers plain = Qt::NoModifier;
};

} // namespace

TEST_F(Gate, LetsEverythingThroughWithoutAHold) {
    clickWindow();
    QTest::mouseClick(&button, Qt::LeftButton);
    field.setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_7);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(field.text().toStdString(), "7");
}

TEST_F(Gate, DropsPressesAndKeysWhileItIsHeldAndTakesThemAgainAfterwards) {
    field.setFocus();
    {
        const InputGate::Hold hold(gate);
        clickWindow();
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::keyClick(window.windowHandle(), Qt::Key_7);
    }
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(field.text().toStdString(), "");
    clickWindow();
    EXPECT_EQ(clicks, 1);
}

TEST_F(Gate, HoldsMayBeNestedAndOnlyTheOutermostOpensIt) {
    const InputGate::Hold outer(gate);
    { const InputGate::Hold inner(gate); }
    EXPECT_TRUE(gate.isHeld());
    clickWindow();
    EXPECT_EQ(clicks, 0);
}

TEST_F(Gate, TheReleaseOfAPressThatWasDroppedIsDroppedToo) {
    {
        const InputGate::Hold hold(gate);
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, plain, middle());
    }
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, plain, middle());
    EXPECT_EQ(clicks, 0);
}

TEST_F(Gate, AnEarlierPressHasNoEffectAndItsButtonDoesNotStayDown) {
    for (const bool releasedInside : {true, false}) {
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, plain, middle());
        ASSERT_TRUE(button.isDown());
        {
            const InputGate::Hold hold(gate);
            if (releasedInside) {
                QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, plain, middle());
            }
        }
        if (!releasedInside) {
            QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, plain, middle());
        }
        EXPECT_EQ(clicks, 0);
        EXPECT_FALSE(button.isDown());
    }
    clickWindow();
    EXPECT_EQ(clicks, 1);
}

TEST_F(Gate, ASpaceBarPressedBeforeHasNoEffect) {
    button.setFocus();
    QTest::keyPress(window.windowHandle(), Qt::Key_Space);
    ASSERT_TRUE(button.isDown());
    { const InputGate::Hold hold(gate); }
    QTest::keyRelease(window.windowHandle(), Qt::Key_Space);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Gate, AQuestionThatOpensDuringTheCallCanBeAnswered) {
    const InputGate::Hold hold(gate);
    QDialog question;
    QPushButton answer(&question);
    int answers = 0;
    QObject::connect(&answer, &QPushButton::clicked, &question, [&answers] { ++answers; });
    question.setModal(true);
    question.show();
    QTest::mouseClick(question.windowHandle(), Qt::LeftButton, plain, answer.geometry().center());
    EXPECT_EQ(answers, 1);
}

TEST_F(Gate, ShowsItsTextAndABusyPointerUntilTheHoldEnds) {
    const InputGate::Hold outer(gate);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    {
        InputGate::Hold inner(gate);
        inner.say(QStringLiteral("Focusing"));
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        EXPECT_THAT(said, ElementsAre("Focusing"));
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_THAT(said, ElementsAre("Focusing", ""));
}

TEST_F(Gate, AHoldWithoutATextShowsNothing) {
    { const InputGate::Hold hold(gate); }
    EXPECT_THAT(said, IsEmpty());
}
