#include "app/SleepingWindow.h"

#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

struct DialogOfAMinimisedWindow : testing::Test {
    QWidget window;
    QDialog dialog{&window};
    SleepingWindow sleeping{window,
                            [this](bool minimised) {
                                window.setWindowState(minimised ? Qt::WindowMinimized : Qt::WindowNoState);
                            },
                            [] {}};

    void SetUp() override {
        window.show();
        dialog.show();
        // As a window manager does with both at once.
        window.setWindowState(Qt::WindowMinimized);
        dialog.setWindowState(Qt::WindowMinimized);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(DialogOfAMinimisedWindow, ComesBackWithItAtAWake) {
    sleeping.bringBack();
    QTest::qWait(500);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isMinimized());
}

TEST_F(DialogOfAMinimisedWindow, ThatTheProgramHasClosedStaysClosed) {
    dialog.close();
    sleeping.bringBack();
    QTest::qWait(500);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_FALSE(dialog.isVisible());
}
