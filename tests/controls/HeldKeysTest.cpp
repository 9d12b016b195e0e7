#include "controls/HeldKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

constexpr Qt::KeyboardModifiers plain = Qt::NoModifier;

struct HeldKeysInAWindow : testing::Test {
    HeldKeys heldKeys;
    QWidget window;
    QLineEdit field;
    QPushButton button;
    int clicks = 0;

    HeldKeysInAWindow() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&field);
        column->addWidget(&button);
        button.setAutoDefault(true);
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++clicks; });
        window.show();
        QApplication::setActiveWindow(&window);
    }
    ~HeldKeysInAWindow() override {
        field.setParent(nullptr);
        button.setParent(nullptr);
    }

    void send(QEvent::Type type, int key, const QString& text, bool repeated, quint64 atMs = 0) {
        QKeyEvent event(type, key, plain, 38, 0, 0, text, repeated);
        event.setTimestamp(atMs);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }
};

} // namespace

TEST(HeldKey, MayRepeatEverywhereIfItMovesTheCursorOrAValueBySteps) {
    for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Tab}) {
        EXPECT_TRUE(mayRepeat(key, plain, false)) << key;
        EXPECT_TRUE(mayRepeat(key, plain, true)) << key;
    }
}

TEST(HeldKey, MayRepeatInTextFieldsIfItWritesOrDeletes) {
    for (const int key : {Qt::Key_7, Qt::Key_A, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete}) {
        EXPECT_TRUE(mayRepeat(key, plain, true)) << key;
        EXPECT_FALSE(mayRepeat(key, plain, false)) << key;
    }
}

TEST(HeldKey, MayNeverRepeatACommandOrAnAnswer) {
    for (const int key :
         {Qt::Key_F4, Qt::Key_F9, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Menu}) {
        EXPECT_FALSE(mayRepeat(key, plain, true)) << key;
        EXPECT_FALSE(mayRepeat(key, plain, false)) << key;
    }
    EXPECT_FALSE(mayRepeat(Qt::Key_S, Qt::ControlModifier, true));
    EXPECT_FALSE(mayRepeat(Qt::Key_S, Qt::AltModifier, true));
    EXPECT_FALSE(mayRepeat(Qt::Key_Down, Qt::AltModifier, false));
}

TEST_F(HeldKeysInAWindow, AHeldEnterClicksAButtonOnce) {
    button.setFocus();
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), false);
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), true);
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), true);
    EXPECT_EQ(clicks, 1);
}

TEST_F(HeldKeysInAWindow, APressInTheMillisecondOfItsReleaseIsARepetitionToo) {
    button.setFocus();
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), false, 1000);
    send(QEvent::KeyRelease, Qt::Key_Return, QStringLiteral("\r"), false, 1600);
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), false, 1600);
    EXPECT_EQ(clicks, 1);
    send(QEvent::KeyRelease, Qt::Key_Return, QStringLiteral("\r"), false, 1640);
    send(QEvent::KeyPress, Qt::Key_Return, QStringLiteral("\r"), false, 1700);
    EXPECT_EQ(clicks, 2);
}

TEST_F(HeldKeysInAWindow, AHeldDigitRepeats) {
    field.setFocus();
    send(QEvent::KeyPress, Qt::Key_7, QStringLiteral("7"), false);
    send(QEvent::KeyPress, Qt::Key_7, QStringLiteral("7"), true);
    EXPECT_EQ(field.text().toStdString(), "77");
}
