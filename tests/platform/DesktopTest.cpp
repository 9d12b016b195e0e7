#include "platform/Desktop.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace ocuva {
namespace {

TEST(Desktop, AnOrdinaryStartIsNotInTheDevelopmentEnvironment) {
    QWidget window;
    window.show();
    EXPECT_FALSE(runsInDevelopmentEnvironment(window.winId()));
    EXPECT_FALSE(runsInDevelopmentEnvironment(0));
}

TEST(Desktop, DrawingIsFrozenOnlyOnRequest) {
    QWidget window;
    window.show();
    {
        const FrozenDrawing frozen(window);
        EXPECT_FALSE(window.updatesEnabled());
    }
    EXPECT_TRUE(window.updatesEnabled());
}

} // namespace
} // namespace ocuva
